// The relative difference of two numbers, for near-equality.
#ifndef KELPBOX_BASE_NEAR_H_
#define KELPBOX_BASE_NEAR_H_

#include <cmath>
#include <limits>

namespace Base {

// |value / reference - 1|. Near a reference of 0 there is no ratio: the result is 0 for a value
// near 0 and infinite for any other. With NaN in either the result is NaN, which no comparison with
// a tolerance accepts.
inline double relative_difference(double value, double reference) {
  constexpr double zero_reference = 1e-20;
  constexpr double zero_value = 1e-19;
  if (!(std::fabs(reference) < zero_reference)) return std::fabs(value / reference - 1.0);
  const double size = std::fabs(value);
  return size < zero_value ? 0.0 : size * std::numeric_limits<double>::infinity();
}

}  // namespace Base

#endif  // KELPBOX_BASE_NEAR_H_
