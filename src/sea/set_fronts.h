// A list of fronts from the host.
#ifndef KELPBOX_SEA_SET_FRONTS_H_
#define KELPBOX_SEA_SET_FRONTS_H_

#include <string>

#include "maths/front.h"
#include "sea/component.h"

namespace Synthesis {

// Takes no parameters. Each front goes to the harmonic nearest to its frequency. A front of zero or
// negative frequency is skipped. One outside the run's harmonics makes evaluation throw "Wave
// number out of range".
class SetFronts : public Component {
 public:
  explicit SetFronts(const DispFronts& fronts);

  // The repeat time in s that the frequencies themselves imply, NaN with fewer than two distinct
  // frequencies. Sorts the fronts by frequency.
  double fitted_repeat();
  // The root mean square distance in Hz of the frequencies from the grid of that repeat time.
  double frequency_error(double repeat) const;

  void write_frequencies(std::ostream& out, const std::string& prefix) const override;

 protected:
  void on_query(Base::Params& out) override;
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;

 private:
  DispFronts fronts_;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_SET_FRONTS_H_
