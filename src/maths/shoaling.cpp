#include "maths/shoaling.h"

#include <cmath>

namespace Maths {

double group_factor(double depth, double k) {
  constexpr double deep = 70.0;  // from here on the first term is lost in rounding
  const double q = 2 * depth * k;
  return q >= deep ? 1 : q / std::sinh(q) + 1;
}

double shoaling_factor(double c0, double k0, double c1, double k1) {
  return std::sqrt((c0 * k1) / (c1 * k0));
}

}  // namespace Maths
