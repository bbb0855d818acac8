#include "maths/spreading.h"

#include <cmath>
#include <sstream>
#include <string>

#include "base/constants.h"

namespace Maths {
namespace {

// The whole power in the middle of the three that are interpolated, for a power of 2 or more.
int nearest_power(double power) {
  if (!(power <= 1e6)) {
    std::ostringstream text;
    text << "Spreading power::" << power << " is out of range";
    throw text.str();
  }
  return static_cast<int>(std::floor(power + 0.5));
}

// The parabola through the values at n - 2, n and n + 2.
double interpolate(double power, int n, double below, double middle, double above) {
  const double u = (power - n) * 0.25;
  return middle + u * (above - below) + 2 * u * u * (above + below - 2 * middle);
}

}  // namespace

double cos_power(double power, double theta) {
  const double c = std::cos(theta);
  if (power < 2) return (2 - power) * c + (power - 1) * c * c;

  const int n = nearest_power(power);
  double below = n % 2 == 0 ? 1.0 : c;
  for (int m = n % 2; m < n - 2; m += 2) below *= c * c;
  const double middle = below * (c * c);
  const double above = middle * (c * c);
  return interpolate(power, n, below, middle, above);
}

double cos_power_integral(double power, double theta) {
  const double S = std::sin(theta);
  const double c = std::cos(theta);
  if (power < 2) return (2 - power) * S + (power - 1) * 0.5 * (c * S + theta);

  const int n = nearest_power(power);
  const bool even = n % 2 == 0;
  // I(m) = ((m - 1) I(m - 2) + c^(m - 1) S) / m, upward by twos from I(0) or I(1).
  double integral = even ? theta : S;
  double c_power = even ? c : c * c;  // c^(m - 1)
  double below = integral;
  double middle = integral;
  for (int m = n % 2 + 2; m <= n + 2; m += 2) {
    below = middle;
    middle = integral;
    integral = ((m - 1) * integral + c_power * S) / m;
    c_power *= c * c;
  }
  return interpolate(power, n, below, middle, integral);
}

double spread_angle(double fraction, double max_angle, double min_angle, double power) {
  if (min_angle <= -Base::Pi) throw std::string("Minimum angle too small");
  if (max_angle >= Base::Pi) throw std::string("Maximum angle too big");
  if (min_angle > max_angle) throw std::string("Maximum angle less than minimum angle");
  const double target = (1 - fraction) * cos_power_integral(power, min_angle) +
                        fraction * cos_power_integral(power, max_angle);
  double theta = target;
  for (int pass = 0; pass < 25; ++pass) {
    const double step = (target - cos_power_integral(power, theta)) / cos_power(power, theta);
    theta = theta + step;
    if (std::fabs(step) <= 1e-6) break;
  }
  return theta;
}

}  // namespace Maths
