// The modifier that draws a direction for each front from a cosine-power law.
#ifndef KELPBOX_SEA_ANGLE_SPREAD_H_
#define KELPBOX_SEA_ANGLE_SPREAD_H_

#include <string>

#include "sea/modifier.h"

namespace Synthesis {

// About the mean direction "angle", within "min_angle" and "max_angle": cos^s(d) for "function"
// CosS, cos^2s(d/2) for Cos2S, the law of Longuet-Higgins, Cartwright and Smith (1963). The
// exponent s is the expression, a function of frequency. One draw a front, in rising harmonics and
// then in order of the list; the class's seed is 1. No front is split.
//
// `set` narrows the two limits to what the function reaches, and writes them back to the host's
// parameters. It throws "Angle not between min and max", "Unknown function value in angle spread";
// evaluation throws what spreading.h tells, and "AngleSpreadModifier::..." for a draw that is not
// a number.
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
