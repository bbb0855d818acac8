#include "support/test_run.h"

#include <cmath>

#include "support/integral.h"

namespace Testing {

double theory_ratio(double k, double depth, double edge, bool flap) {
  const auto moved = [&](double z) { return (flap ? z + edge : 1.0) * std::cosh(k * (z + depth)); };
  const double s = std::sinh(k * depth);
  return 2.0 * s / (s * std::cosh(k * depth) + k * depth) * k * simpson(moved, -edge, 0.0, 2000);
}

}  // namespace Testing
