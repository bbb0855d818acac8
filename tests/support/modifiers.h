// Front sets for modifiers to change, and parameters written in one expression.
#ifndef KELPBOX_TESTS_SUPPORT_MODIFIERS_H_
#define KELPBOX_TESTS_SUPPORT_MODIFIERS_H_

#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

#include "base/enumerations.h"
#include "base/params.h"
#include "base/units.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"
#include "sea/modifier.h"

namespace Testing {

inline constexpr double pi = std::numbers::pi;

// In radians, rounded as in the table of units.
inline constexpr double degree = 0.0174533;

using Fronts = std::vector<Maths::HarmonicFront>;

// The harmonics of a repeat time, at a sample rate so high that the repeat time stays as it is.
inline Maths::RunData run_of(double repeat, double min_freq, double max_freq) {
  Maths::RunData run;
  run.init(repeat, 1024.0, min_freq, max_freq, false);
  return run;
}

inline Maths::FrontSet empty_set(const Maths::RunData& run) {
  Maths::FrontSet set;
  set.reset(run.size());
  return set;
}

// A set of fronts for a modifier to change, by default on a grid of 0.1 Hz, in a tank that takes
// any angle.
struct Sea {
  explicit Sea(double repeat = 10.0, double max_freq = 2.0)
      : run(run_of(repeat, 1.0 / repeat, max_freq)), fronts(empty_set(run)) {
    tank.min_angle = -pi;
    tank.max_angle = pi;
  }

  void modify(Synthesis::Modifier& modifier) { modifier.evaluate(fronts, {run, tank, messages}); }
  Fronts& at(std::size_t h) { return fronts.slots.at(h); }

  Maths::RunData run;
  Maths::TankConfig tank;
  Maths::FrontSet fronts;
  Synthesis::Messages messages;
};

// Parameters, inserted one after the other.
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

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_MODIFIERS_H_
