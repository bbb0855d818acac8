// The base of processes that separate waves. Forward waves travel along the direction of analysis
// and backward waves against it. Free waves obey the dispersion relation, and bound waves travel
// with the fundamental.
#ifndef KELPBOX_ANALYSIS_TWO_D_H_
#define KELPBOX_ANALYSIS_TWO_D_H_

#include "analysis/process.h"
#include "base/vector.h"

namespace Analysis {

class TwoD : public Process {
 public:
  using Process::Process;

 protected:
  // Complex amplitudes at the origin of the tank's coordinates, one for each element of the
  // records' spectra.
  Base::Cvector forward_free_;
  Base::Cvector backward_free_;
  Base::Cvector forward_bound_;
  Base::Cvector backward_bound_;
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_TWO_D_H_
