#include "sea/limit_rules.h"

namespace Synthesis {

bool frequencies_in_order(const Limits& limits) {
  for (std::size_t i = 1; i < limits.size(); ++i) {
    if (limits[i] < limits[i - 1]) return false;
  }
  return true;
}

std::size_t function_at_frequency(const Limits& limits, double frequency) {
  std::size_t i = 0;
  while (i < limits.size() && !(frequency <= limits[i])) ++i;
  return i;
}

bool angles_in_order(const Limits& limits) {
  if (limits.size() < 3) return true;
  const double last = limits.back();
  for (std::size_t i = 1; i + 1 < limits.size(); ++i) {
    const bool falls = limits[i - 1] > limits[i];
    const bool passes_last = limits[i] > last;
    const bool after_pi = limits[i - 1] < last;
    if (after_pi ? falls || passes_last : falls && passes_last) return false;
  }
  return true;
}

std::size_t function_at_angle(const Limits& limits, double angle) {
  if (limits.size() < 2) return 0;
  const double last = limits.back();
  const bool beyond_last = angle > last;
  std::size_t i = 0;
  for (; i < limits.size(); ++i) {
    const bool above = limits[i] > angle;
    const bool after_pi = limits[i] <= last;
    if (after_pi ? beyond_last || above : beyond_last && above) break;
  }
  return i;
}

bool limits_rise(const Limits& limits) {
  for (std::size_t i = 1; i < limits.size(); ++i) {
    // Written so that a NaN limit fails too.
    if (!(limits[i] > limits[i - 1])) return false;
  }
  return true;
}

std::optional<double> BandWalk::limit_before(double right_edge) const {
  const std::size_t next = function_ + 1;
  const bool has_next_function = next + 1 < limits_.size();
  if (!has_next_function || !(limits_[next] < right_edge)) return std::nullopt;
  return limits_[next];
}

std::size_t TimeWalk::limits_passed(double time) {
  if (time > limits_[passed_] || time == limits_.front()) ++passed_;
  return passed_;
}

}  // namespace Synthesis
