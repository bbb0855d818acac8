#include "maths/dispersion.h"

#include <cmath>
#include <sstream>
#include <string>

#include "base/constants.h"

namespace Maths {

double knum(double omega, double depth, double g) {
  const double a = omega * omega;
  const double kd0 = depth * a / g;
  const double k = (a / g) * std::pow(1 - std::exp(-std::pow(kd0, 1.25)), -0.4);
  const double T = std::tanh(k * depth);
  const double C = std::cosh(k * depth);
  const double delta = (a - g * T * k) / (g * T + g * k * depth / (C * C));
  const double k_new = k + delta;
  // Signed on purpose: hosts depend on a negative step of any size passing.
  if (!(k_new * 0.01 > delta)) {
    std::ostringstream text;
    text << "Knum calculation failed for omega=" << omega << " and depth = " << depth
         << " with return value " << k_new;
    throw text.str();
  }
  return k_new;
}

double wrap_angle(double theta) {
  // Turn by turn, an angle this large would take for ever.
  if (!(std::fabs(theta) <= 1e6)) theta = std::remainder(theta, Base::TwoPi);
  while (theta > Base::Pi) theta -= Base::TwoPi;
  while (theta < -Base::Pi) theta += Base::TwoPi;
  return theta;
}

std::uint64_t next_pow2(std::uint64_t n) {
  --n;
  for (unsigned shift = 1; shift < 64; shift *= 2) n |= n >> shift;
  return n + 1;
}

}  // namespace Maths
