#include "jobs/spread_law.h"

#include <algorithm>
#include <cmath>

namespace Jobs {

std::complex<double> asked_moment(const SpreadLaw& law, double s) {
  if (law.limits_asked) return first_moment(law, s);
  if (!(s >= 0.0) || !std::isfinite(s)) return {NAN, NAN};
  // Of cos^2s(d / 2): s / (s + 1). Of cos^s(d): the ratio of the integrals of cos^(s+1) and cos^s.
  const double r1 = law.half_angle
                        ? s / (s + 1.0)
                        : std::exp(2.0 * std::lgamma(0.5 * s + 1.0) - std::lgamma(0.5 * s + 1.5) -
                                   std::lgamma(0.5 * s + 0.5));
  return std::polar(r1, law.mean);
}

std::complex<double> first_moment(const SpreadLaw& law, double s) {
  if (!(s >= 0.0) || !std::isfinite(s)) return {NAN, NAN};
  const double power = law.half_angle ? 2.0 * s : s;
  const double scale = law.half_angle ? 0.5 : 1.0;
  // cos^p(x) falls as exp(-p x^2 / 2), so nothing is left beyond this many radians.
  const double reach = 10.0 / (scale * std::sqrt(std::max(power, 1e-6)));
  const double from = -std::min(law.below, reach);
  const double to = std::min(law.above, reach);
  constexpr int pieces = 64;
  const double step = (to - from) / pieces;
  double sum = 0.0;
  std::complex<double> weighted;
  for (int i = 0; i <= pieces; ++i) {
    const double d = from + i * step;
    const double simpson = i == 0 || i == pieces ? 1.0 : (i % 2 == 1 ? 4.0 : 2.0);
    const double weight = simpson * std::pow(std::max(std::cos(scale * d), 0.0), power);
    sum += weight;
    weighted += weight * std::complex<double>(std::cos(d), std::sin(d));
  }
  if (!(sum > 0.0)) return {NAN, NAN};
  return weighted / sum * std::complex<double>(std::cos(law.mean), std::sin(law.mean));
}

}  // namespace Jobs
