// Height, period and variance of one record, from its spectrum as it stands: no window, no
// smoothing.
#ifndef KELPBOX_ANALYSIS_SPECTRUM_STATS_H_
#define KELPBOX_ANALYSIS_SPECTRUM_STATS_H_

#include "base/data_set.h"
#include "base/params.h"
#include "base/vector.h"

namespace Analysis {

struct SpectrumStats {
  explicit SpectrumStats(Base::DataSet& set);

  // Adds "Hs", four standard deviations, in the units of the spectrum; "Ts" in s, the inverse of
  // the energy-weighted mean frequency m1/m0; and "Var", without units, the fourth root of the
  // variance in spite of its name: hosts depend on the second root. The mean takes no part. A
  // spectrum of zeros has an "Hs" and a "Var" of 0 and a "Ts" that is not a number.
  void report(Base::Params& out) const;

  double df = 0.0;  // frequency step, Hz
  Base::Cvector spectrum;
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_SPECTRUM_STATS_H_
