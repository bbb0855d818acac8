// Surface elevation written as formulas of time.
#ifndef KELPBOX_SEA_TIME_EXP_H_
#define KELPBOX_SEA_TIME_EXP_H_

#include <string>
#include <utility>

#include "sea/component.h"
#include "sea/piecewise.h"
#include "sea/piecewise_text.h"

namespace Synthesis {

// Takes "rate", the sampling rate of the formulas. The signal is 0 before the first limit, and
// stops at the last limit or at the repeat time.
//
// The text is as for parse_component_text. A `set` throws as Piecewise::check_limits_rise does.
// Evaluation throws "data rate is zero", "limit_steps is zero", what check_sample_count and
// prove_signal_memory throw, "<name>::no function for the time <t>s", and "<name>::evaluate::limits
// are not set" or "<name>::a limit is not a number" after a `set` that failed halfway. It writes
// the number of samples and what report_steepness writes to the standard output stream.
class TimeExp : public Component {
 public:
  TimeExp(std::string name, const std::string& text)
      : Component(std::move(name)), elevation_(parse_component_text(text)) {}

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;

 private:
  Piecewise elevation_;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_TIME_EXP_H_
