// The base of processes that separate waves. Forward waves travel along the direction of analysis
// and backward waves against it. Free waves obey the dispersion relation, and bound waves travel
// with the fundamental.
#ifndef KELPBOX_ANALYSIS_TWO_D_H_
#define KELPBOX_ANALYSIS_TWO_D_H_

#include "analysis/bin_values.h"
#include "analysis/process.h"

namespace Analysis {

class TwoD : public Process {
 public:
  using Process::Process;

 protected:
  // Complex amplitudes at the origin of the tank's coordinates, one for each element of the
  // records' spectra.
  BinValues forward_free_;
  BinValues backward_free_;
  BinValues forward_bound_;
  BinValues backward_bound_;
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_TWO_D_H_
