// An animation of given fronts over a test site, ready to build.
#ifndef KELPBOX_TESTS_ANIMATION_TEST_ANIMATION_H_
#define KELPBOX_TESTS_ANIMATION_TEST_ANIMATION_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <exception>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "animation/animate.h"
#include "base/params.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "support/output.h"
#include "support/test_site.h"
#include "support/thrown.h"

namespace Testing {

// The parameters of an animation, in metres and Hz.
struct GridText {
  double rate = 10.0;
  double x_step = 0.5;
  double y_step = 1.0;
  double x_min = 0.0;
  double x_max = 10.0;
  double y_min = -2.0;
  double y_max = 2.0;

  Base::Params params() const {
    Base::Params params;
    params.insert("rate", rate, "Hz");
    const std::vector<std::pair<std::string, double>> lengths = {
        {"x_step", x_step}, {"y_step", y_step}, {"x_min", x_min},
        {"x_max", x_max},   {"y_min", y_min},   {"y_max", y_max}};
    for (const auto& [name, value] : lengths) params.insert(name, value, "m");
    return params;
  }
};

// Fronts at the paddle line in a tank, with a repeat time of 10 s and harmonics 1 to 20.
struct AnimatedSea {
  explicit AnimatedSea(const Given& given = {}, const SiteText& text = {}) : site(text) {
    run.init(10.0, 100.0, 0.1, 2.0, false);
    fronts.reset(run.size());
    for (const auto& [slot, front] : given) fronts.slots[slot].push_back(front);
  }

  const Maths::TankConfig& tank() { return site.context().tank_config(); }
  Synthesis::AnimationFrames& frames() { return animate.frames(); }

  // Each returns what was written to the standard output. When a build fails, `output` holds it.
  std::string build(Base::Params& params) {
    std::exception_ptr failure;
    output = printed([&] {
      try {
        animate.build(fronts, tank(), run, params);
      } catch (...) {
        failure = std::current_exception();
      }
    });
    if (failure) std::rethrow_exception(failure);
    return output;
  }
  std::string build(const GridText& grid = {}) {
    Base::Params params = grid.params();
    return build(params);
  }
  void init(const GridText& grid = {}) {
    Base::Params params = grid.params();
    animate.init(fronts, run, params);
  }
  void slice(std::uint32_t from, std::uint32_t to) {
    animate.build_slice(fronts, tank(), run, from, to);
  }
  std::vector<std::vector<std::int16_t>> all() {
    std::vector<std::vector<std::int16_t>> frames;
    for (std::uint32_t t = 0; t < animate.frames().size(0); ++t) {
      frames.push_back(animate.frames().data(t));
    }
    return frames;
  }

  Site site;
  Maths::RunData run;
  Maths::FrontSet fronts;
  Synthesis::Animate animate;
  std::string output;
};

// Collects what is written, and stops a build at the end of a given line.
class StoppingBuffer : public std::streambuf {
 public:
  StoppingBuffer(Synthesis::AnimationFrames& frames, int lines) : frames_(frames), lines_(lines) {}
  const std::string& text() const { return text_; }

 private:
  int_type overflow(int_type c) override {
    text_ += traits_type::to_char_type(c);
    if (c == '\n' && --lines_ == 0) frames_.stop();
    return c;
  }

  Synthesis::AnimationFrames& frames_;
  int lines_;
  std::string text_;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_ANIMATION_TEST_ANIMATION_H_
