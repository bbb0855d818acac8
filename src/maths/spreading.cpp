#include "maths/spreading.h"

#include <cmath>
#include <string>

#include "base/compose.h"
#include "base/constants.h"

namespace Maths {
namespace {

// The middle one of the three whole powers that are interpolated, for a power of 2 or more.
int nearest_power(double power) {
  constexpr double highest_power = 1e6;
  if (!(power <= highest_power)) {
    throw Base::compose("Spreading power::", power, " is out of range");
  }
  return static_cast<int>(std::floor(power + 0.5));
}

// The parabola through the values at n - 2, n and n + 2.
double interpolate(double power, int n, double below, double middle, double above) {
  const double u = (power - n) * 0.25;
  return middle + u * (above - below) + 2 * u * u * (above + below - 2 * middle);
}

// Up to this power, powers and integrals are computed by recurrence from 0 or 1. Above it, that
// would take milliseconds for each draw, so the recurrence starts from a closed form.
constexpr int most_built_up = 1000;

// c^m, for a large m.
double large_power(double c, int m) {
  const double even = std::pow(c * c, m / 2);
  return m % 2 == 0 ? even : even * c;
}

// The integral of cos^m from 0 to an angle of up to a quarter turn with sine S and cosine c, as the
// series S c^(m + 1) (1 + (m + 2) / 3 S^2 (1 + (m + 4) / 5 S^2 (1 + ...))) of the incomplete beta
// function (Abramowitz and Stegun 1972, section 26.5).
double quarter_integral(int m, double S, double c) {
  // If the square of the sine is above this, c^m is below exp(-40), and the rest of the integral is
  // less than its rounding error.
  const double most = 80.0 / m;
  // Not S * S: the power of c multiplies the rounding of c by m, and this form cancels it.
  double square = 1 - c * c;
  if (square > most) {
    c = std::sqrt(1 - most);
    square = 1 - c * c;
    S = std::copysign(std::sqrt(square), S);
  }
  double term = 1.0;
  double sum = 1.0;
  for (int j = 2; term > 1e-17 * sum; j += 2) {
    term *= square * (m + j) / (j + 1);
    sum += term;
  }
  return S * large_power(c, m + 1) * sum;
}

// The integral of cos^m from 0 to theta, for a large m.
double large_integral(int m, double theta, double S, double c) {
  // The half turns of an odd power cancel in pairs, those of an even power add up.
  const double half_turns = m % 2 == 1 ? 0.0 : std::round(theta / Base::Pi);
  const bool reversed = std::fmod(half_turns, 2.0) != 0.0;
  const double part = quarter_integral(m, reversed ? -S : S, std::fabs(c));
  return half_turns == 0.0 ? part : part + 2 * half_turns * quarter_integral(m, 1.0, 0.0);
}

// cos_power of an angle with the cosine c.
double power_of(double power, double c) {
  if (power < 2) return (2 - power) * c + (power - 1) * c * c;

  const int n = nearest_power(power);
  double below = n % 2 == 0 ? 1.0 : c;
  if (n > most_built_up) {
    below = large_power(c, n - 2);
  } else {
    for (int m = n % 2; m < n - 2; m += 2) below *= c * c;
  }
  const double middle = below * (c * c);
  const double above = middle * (c * c);
  return interpolate(power, n, below, middle, above);
}

// cos_power_integral, with the sine S and the cosine c of theta.
double integral_of(double power, double theta, double S, double c) {
  if (power < 2) return (2 - power) * S + (power - 1) * 0.5 * (c * S + theta);

  const int n = nearest_power(power);
  const bool even = n % 2 == 0;
  // I(m) = ((m - 1) I(m - 2) + c^(m - 1) S) / m, in steps of two from I(0), I(1) or I(n - 2): the
  // reduction formula of Abramowitz and Stegun (1972), section 4.3.
  int start = even ? 0 : 1;
  double integral = even ? theta : S;
  double c_power = even ? c : c * c;  // c^(m - 1)
  if (n > most_built_up) {
    start = n - 2;
    integral = large_integral(start, theta, S, c);
    c_power = large_power(c, start + 1);
  }
  double below = integral;
  double middle = integral;
  for (int m = start + 2; m <= n + 2; m += 2) {
    below = middle;
    middle = integral;
    integral = ((m - 1) * integral + c_power * S) / m;
    c_power *= c * c;
  }
  return interpolate(power, n, below, middle, integral);
}

}  // namespace

double cos_power(double power, double theta) { return power_of(power, std::cos(theta)); }

double cos_power_integral(double power, double theta) {
  return integral_of(power, theta, std::sin(theta), std::cos(theta));
}

double SpreadAngles::draw(double fraction, double max_angle, double min_angle, double power) {
  if (min_angle <= -Base::Pi) throw std::string("Minimum angle too small");
  if (max_angle >= Base::Pi) throw std::string("Maximum angle too big");
  if (min_angle > max_angle) throw std::string("Maximum angle less than minimum angle");
  if (!(max_angle == max_angle_ && min_angle == min_angle_ && power == power_)) {
    max_angle_ = std::numeric_limits<double>::quiet_NaN();  // until both integrals are there
    integral_to_min_ = cos_power_integral(power, min_angle);
    integral_to_max_ = cos_power_integral(power, max_angle);
    min_angle_ = min_angle;
    power_ = power;
    max_angle_ = max_angle;
  }
  const double target = (1 - fraction) * integral_to_min_ + fraction * integral_to_max_;
  double theta = target;
  for (int pass = 0; pass < 25; ++pass) {
    const double c = std::cos(theta);
    const double integral = integral_of(power, theta, std::sin(theta), c);
    const double step = (target - integral) / power_of(power, c);
    theta = theta + step;
    if (std::fabs(step) <= 1e-6) break;
  }
  return theta;
}

}  // namespace Maths
