#include "sea/single.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/compose.h"
#include "maths/angle.h"

namespace Synthesis {

namespace Category = Base::Category;

namespace {

// A shift of up to a thousandth of the greater of the two frequencies is not reported. The margin
// allows for rounding: hosts rely on 0.4995 Hz passing as 0.5 Hz.
constexpr double silent_shift = 0.001 * (1.0 + 1e-9);

}  // namespace

void Single::on_query(Base::Params& out) {
  out.declare("f", Base::default_units(Category::frequency));
  out.declare("a", Base::default_units(Category::length));
  out.declare("angle", Base::default_units(Category::angle));
  out.declare("phase", Base::default_units(Category::angle));
}

void Single::on_set(Base::Params& in, Base::Params& stored) {
  for (const char* name : {"f", "a", "angle", "phase"}) stored.merge(*in.find(name));
  f_ = stored.read("f", Category::frequency);
  a_ = stored.read("a", Category::length);
  angle_ = Maths::wrap_angle(stored.read("angle", Category::angle));
  phase_ = stored.read("phase", Category::angle);
}

void Single::on_evaluate(const Base::Params&, Maths::FrontSet& fronts, const RunContext& context) {
  const Maths::RunData& run = context.run;
  Messages& messages = context.messages;
  if (!run.is_inrange(f_)) {
    messages.push_back(Base::compose("Discarding single frequency ", f_, " as it is out of range"));
    return;
  }
  const std::uint64_t slot = run.wave_num(f_);
  const double fitted = run.freq(slot);
  if (std::abs(fitted - f_) > silent_shift * std::max(fitted, f_)) {
    messages.push_back(
        Base::compose("Single frequency ", f_, "Hz altered to ", fitted, "Hz to fit repeat time"));
  }
  fronts.add_front(slot, {a_, angle_, phase_});
}

}  // namespace Synthesis
