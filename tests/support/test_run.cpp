#include "support/test_run.h"

#include <cmath>

namespace Testing {

double theory_ratio(double k, double depth, double edge, bool flap) {
  const int steps = 2000;
  double integral = 0.0;
  for (int i = 0; i <= steps; ++i) {
    const double z = -edge + edge * i / steps;
    const double weight = i == 0 || i == steps ? 1.0 : i % 2 == 1 ? 4.0 : 2.0;
    integral += weight * (flap ? z + edge : 1.0) * std::cosh(k * (z + depth));
  }
  integral *= edge / steps / 3.0;
  const double s = std::sinh(k * depth);
  return 2.0 * s / (s * std::cosh(k * depth) + k * depth) * k * integral;
}

}  // namespace Testing
