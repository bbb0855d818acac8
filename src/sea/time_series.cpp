#include "sea/time_series.h"

#include <cmath>
#include <cstdint>
#include <utility>

#include "base/data_set.h"
#include "base/enumerations.h"
#include "maths/rounding.h"
#include "sea/time_fronts.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;

// A change of "ramp_time" by this fraction or more is a "Poor match".
constexpr double noted_change = 0.01;

// Brings the signal to N samples. A signal that is too long is cut at its end to N + overlap
// samples, and the excess is added to its start to close the loop. One that is too short is padded
// with zeros.
void fit(Base::DataSet& signal, std::uint32_t N, std::int64_t overlap, const std::string& name) {
  const auto n = static_cast<std::int64_t>(signal.length());
  const std::int64_t longest = N + overlap;
  if (n > longest) {
    if (overlap < 0) throw name + "::ramp_time is not a positive time";
    signal.erase(0, static_cast<std::uint64_t>(n - longest));
    signal.fold(static_cast<std::uint64_t>(overlap));
  } else if (n < N) {
    signal.pad(0, static_cast<std::uint64_t>(N - n), 0.0);
  } else {
    signal.fold(static_cast<std::uint64_t>(n - N));
  }
}

}  // namespace

void TimeSeries::on_query(Base::Params& out) {
  out.declare("scale_ratio", Base::default_units(Category::unit));
  out.declare("rate", Base::default_units(Category::frequency));
  out.declare("ramp_time", Base::default_units(Category::time));
  out.declare_enum("ramp_type", Base::EnumType::Ramp);
}

void TimeSeries::on_set(Base::Params& in, Base::Params& stored) {
  for (const char* name : {"scale_ratio", "rate", "ramp_type"}) stored.merge(*in.find(name));
  const double scale_ratio = stored.read("scale_ratio", Category::unit);
  const double rate = stored.read("rate", Category::frequency);
  double ramp_time = in.read("ramp_time", Category::time);
  const double duration = static_cast<double>(data_->data.size()) / (std::sqrt(scale_ratio) * rate);
  if (ramp_time > duration * 0.5) ramp_time = duration * 0.5;
  stored.merge(*in.set_checked("ramp_time", ramp_time, Category::time, noted_change));
}

void TimeSeries::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                             const RunContext& context) {
  const Maths::RunData& run = context.run;
  const double repeat = run.value();
  const double scale_ratio = stored.read("scale_ratio", Category::unit);
  const double rate = stored.read("rate", Category::frequency);
  const double ramp_time = stored.read("ramp_time", Category::time);
  // Only checked: every ramp type is the plain overlap.
  stored.read_enum("ramp_type", Base::EnumType::Ramp);

  const double scaled_rate = rate * std::sqrt(scale_ratio);
  const std::uint32_t N = Maths::round_to_u32(repeat * scaled_rate);
  const std::int64_t overlap = Maths::round_to_i64(ramp_time * scaled_rate);
  // The entry "rate" is a time per sample here, on purpose. Nothing reads it.
  Base::Params params;
  params.insert("rate", (static_cast<double>(data_->data.size()) / scaled_rate) / N,
                Base::default_units(Category::frequency));
  Base::DataSet signal(*data_, params);
  if (scale_ratio == 0) throw std::string("Scale ratio is zero");
  check_sample_count(name(), repeat * scaled_rate);
  prove_signal_memory(name(), N);
  signal.scale(1.0 / scale_ratio);
  fit(signal, N, overlap, name());
  if (signal.length() != N) throw std::string("Error in sorting data out");
  add_time_fronts(std::move(signal), fronts, run);
}

}  // namespace Synthesis
