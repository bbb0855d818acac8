// What the tests of modifiers share: a sea to work on, parameters, and the library's random
// numbers by a few lines of their own.
#ifndef KELPBOX_TESTS_SEA_TESTING_MODIFIERS_H_
#define KELPBOX_TESTS_SEA_TESTING_MODIFIERS_H_

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/enumerations.h"
#include "base/params.h"
#include "base/units.h"
#include "sea/modifier.h"
#include "testing_components.h"

namespace Testing {

// In radians, as the table of units has it.
inline constexpr double degree = 0.0174533;

using Fronts = std::vector<Maths::HarmonicFront>;

// A grid of 0.1 Hz with a set of fronts for a modifier to change, in a tank that takes any angle.
struct Sea {
  explicit Sea(double repeat = 10.0, double max_freq = 2.0)
      : run(run_of(repeat, 1.0 / repeat, max_freq)), fronts(empty_set(run)) {
    tank.min_angle = -pi;
    tank.max_angle = pi;
  }

  void modify(Synthesis::Modifier& modifier) { modifier.evaluate(fronts, run, tank, messages); }
  Fronts& at(std::size_t h) { return fronts.slots.at(h); }

  Maths::RunData run;
  Maths::TankConfig tank;
  Maths::FrontSet fronts;
  Synthesis::Messages messages;
};

// Parameters, written one after the other.
struct Filled : Base::Params {
  Filled& number(const char* name, double value) {
    insert(name, value, Base::default_units(Base::Category::unit));
    return *this;
  }
  Filled& with(const char* name, double value, const char* units) {
    insert(name, value, units);
    return *this;
  }
  Filled& member(const char* name, const char* value, const char* type) {
    insert(name, value, type);
    return *this;
  }
};

inline void set(Synthesis::Modifier& modifier, Base::Params params = {}) { modifier.set(params); }

inline std::vector<std::string> comments(const Base::Params& params) {
  std::vector<std::string> found;
  for (std::uint32_t i = 0; i < params.comment_size(); ++i) found.push_back(params.comment(i));
  return found;
}

// x[n] = x[n - 54] + x[n - 23] in 32 bits. The table comes from a linear congruential sequence and
// is read from its 24th word on; the first number in use is the 540th.
class Draws {
 public:
  explicit Draws(std::uint32_t seed) {
    std::vector<std::uint32_t> table = {seed};
    while (table.size() < 54) table.push_back(table.back() * 1103515245U + 12345U);
    for (std::size_t i = 0; i < 54; ++i) x_.push_back(table[(i + 23) % 54]);
    for (int i = 0; i < 539; ++i) next();
  }
  // From 0 to 1 and from -1 to 1.
  double unit() { return next() / 4294967295.0; }
  double symmetric() { return 2.0 * unit() - 1.0; }

 private:
  std::uint32_t next() {
    x_.push_back(x_[x_.size() - 54] + x_[x_.size() - 23]);
    return x_.back();
  }
  std::vector<std::uint32_t> x_;
};

// The largest distance of the samples' distribution from the one given, times the square root of
// their number: above 1.95 for one set of samples in a thousand.
template <typename Distribution>
double kolmogorov_smirnov(std::vector<double> samples, Distribution distribution) {
  std::sort(samples.begin(), samples.end());
  const double n = static_cast<double>(samples.size());
  double distance = 0.0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double p = distribution(samples[i]);
    distance =
        std::max({distance, p - static_cast<double>(i) / n, static_cast<double>(i + 1) / n - p});
  }
  return distance * std::sqrt(n);
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SEA_TESTING_MODIFIERS_H_
