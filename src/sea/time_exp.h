// Surface elevation written as formulas of time.
#ifndef KELPBOX_SEA_TIME_EXP_H_
#define KELPBOX_SEA_TIME_EXP_H_

#include <string>
#include <utility>
#include <vector>

#include "sea/component.h"

namespace Synthesis {

// Takes "rate", the sampling rate of the formulas. Evaluation throws "data rate is zero",
// "limit_steps is zero", what check_sample_count and prove_signal_memory throw, and after a set
// that failed half way a text headed "<name>::". How steep the signal is, and how well it joins at
// the repeat time, goes to the standard output stream.
class TimeExp : public Component {
 public:
  TimeExp(std::string name, const std::string& text) : Component(std::move(name), text) {}

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;

 private:
  // The largest first and second differences between samples.
  struct Steepness {
    double first = 0.0;
    double second = 0.0;
  };

  // Fills the samples, dt apart from time 0 on.
  Steepness sample(std::vector<double>& x, double dt) const;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_TIME_EXP_H_
