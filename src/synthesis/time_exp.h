// Surface elevation written as formulas of time.
#ifndef KELPBOX_SYNTHESIS_TIME_EXP_H_
#define KELPBOX_SYNTHESIS_TIME_EXP_H_

#include <string>

#include "synthesis/component.h"

namespace Synthesis {

// Takes "rate", the sampling rate of the formulas.
class TimeExp : public Component {
 public:
  TimeExp(std::string name, const std::string& text) : Component(std::move(name), text) {}

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts, const Maths::RunData& run,
                   Messages& messages) override;
};

}  // namespace Synthesis

#endif  // KELPBOX_SYNTHESIS_TIME_EXP_H_
