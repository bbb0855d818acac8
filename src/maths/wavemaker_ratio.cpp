#include "maths/wavemaker_ratio.h"

#include <cmath>

namespace Maths {
namespace {

// Above this k * depth, exp(-2 k depth) is less than the rounding of 1, so the hyperbolic functions
// are replaced by their limits. Their product would overflow above about 355.
constexpr double deep = 25.0;

// The term of the bottom in deep water. It matters only for an edge close to the bottom or below
// it.
double bottom_part(double k, double depth, double e) {
  return std::exp(k * (e - 2 * depth)) - std::exp(-2 * k * depth);
}

// The phase between the middle and the side of a segment, for a wave at the angle theta.
double edge_phase(double k, double w, double theta) {
  return std::fabs(std::sin(theta) * (k * w) * 0.5);
}

// The ratio of a piston, times a factor.
double scaled_piston_ratio(double k, double depth, double e, double factor) {
  if (k * depth > deep) {
    return 2 * factor * (bottom_part(k, depth, e) - std::expm1(-k * e));
  }
  const double S = std::sinh(k * depth);
  const double C = std::cosh(k * depth);
  return (S - std::sinh(k * (depth - e))) * (2 * factor * S) / (C * S + k * depth);
}

}  // namespace

double flap_ratio(double k, double depth, double e) {
  if (k * depth > deep) {
    // The factor e / e makes the result NaN for a hinge at the water line, as in the full form.
    return (bottom_part(k, depth, e) + k * e + std::expm1(-k * e)) * (2 * e) / (k * e);
  }
  const double S = std::sinh(k * depth);
  const double C = std::cosh(k * depth);
  return (std::cosh(k * (depth - e)) + k * e * S - C) * (2 * e * S) /
         ((C * S + k * depth) * (k * e));
}

double piston_ratio(double k, double depth, double e) {
  return scaled_piston_ratio(k, depth, e, 1.0);
}

double obliquity_factor(double k, double w, double theta) {
  const double v = edge_phase(k, w, theta);
  return v > 1e-6 ? std::cos(theta) * v / std::sin(v) : std::cos(theta);
}

double flap_ratio_angled(double k, double depth, double e, double w, double theta) {
  return flap_ratio(k, depth, e) / obliquity_factor(k, w, theta);
}

double piston_ratio_angled(double k, double depth, double e, double w, double theta) {
  const double v = edge_phase(k, w, theta);
  double f = 1 / std::cos(theta);
  if (v > 1e-6) f *= std::sin(v) / v;
  return scaled_piston_ratio(k, depth, e, f);
}

}  // namespace Maths
