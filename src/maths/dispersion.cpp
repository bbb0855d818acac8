#include "maths/dispersion.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/compose.h"

namespace Maths {

double knum(double omega, double depth, double g) {
  const double a = omega * omega;
  const double kd0 = depth * a / g;
  const double k = (a / g) * std::pow(1 - std::exp(-std::pow(kd0, 1.25)), -0.4);
  const double T = std::tanh(k * depth);
  const double C = std::cosh(k * depth);
  const double delta = (a - g * T * k) / (g * T + g * k * depth / (C * C));
  const double k_new = k + delta;
  // Signed on purpose: hosts rely on a negative step of any size passing.
  if (!(k_new * 0.01 > delta)) {
    throw Base::compose("Knum calculation failed for omega=", omega, " and depth = ", depth,
                        " with return value ", k_new);
  }
  return k_new;
}

void knums(const double* omegas, double depth, double g, std::size_t count, double* out) {
  std::transform(omegas, omegas + count, out, [=](double omega) { return knum(omega, depth, g); });
}

}  // namespace Maths
