#include "maths/wavemaker_ratio.h"

#include <cmath>

namespace Maths {
namespace {

// The phase at a segment's edge against its middle, of a wave at the angle theta.
double edge_phase(double k, double w, double theta) {
  return std::fabs(std::sin(theta) * (k * w) * 0.5);
}

}  // namespace

double flap_ratio(double k, double depth, double e) {
  const double S = std::sinh(k * depth);
  const double C = std::cosh(k * depth);
  return (std::cosh(k * (depth - e)) + k * e * S - C) * (2 * e * S) /
         ((C * S + k * depth) * (k * e));
}

double piston_ratio(double k, double depth, double e) {
  const double S = std::sinh(k * depth);
  const double C = std::cosh(k * depth);
  return (S - std::sinh(k * (depth - e))) * (2 * S) / (C * S + k * depth);
}

double obliquity_factor(double k, double w, double theta) {
  const double v = edge_phase(k, w, theta);
  return v > 1e-6 ? std::cos(theta) * v / std::sin(v) : std::cos(theta);
}

double flap_ratio_angled(double k, double depth, double e, double w, double theta) {
  return flap_ratio(k, depth, e) / obliquity_factor(k, w, theta);
}

double piston_ratio_angled(double k, double depth, double e, double w, double theta) {
  const double S = std::sinh(k * depth);
  const double C = std::cosh(k * depth);
  const double v = edge_phase(k, w, theta);
  double f = 1 / std::cos(theta);
  if (v > 1e-6) f *= std::sin(v) / v;
  return (S - std::sinh(k * (depth - e))) * (2 * f * S) / (C * S + k * depth);
}

}  // namespace Maths
