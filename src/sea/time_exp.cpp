#include "sea/time_exp.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <utility>

#include "base/compose.h"
#include "base/data_set.h"
#include "base/streams.h"
#include "base/vector.h"
#include "maths/rounding.h"
#include "sea/time_fronts.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;
using Base::Quantity;

// Compared without their signs: a run time before 0 counts as longer than any repeat time.
bool exceeds(std::int32_t a, std::int32_t b) {
  return static_cast<std::uint32_t>(a) > static_cast<std::uint32_t>(b);
}

// The step and the change of slope where the signal starts again, or where it meets the silence
// that fills the repeat time. A single sample has no slope.
struct Join {
  double step = 0.0;
  double slope = 0.0;
};

Join join_of(const std::vector<double>& x, bool stops_early) {
  const double first = x.front();
  const double last = x.back();
  const double second = x.size() < 2 ? first : x[1];
  const double last_but_one = x.size() < 2 ? last : x[x.size() - 2];
  if (stops_early) {
    return {std::max(std::abs(first), std::abs(last)),
            std::max(std::abs(second - first), std::abs(last_but_one - last))};
  }
  return {std::abs(first - last),
          std::max(std::abs(second - 2 * first + last), std::abs(first - 2 * last + last_but_one))};
}

void report_join(const Join& join, double max_step, double max_slope, double dt) {
  const auto step = [&] {
    Base::progress() << Base::compose("Maximum end difference is ", join.step / dt, "m/s")
                     << std::endl;
  };
  const auto slope = [&] {
    Base::progress() << Base::compose("Maximum end rate is ", join.slope / (dt * dt), "m/s2")
                     << std::endl;
  };
  if (join.step > 2 * max_step) {
    step();
  } else if (join.slope > 2 * max_slope) {
    slope();
  } else if (join.step > max_step) {
    step();
  } else if (join.slope > max_slope) {
    slope();
  }
}

}  // namespace

void TimeExp::on_query(Base::Params& out) {
  out.declare("rate", Base::default_units(Category::frequency));
}

void TimeExp::on_set(Base::Params& in, Base::Params& stored) {
  stored.merge(*in.find("rate"));
  in.add_comment(Base::Severity::warning, Base::compose("Run time of time expression \"", name_,
                                                        "\" is ", limits_.back(), " seconds"));
}

TimeExp::Steepness TimeExp::sample(std::vector<double>& x, double dt) const {
  Steepness steepest;
  std::size_t segment = 0;
  double bound = limits_[0];
  double prev = 0.0;
  double prev_d = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double t = static_cast<double>(i) * dt;
    if (t < limits_[0]) continue;
    if (t > bound || t == limits_[0]) {
      ++segment;
      if (segment == limits_.size()) {
        throw Base::compose(name_, "::no function for the time ", t, "s");
      }
      bound = limits_[segment];
    }
    if (segment == 0) throw name_ + "::a limit is not a number";
    x[i] = functions_[2 * segment - 1].evaluate(Quantity(t, Category::time)).get(Category::length);
    if (i > 0) {
      const double d = x[i] - prev;
      steepest.first = std::max(steepest.first, std::abs(d));
      if (i > 1) steepest.second = std::max(steepest.second, std::abs(d - prev_d));
      prev_d = d;
    }
    prev = x[i];
  }
  return steepest;
}

void TimeExp::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                          const RunContext& context) {
  const Maths::RunData& run = context.run;
  const double rate = stored.read("rate", Category::frequency);
  if (rate == 0) throw std::string("data rate is zero");
  const double dt = 1.0 / rate;
  double steps = run.value() * rate;
  const std::int32_t repeat_samples = Maths::round_to_i32(steps);
  // A set that failed half way leaves the component ready with some of its limits.
  if (2 * limits_.size() != functions_.size() + 1) throw name_ + "::evaluate::limits are not set";
  const double run_time = limits_.back();
  std::int32_t samples = Maths::round_to_i32(run_time / dt);
  if (!(run_time / dt < 2147483648.0) || exceeds(samples, repeat_samples)) {
    samples = repeat_samples;
  } else {
    steps = run_time / dt;
  }
  Base::progress() << Base::compose(repeat_samples, " ", samples, " ", run_time) << std::endl;
  if (samples == 0) throw std::string("limit_steps is zero");
  check_sample_count(name_, steps);
  prove_signal_memory(name_, static_cast<std::size_t>(samples));
  // Not filled up to the repeat time on purpose: the spectrum of a shorter signal lies on the
  // harmonics as though the signal spanned the repeat.
  Base::Vector signal(name_, Base::default_units(Category::length),
                      std::vector<double>(static_cast<std::size_t>(samples)));
  const Steepness steepest = sample(signal.data, dt);
  Base::progress() << Base::compose("Time series \"", name_, "\" has max rate of ",
                                    steepest.first / dt, " and acceleration of ",
                                    steepest.second / (dt * dt))
                   << std::endl;
  report_join(join_of(signal.data, exceeds(repeat_samples, samples)), steepest.first,
              steepest.second, dt);
  add_time_fronts(Base::DataSet(std::move(signal), Quantity(dt, Category::time)), fronts, run);
}

}  // namespace Synthesis
