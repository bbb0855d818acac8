// The modifiers that change amplitude, direction or phase by a formula of frequency.
#ifndef KELPBOX_SEA_CHANGE_H_
#define KELPBOX_SEA_CHANGE_H_

#include <string>

#include "sea/modifier.h"

namespace Synthesis {

// Multiplies each amplitude by the expression, a plain number. Has only the parameters of the
// expression.
class GainChangeModifier : public Modifier {
 public:
  explicit GainChangeModifier(const std::string& text);

 protected:
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;
};

// Adds the expression, an angle, to each direction, or replaces the direction by it when "set" is
// True. The result is wrapped to between -pi and pi.
class AngleChangeModifier : public Modifier {
 public:
  explicit AngleChangeModifier(const std::string& text);

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;
};

// Does the same with the phase, which is not wrapped.
class PhaseChangeModifier : public Modifier {
 public:
  explicit PhaseChangeModifier(const std::string& text);

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_CHANGE_H_
