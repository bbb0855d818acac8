#include "sea/time_exp.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <utility>
#include <vector>

#include "base/compose.h"
#include "base/data_set.h"
#include "base/streams.h"
#include "base/vector.h"
#include "maths/rounding.h"
#include "sea/steepness.h"
#include "sea/time_fronts.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;
using Base::Quantity;

// Compared as unsigned: a run time before 0 counts as longer than any repeat time.
bool exceeds(std::int32_t a, std::int32_t b) {
  return static_cast<std::uint32_t>(a) > static_cast<std::uint32_t>(b);
}

// Fills the samples, which are dt seconds apart and start at time 0. Those before the first limit
// stay as they are, and do not count in the result.
Steepness sample(const Piecewise& elevation, const std::string& name, double dt,
                 std::vector<double>& x) {
  Steepness steepness;
  const Limits& limits = elevation.limits();
  TimeWalk walk(limits);
  const Curves curves = elevation.curves(Category::time, Category::length);
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double t = static_cast<double>(i) * dt;
    if (t < limits.front()) continue;
    const std::size_t passed = walk.limits_passed(t);
    if (passed == limits.size()) throw Base::compose(name, "::no function for the time ", t, "s");
    if (passed == 0) throw name + "::a limit is not a number";
    x[i] = curves[passed - 1](t);
    steepness.add(i, x[i]);
  }
  return steepness;
}

}  // namespace

void TimeExp::on_query(Base::Params& out) {
  elevation_.declare(out);
  out.declare("rate", Base::default_units(Category::frequency));
}

void TimeExp::on_set(Base::Params& in, Base::Params& stored) {
  elevation_.bind_with_limits(in, stored);
  stored.merge(*in.find("rate"));
  in.add_comment(Base::Severity::warning,
                 Base::compose("Run time of time expression \"", name(), "\" is ",
                               elevation_.limits().back(), " seconds"));
  elevation_.check_limits_rise();
}

void TimeExp::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                          const RunContext& context) {
  const double rate = stored.read("rate", Category::frequency);
  if (rate == 0) throw std::string("data rate is zero");
  const double dt = 1.0 / rate;
  double steps = context.run.value() * rate;
  const std::int32_t repeat_samples = Maths::round_to_i32(steps);
  if (!elevation_.has_all_limits()) throw name() + "::evaluate::limits are not set";
  const double run_time = elevation_.limits().back();
  std::int32_t samples = Maths::round_to_i32(run_time / dt);
  const bool fits_i32 = run_time / dt < 2147483648.0;  // 2^31
  if (!fits_i32 || exceeds(samples, repeat_samples)) {
    samples = repeat_samples;
  } else {
    steps = run_time / dt;
  }
  Base::progress() << Base::compose(repeat_samples, " ", samples, " ", run_time) << std::endl;
  if (samples == 0) throw std::string("limit_steps is zero");
  check_sample_count(name(), steps);
  prove_signal_memory(name(), static_cast<std::size_t>(samples));
  // Not padded to the repeat time on purpose: hosts rely on the spectrum of a shorter signal being
  // placed on the harmonics as if the signal spanned the repeat time.
  Base::Vector signal(name(), Base::default_units(Category::length),
                      std::vector<double>(static_cast<std::size_t>(samples)));
  const Steepness inside = sample(elevation_, name(), dt, signal.data);
  report_steepness(name(), signal.data, dt, inside, exceeds(repeat_samples, samples));
  add_time_fronts(Base::DataSet(std::move(signal), Quantity(dt, Category::time)), fronts,
                  context.run);
}

}  // namespace Synthesis
