#include "sea/set_fronts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "base/compose.h"
#include "base/near.h"
#include "maths/angle.h"
#include "maths/rounding.h"

namespace Synthesis {

namespace {

// Frequencies closer than this, in Hz, count as equal.
constexpr double least_step = 0.0001;
// A greater distance from the run's grid, in Hz, is reported.
constexpr double most_error = 0.1;

bool same_time(double a, double b) { return Base::relative_difference(a, b) < 1e-6; }

// NaN goes last, so that sorting has a strict order.
bool lower_freq(const Front& a, const Front& b) {
  if (std::isnan(a.freq)) return false;
  return std::isnan(b.freq) || a.freq < b.freq;
}

}  // namespace

SetFronts::SetFronts(const DispFronts& fronts) : Component("Set of fronts"), fronts_(fronts) {
  for (Front& front : fronts_) front.angle = Maths::wrap_angle(front.angle);
}

double SetFronts::fitted_repeat() {
  std::stable_sort(fronts_.begin(), fronts_.end(), lower_freq);
  double sum = 0.0;
  std::uint32_t count = 0;  // how many unit steps the sum contains
  for (std::size_t i = 1; i < fronts_.size(); ++i) {
    const double d = fronts_[i].freq - fronts_[i - 1].freq;
    if (d < least_step) continue;
    std::uint32_t k = 0;
    if (count != 0) {
      const double mean = sum / count;
      if (mean < d) {
        // The difference is a multiple of the step found so far.
        k = count * Maths::round_to_u32(d / mean);
      } else {
        // The difference is a finer step.
        k = (count - 1) + Maths::round_to_u32(mean / d);
      }
    }
    count = k + 1;
    sum += d;
  }
  return count / sum;
}

double SetFronts::frequency_error(double repeat) const {
  double sum = 0.0;
  for (const Front& front : fronts_) {
    const double grid = static_cast<double>(Maths::round_to_i64(front.freq * repeat)) / repeat;
    sum += (front.freq - grid) * (front.freq - grid);
  }
  return std::sqrt(sum / static_cast<double>(fronts_.size()));
}

void SetFronts::write_frequencies(std::ostream& out, const std::string& prefix) const {
  for (const Front& front : fronts_) out << prefix << front.freq << std::endl;
}

void SetFronts::on_query(Base::Params& out) {
  const double repeat = fitted_repeat();
  const double error = frequency_error(repeat);
  // 1 Hz counts as 100 %, and the value is rounded to a tenth.
  out.add_comment(Base::Severity::detail,
                  Base::compose("Repeat time = ", repeat, "s",
                                " with error = ", Maths::round_to_i32(error * 1000) * 0.1, "%"));
}

void SetFronts::on_set(Base::Params& in, Base::Params&) { on_query(in); }

void SetFronts::on_evaluate(const Base::Params&, Maths::FrontSet& fronts,
                            const RunContext& context) {
  const Maths::RunData& run = context.run;
  Messages& messages = context.messages;
  const double repeat = run.value();
  const double error = frequency_error(repeat);
  const double fitted = fitted_repeat();
  if (!same_time(repeat, fitted)) {
    const std::uint32_t multiple = Maths::round_to_u32(repeat / fitted);
    if (same_time(repeat, multiple * fitted)) {
      messages.push_back(Base::compose("Repeat time ", repeat, "s is ", multiple,
                                       " times the repeat time of the wave"));
    } else {
      messages.push_back(
          Base::compose("Repeat time ", repeat, " does not match synthetic wave ", fitted));
    }
  }
  // On purpose: hosts know this message by its spelling, with a hundredth of the error.
  if (error > most_error)
    messages.push_back(Base::compose("Frequency mismath of ", error / 100, "%"));
  for (const Front& front : fronts_) {
    if (front.freq > 0) {
      fronts.add_front(run.wave_num(front.freq), {front.amp, front.angle, front.phase});
    }
  }
}

}  // namespace Synthesis
