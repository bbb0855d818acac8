// The modifier that spreads each harmonic over a fan of fixed directions.
#ifndef KELPBOX_SEA_ANGLE_SWEEP_H_
#define KELPBOX_SEA_ANGLE_SWEEP_H_

#include <string>

#include "sea/modifier.h"

namespace Synthesis {

// The directions run from the tank's lowest angle to its highest in steps of about "delta_angle".
// The expression, a function of angle, weights them. The amplitudes of a fan, not its energies, add
// up to the amplitude of the harmonic's first front. The other fronts are discarded.
//
// Evaluation throws "Sweep has zero output", "AngleSweepModifier::..." for a step that gives no fan
// or too large a fan, and "Front set::more fronts need ... GiB of memory, ... GiB are available".
class AngleSweepModifier : public Modifier {
 public:
  explicit AngleSweepModifier(const std::string& text);

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_ANGLE_SWEEP_H_
