// Wave height, period and variance of one record, from its spectrum without window or smoothing.
#ifndef KELPBOX_ANALYSIS_SPECTRUM_STATS_H_
#define KELPBOX_ANALYSIS_SPECTRUM_STATS_H_

#include "base/data_set.h"
#include "base/params.h"
#include "base/vector.h"

namespace Analysis {

struct SpectrumStats {
  explicit SpectrumStats(Base::DataSet& set);

  // Adds three results, which leave out the mean:
  //   "Hs"   four standard deviations, in the units of the spectrum
  //   "Ts"   the inverse of the mean frequency m1/m0, in seconds; NaN for a spectrum of zeros
  //   "Var"  the fourth root of the variance, without units: hosts rely on it despite its name
  void report(Base::Params& out) const;

  double df = 0.0;  // frequency step, Hz
  Base::Cvector spectrum;
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_SPECTRUM_STATS_H_
