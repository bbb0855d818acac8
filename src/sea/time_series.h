// Measured or computed surface elevation, brought to the repeat time.
#ifndef KELPBOX_SEA_TIME_SERIES_H_
#define KELPBOX_SEA_TIME_SERIES_H_

#include "base/vector.h"
#include "sea/component.h"

namespace Synthesis {

// Takes "scale_ratio", "rate", "ramp_time", "ramp_type". The data are scaled to the tank by
// Froude's law: lengths are divided by the ratio, times by its square root (Hughes 1993, "Physical
// Models and Laboratory Techniques in Coastal Engineering").
//
// The vector is the host's. It is read at every set and evaluate, and must outlive the component.
// Evaluation throws "Scale ratio is zero", "Error in sorting data out", what check_sample_count and
// prove_signal_memory throw, and "<name>::ramp_time is not a positive time".
class TimeSeries : public Component {
 public:
  explicit TimeSeries(const Base::Vector& data) : Component(data.label), data_(&data) {}

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;

 private:
  const Base::Vector* data_;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_TIME_SERIES_H_
