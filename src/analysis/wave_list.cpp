#include "analysis/wave_list.h"

#include <cmath>
#include <cstddef>
#include <string>

#include "analysis/find_waves.h"
#include "analysis/wave_order.h"

namespace Analysis {
namespace {

void require_enough(const WaveList& list) {
  constexpr std::size_t least_waves = 6;
  if (list.waves.size() < least_waves) {
    throw std::string("Insufficient zero crossings in time series");
  }
}

const Wave& middle_wave(const WaveList& list) { return list.waves[list.waves.size() / 2]; }

}  // namespace

WaveList::WaveList(Base::DataSet& set, bool wrap) { find_waves(*this, set, wrap); }

void WaveList::sort_by_height() { sort_waves(waves, &Wave::height); }

void WaveList::sort_by_period() { sort_waves(waves, &Wave::period); }

void find_waves(WaveList& list, Base::DataSet& set, bool wrap) {
  double interval = 0.0;
  const std::vector<double>& samples = set.time(interval).data;
  append_waves(list.waves, samples, interval, wrap);
  list.sort_by_height();
}

bool is_regular(WaveList& list) {
  constexpr double tolerance = 0.01;
  list.sort_by_period();
  require_enough(list);
  const std::vector<Wave>& waves = list.waves;
  const double spread = std::abs(waves[waves.size() - 2].period() - waves[1].period());
  return tolerance * middle_wave(list).period() > spread;
}

double regular_period(WaveList& list) {
  require_enough(list);
  list.sort_by_period();
  return middle_wave(list).period();
}

double regular_height(WaveList& list) {
  require_enough(list);
  list.sort_by_height();
  return middle_wave(list).height();
}

Significant significant_wave(WaveList& list) {
  constexpr std::size_t least_index = 4;
  const std::size_t index = list.waves.size() * 2 / 3;
  if (index < least_index) throw std::string("Insufficient points for irregular wave analysis");
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
