#include "sea/band_integral.h"

#include <cmath>

namespace Synthesis {

namespace {

// The two rules agree when they differ by at most this fraction of the density at the centre, or by
// at most `least_tolerance` if that is greater.
constexpr double relative_tolerance = 0.001;
constexpr double least_tolerance = 1e-7;
constexpr int most_parts = 256;

}  // namespace

double band_integral(const Expression::Curve& density, double centre, double width,
                     double& last_end) {
  double step = width * 0.5;
  double midpoint = density(centre);
  const double end = density(centre + step);
  double tolerance = midpoint * relative_tolerance;
  if (tolerance < least_tolerance) tolerance = least_tolerance;
  double trapezium = (end + last_end) * 0.5;
  for (int n = 2; std::abs(midpoint - trapezium) > tolerance && n <= most_parts; n *= 2) {
    step *= 0.5;
    trapezium = (trapezium + midpoint) * 0.5;
    midpoint = 0.0;
    for (int i = 1; i < n; i += 2) {
      midpoint = midpoint + density(centre + i * step) + density(centre - i * step);
    }
    midpoint /= n;
  }
  last_end = end;
  return (trapezium + midpoint) * (width * 0.5);
}

}  // namespace Synthesis
