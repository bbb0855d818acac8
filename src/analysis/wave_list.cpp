#include "analysis/wave_list.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstddef>
#include <string>

namespace Analysis {
namespace {

void check_count(const WaveList& list) {
  if (list.waves.size() < 6) throw std::string("Insufficient zero crossings in time series");
}

}  // namespace

WaveList::WaveList(Base::DataSet& set, bool wrap) { find_waves(*this, set, wrap); }

void WaveList::sort_by_height() {
  std::sort(waves.begin(), waves.end(), [](const Wave& a, const Wave& b) {
    return std::is_lt(std::strong_order(a.height(), b.height()));
  });
}

void WaveList::sort_by_period() {
  std::sort(waves.begin(), waves.end(), [](const Wave& a, const Wave& b) {
    return std::is_lt(std::strong_order(a.period(), b.period()));
  });
}

void find_waves(WaveList& list, Base::DataSet& set, bool wrap) {
  double interval = 0.0;
  const std::vector<double>& samples = set.time(interval).data;
  const std::size_t count = samples.size();

  bool crossed = false;
  Wave wave;  // in hand; its start is the last crossing
  Wave head;  // what precedes the first crossing, moved behind the end of the record
  for (std::size_t i = 1; i < count; ++i) {
    const double before = samples[i - 1];
    const double sample = samples[i];
    if (before <= 0.0 && sample > 0.0) {
      wave.end = (static_cast<double>(i) - sample / (sample - before)) * interval;
      if (crossed) {
        list.waves.push_back(wave);
      } else {
        head = wave;
        head.end = static_cast<double>(count) * interval + wave.end;
        crossed = true;
      }
      wave = Wave{0.0, 0.0, 0.0, wave.end};
    }
    if (sample > wave.crest) wave.crest = sample;
    if (sample < wave.trough) wave.trough = sample;
  }
  if (wrap && crossed) {
    list.waves.push_back({std::max(wave.crest, head.crest), std::min(wave.trough, head.trough),
                          head.end, wave.start});
  }
  list.sort_by_height();
}

bool is_regular(WaveList& list) {
  list.sort_by_period();
  check_count(list);
  const std::vector<Wave>& waves = list.waves;
  const std::size_t count = waves.size();
  return 0.01 * waves[count / 2].period() > std::abs(waves[count - 2].period() - waves[1].period());
}

double regular_period(WaveList& list) {
  check_count(list);
  list.sort_by_period();
  return list.waves[list.waves.size() / 2].period();
}

double regular_height(WaveList& list) {
  check_count(list);
  list.sort_by_height();
  return list.waves[list.waves.size() / 2].height();
}

Significant significant_wave(WaveList& list) {
  const std::size_t index = list.waves.size() * 2 / 3;
  if (index < 4) throw std::string("Insufficient points for irregular wave analysis");
  list.sort_by_height();
  const Wave& wave = list.waves[index];
  return {wave.height(), wave.period()};
}

void report_regular(WaveList& list, Base::Params& out) {
  const double period = regular_period(list);
  const double height = regular_height(list);
  out.insert("reg_t", period, "s");
  out.insert("reg_h", height, "m");
}

void report_irregular(WaveList& list, Base::Params& out) {
  const Significant significant = significant_wave(list);
  out.insert("max_amp", list.waves.back().height(), "m");
  out.insert("sig_t", significant.period, "s");
  out.insert("sig_h", significant.height, "m");
}

}  // namespace Analysis
