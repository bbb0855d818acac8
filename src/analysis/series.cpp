#include "analysis/series.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "base/streams.h"
#include "maths/rounding.h"

namespace Analysis {
namespace {

// The samples of the time window, in seconds.
std::span<const double> cut(const Series& series, double start_time, double stop_time) {
  const double rate = series.params.read("rate", Base::Category::frequency);
  const std::uint32_t first = Maths::round_to_u32(start_time * rate);
  const std::uint32_t last = Maths::round_to_u32(stop_time * rate);
  Base::progress_line("first ", first, " last ", last);
  if (last <= first) throw std::string("Out of range");
  if (series.samples.size() < last) throw std::string("out of range 2");
  Base::progress_line("size ", last - first);
  return std::span(series.samples).subspan(first, last - first);
}

}  // namespace

Set::Set(const Base::Params& params, std::vector<const Series*> given) : series(std::move(given)) {
  const double start_time = params.read("start_time", Base::Category::time);
  const double stop_time = params.read("stop_time", Base::Category::time);
  for (const Series* record : series) {
    data.emplace_back(cut(*record, start_time, stop_time), record->params);
  }
}

}  // namespace Analysis
