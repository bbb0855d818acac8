#include "analysis/multi_time.h"

#include <cstddef>
#include <new>
#include <string>
#include <utility>

#include "analysis/find_waves.h"

namespace Analysis {

MultiTime::MultiTime(const Maths::TankConfig& tank, Set& set)
    : Process(tank, set), waves_(set.data.size()) {}

void MultiTime::process(const Base::Params&) {
  if (waves_.size() != set_data_->size()) throw std::string("Mismatched sizes");
  std::vector<WaveList> lists = waves_;
  for (std::size_t i = 0; i < lists.size(); ++i) {
    const Record& record = (*set_data_)[i];
    append_waves(lists[i].waves, record.samples(), 1.0 / record.rate(), false);
    lists[i].sort_by_height();
  }
  earlier_ = std::exchange(waves_, std::move(lists));
}

void MultiTime::results(Base::Params& out) {
  std::vector<WaveList> earlier = std::exchange(earlier_, {});
  try {
    report(out);
  } catch (const std::bad_alloc&) {
    if (!earlier.empty()) waves_ = std::move(earlier);
    data_.clear();
    throw;
  }
}

void MultiTime::report(Base::Params& out) {
  std::size_t regular = 0;
  for (WaveList& list : waves_) {
    if (is_regular(list)) ++regular;
  }
  data_.clear();
  if (2 * regular < waves_.size()) {
    report_irregular(out);
  } else {
    report_regular(out);
  }
}

void MultiTime::report_irregular(Base::Params& out) {
  double height = 0.0;
  double period = 0.0;
  for (WaveList& list : waves_) {
    const Significant wave = significant_wave(list);
    height += wave.height;
    period += wave.period;
  }
  const auto probes = static_cast<double>(waves_.size());
  out.insert("sig_t", period / probes, "s");
  out.insert("sig_h", height / probes, "m");
}

void MultiTime::report_regular(Base::Params& out) {
  double period = 0.0;
  for (WaveList& list : waves_) {
    period += regular_period(list);
    data_.push_back(regular_height(list));
  }
  out.insert("reg_t", period / static_cast<double>(waves_.size()), "s");
}

const std::vector<double>& MultiTime::data(const Base::Params&) { return data_; }

}  // namespace Analysis
