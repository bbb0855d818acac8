// The limits of a piecewise expression: their required order, and which function holds between
// them. Each use of an expression has its own rule.
//
// Limits are in the base unit of their category. Functions and limits are counted from 0.
#ifndef KELPBOX_SEA_LIMIT_RULES_H_
#define KELPBOX_SEA_LIMIT_RULES_H_

#include <cstddef>
#include <optional>
#include <vector>

namespace Synthesis {

using Limits = std::vector<double>;

// A modifier's expression of frequency. Limits may be equal. Function i holds above limit i - 1 and
// up to limit i, including limit i itself. The last function holds above the last limit. A NaN
// limit is skipped.
bool frequencies_in_order(const Limits& limits);
std::size_t function_at_frequency(const Limits& limits, double frequency);

// A modifier's expression of angle. Limits and angle lie between -pi and pi, and limits may pass
// through pi once. Function 0 holds outside the limits, function i from limit i - 1 to below limit
// i. The last function holds only for an angle equal to the last limit. A single limit does not
// divide a circle, so function 0 then holds everywhere.
bool angles_in_order(const Limits& limits);
std::size_t function_at_angle(const Limits& limits, double angle);

// A component's expression. Limits must rise, which excludes NaN. Function i holds between limit i
// and limit i + 1. The two walks below go along the expression in rising order, and pass one limit
// at most per step. A second limit waits for the next step: hosts rely on that.
bool limits_rise(const Limits& limits);

// The walk over the bands of a spectrum.
class BandWalk {
 public:
  explicit BandWalk(const Limits& limits) : limits_(limits) {}

  // The function at the left edge of the band.
  std::size_t function() const { return function_; }
  // The limit after which the next function holds, when it lies below the band's right edge. It may
  // lie below the whole band.
  std::optional<double> limit_before(double right_edge) const;
  void pass_limit() { ++function_; }

 private:
  const Limits& limits_;
  std::size_t function_ = 0;
};

// The walk over the samples of a time signal.
class TimeWalk {
 public:
  explicit TimeWalk(const Limits& limits) : limits_(limits) {}

  // How many limits the walk has passed at a time that is not before the first limit. After n
  // limits function n - 1 holds. A sample exactly at a later limit belongs to the function before
  // it. A NaN first limit is never passed. After the last limit no function holds, and the walk
  // must end.
  std::size_t limits_passed(double time);

 private:
  const Limits& limits_;
  std::size_t passed_ = 0;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_LIMIT_RULES_H_
