// One sine wave.
#ifndef KELPBOX_SEA_SINGLE_H_
#define KELPBOX_SEA_SINGLE_H_

#include "sea/component.h"

namespace Synthesis {

// Takes "f", "a", "angle", "phase". The frequency moves to the nearest harmonic. Outside the run's
// harmonics the wave is discarded, with a message.
class Single : public Component {
 public:
  Single() : Component("Single") {}

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;

 private:
  double a_ = 0.0;
  double angle_ = 0.0;  // wrapped
  double phase_ = 0.0;  // not wrapped
  double f_ = 0.0;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_SINGLE_H_
