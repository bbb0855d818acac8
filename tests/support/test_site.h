// A small site, written as a script and read by the real reader, and the parts that tests assemble
// runs from.
#ifndef KELPBOX_TESTS_SUPPORT_TEST_SITE_H_
#define KELPBOX_TESTS_SUPPORT_TEST_SITE_H_

#include <cstdint>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/params.h"
#include "maths/front.h"
#include "script/log.h"
#include "sea/component.h"
#include "sea/modifier.h"
#include "site/context.h"
#include "support/thrown.h"

namespace Testing {

struct Place {
  double x;
  double y;
  double angle;
};

struct BankText {
  std::string machine = "piston";  // or flap
  double paddle_width = 0.5;
  double critical_dimension = 0.0;
  std::string dimension_type = "ToBottom";
  double clip_limit = 1.0;
  std::string units = "m";
  std::vector<Place> paddles = {{0.0, 0.0, 0.0}};
};

// A tank from x_low to x_high. Depths are formulas such as "1@m"; `breaks` are the positions
// between them.
struct SiteText {
  std::string geometry = "NoSides";
  double min_y = -10.0;
  double max_y = 10.0;
  double x_low = 0.0;
  double x_high = 40.0;
  std::vector<std::string> depths = {"1@m"};
  std::vector<double> breaks;
  double min_freq = 0.1;
  double max_freq = 2.0;
  double min_angle = -180.0;  // degrees
  double max_angle = 180.0;
  double base_rate = 20.0;
  double g = 9.81;
  std::vector<BankText> banks = {BankText{}};
};

// 1 m of water up to x = 5, then a slope to 0.5 m at x = 30.
SiteText sloping_site();
double sloping_depth(double x);

std::string script(const SiteText& site);

// Reads the script with the real reader and keeps the log.
class Site {
 public:
  explicit Site(const SiteText& text = {}, bool ready = true);
  Common::Context& context() { return *reader_.object(); }
  std::string log() const { return log_text_.str(); }

 private:
  std::ostringstream log_text_;
  Script::SimpleLog log_{log_text_};
  Common::SiteReader reader_{"context"};
};

// Fronts by harmonic.
using Given = std::vector<std::pair<std::uint64_t, Maths::HarmonicFront>>;

// Adds the given fronts to the set, and its message to the messages.
class GivenFronts : public Synthesis::Component {
 public:
  explicit GivenFronts(Given given = {}) : Component("given"), fronts(std::move(given)) {
    Base::Params none;
    set(none);
  }

  Given fronts;
  std::string message;

 protected:
  void on_query(Base::Params&) override {}
  void on_set(Base::Params&, Base::Params&) override {}
  void on_evaluate(const Base::Params&, Maths::FrontSet& out,
                   const Synthesis::RunContext& context) override {
    if (!message.empty()) context.messages.push_back(message);
    for (const auto& [slot, front] : fronts) out.add_front(slot, front);
  }
};

// Adds its name and the number of fronts in the set to the messages.
class NamedModifier : public Synthesis::Modifier {
 public:
  NamedModifier(Slot slot, const std::string& name)
      : Modifier(slot, name, Base::Category::unit, Base::Category::unit, "") {}

 protected:
  void on_evaluate(const Base::Params&, Maths::FrontSet& fronts,
                   const Synthesis::RunContext& context) override;
};

// The parameters of a specification, in metres and seconds.
Base::Params at(double x, double y, double t);

// The parameters of a definition.
Base::Params run_params(double repeat, const std::string& wave_merge = "Null",
                        const std::string& dalrymple = "False");

// The parameters of the paddle motion, in Hz.
Base::Params rate_params(double rate);

// The wave number that the library works with. The tests of maths prove it against the exact root,
// so other tests need no tolerance for its error; see also support/wave_number.h.
double wave_number(double omega, double depth, double g = 9.81);

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_TEST_SITE_H_
