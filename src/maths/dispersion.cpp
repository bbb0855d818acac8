#include "maths/dispersion.h"

#include <cmath>
#include <limits>
#include <string>

#include "base/compose.h"

namespace Maths {

namespace {

// Signed on purpose: hosts rely on a negative step of any size passing. NaN fails.
bool accepted(double k, double step) { return k * 0.01 > step; }

// The same formula with one exponential in place of tanh and cosh, and with roots in place of a
// power. For shorter waves only: in long ones 1 - exp(-x) would magnify the rounding of the roots.
// NaN if this is not one of them, or if the step is not accepted.
double knum_short_wave(double omega, double depth, double g) {
  constexpr double least_kd0 = 0.0625;
  const double a = omega * omega;
  const double kd0 = depth * a / g;
  if (!(kd0 >= least_kd0)) return std::numeric_limits<double>::quiet_NaN();
  const double power = kd0 * std::sqrt(std::sqrt(kd0));  // kd0^1.25
  const double k = (a / g) * std::pow(1 - std::exp(-power), -0.4);
  const double decay = std::exp(-2 * (k * depth));
  const double T = (1 - decay) / (1 + decay);
  const double inverse_C2 = 4 * decay / ((1 + decay) * (1 + decay));
  const double delta = (a - g * T * k) / (g * T + g * k * depth * inverse_C2);
  const double k_new = k + delta;
  return accepted(k_new, delta) ? k_new : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace

double knum(double omega, double depth, double g) {
  const double quick = knum_short_wave(omega, depth, g);
  if (!std::isnan(quick)) return quick;
  const double a = omega * omega;
  const double kd0 = depth * a / g;
  const double k = (a / g) * std::pow(1 - std::exp(-std::pow(kd0, 1.25)), -0.4);
  const double T = std::tanh(k * depth);
  const double C = std::cosh(k * depth);
  const double delta = (a - g * T * k) / (g * T + g * k * depth / (C * C));
  const double k_new = k + delta;
  if (!accepted(k_new, delta)) {
    throw Base::compose("Knum calculation failed for omega=", omega, " and depth = ", depth,
                        " with return value ", k_new);
  }
  return k_new;
}

}  // namespace Maths
