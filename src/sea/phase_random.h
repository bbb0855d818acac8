// The modifier that gives each front a random phase.
#ifndef KELPBOX_SEA_PHASE_RANDOM_H_
#define KELPBOX_SEA_PHASE_RANDOM_H_

#include <string>

#include "sea/modifier.h"

namespace Synthesis {

// The phase is uniform between -pi and pi. Each front takes one draw, in rising harmonics and then
// in order of the list. Amplitudes stay, so each harmonic keeps its energy. The expression is
// checked and has no effect.
class PhaseRandomModifier : public Modifier {
 public:
  explicit PhaseRandomModifier(const std::string& text);

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_PHASE_RANDOM_H_
