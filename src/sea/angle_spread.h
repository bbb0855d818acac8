// The modifier that draws a direction for each front from a cosine-power law.
#ifndef KELPBOX_SEA_ANGLE_SPREAD_H_
#define KELPBOX_SEA_ANGLE_SPREAD_H_

#include <string>

#include "sea/modifier.h"

namespace Synthesis {

// The law is centred on "angle", cut at "min_angle" and "max_angle", and chosen by "function". With
// d the deviation from the mean and s the value of the expression at the frequency:
//   CosS   cos^s(d)
//   Cos2S  cos^2s(d/2), of Longuet-Higgins, Cartwright and Smith (1963)
// Each front takes one draw, in rising harmonics and then in order of the list. No front is split.
//
// `set` narrows the two limits to the reach of the law, and writes them back to the host's
// parameters. It throws "Angle not between min and max" and "Unknown function value in angle
// spread". Evaluation throws what Maths::SpreadAngles throws, and "AngleSpreadModifier::..." for a
// draw that is not finite.
class AngleSpreadModifier : public Modifier {
 public:
  explicit AngleSpreadModifier(const std::string& text);

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_ANGLE_SPREAD_H_
