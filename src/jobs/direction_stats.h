// Mean direction and spread of waves, from the direction and the variance of each.
//
// Circular moments: Kuik, van Vledder and Holthuijsen (1988), "A method for the routine analysis of
// pitch-and-roll buoy wave data": r1 = |sum of v exp(i theta)| / sum of v, and the spread is
// sqrt(2 (1 - r1)).
#ifndef KELPBOX_JOBS_DIRECTION_STATS_H_
#define KELPBOX_JOBS_DIRECTION_STATS_H_

#include <algorithm>
#include <cmath>
#include <complex>

namespace Jobs {

struct DirectionStats {
  double variance = 0.0;        // sum of the variances
  double squares = 0.0;         // sum of their squares
  std::complex<double> moment;  // sum of v exp(i theta)

  // Directions in radians, variances in m2. What is not finite is ignored.
  void add(double direction, double v) {
    if (!std::isfinite(direction) || !std::isfinite(v)) return;
    variance += v;
    squares += v * v;
    moment += v * std::complex<double>(std::cos(direction), std::sin(direction));
  }
  // A part of the sea of known moment, |moment| <= 1.
  void add(std::complex<double> first_moment, double v) {
    if (!std::isfinite(std::abs(first_moment)) || !std::isfinite(v)) return;
    variance += v;
    squares += v * v;
    moment += v * first_moment;
  }

  // Radians; 0 for still water.
  double mean() const { return moment == 0.0 ? 0.0 : std::arg(moment); }
  double r1() const { return variance > 0.0 ? std::min(std::abs(moment) / variance, 1.0) : 1.0; }
  double spread() const { return std::sqrt(2.0 * (1.0 - r1())); }
  // How many waves of equal variance scatter as much as these.
  double effective_waves() const { return squares > 0.0 ? variance * variance / squares : 0.0; }
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_DIRECTION_STATS_H_
