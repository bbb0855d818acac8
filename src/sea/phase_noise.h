// The modifier that takes amplitude and phase of each harmonic from a white noise signal.
#ifndef KELPBOX_SEA_PHASE_NOISE_H_
#define KELPBOX_SEA_PHASE_NOISE_H_

#include <string>

#include "sea/modifier.h"

namespace Synthesis {

// The signal spans the repeat time at "rate" samples per second. The amplitudes of its harmonics
// have a mean square of 1. The energy of the sea varies from harmonic to harmonic as in nature
// (Tucker, Challenor and Carter 1984, "Numerical simulation of a random sea", Applied Ocean
// Research 6). All fronts of a harmonic get the same factor and phase. Harmonics above half the
// rate are not changed. The expression is checked and has no effect.
//
// Evaluation throws "rate::<value> Hz gives no usable number of samples in a repeat time of <value>
// s" and "rate::<value> Hz gives <samples> samples of noise, which need ... GiB of memory, ... GiB
// are available".
class PhaseWNoiseModifier : public Modifier {
 public:
  explicit PhaseWNoiseModifier(const std::string& text);

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_PHASE_NOISE_H_
