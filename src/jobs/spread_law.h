// The law from which an AngleSpread draws directions, and its first circular moment.
#ifndef KELPBOX_JOBS_SPREAD_LAW_H_
#define KELPBOX_JOBS_SPREAD_LAW_H_

#include <complex>
#include <functional>

namespace Jobs {

// cos^s(d) or cos^2s(d / 2) of the deviation d from the mean (sea/angle_spread.h). Angles in rad.
struct SpreadLaw {
  std::function<double(double)> power;  // s at a frequency in Hz
  bool half_angle = false;              // Cos2S
  double mean = 0.0;
  double below = 0.0;  // how far limits let it reach on either side of the mean, at least 0
  double above = 0.0;
  bool limits_asked = false;  // the job gives the limits, so they belong to what is asked for
};

// As asked for: without limits that are only those of the site.
std::complex<double> asked_moment(const SpreadLaw& law, double s);
// The mean of exp(i direction) for a value of s. NaN for one that is not finite or below 0.
std::complex<double> first_moment(const SpreadLaw& law, double s);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SPREAD_LAW_H_
