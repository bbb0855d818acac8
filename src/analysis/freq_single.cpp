#include "analysis/freq_single.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <complex>
#include <cstddef>
#include <ostream>
#include <string>

#include "base/constants.h"
#include "base/streams.h"
#include "base/units.h"
#include "maths/dispersion.h"
#include "maths/tank_run.h"

namespace Analysis {
namespace {

namespace Category = Base::Category;

void mark(const char* text) { Base::progress() << text << std::endl; }

}  // namespace

FreqSingle::FreqSingle(const Maths::TankConfig& tank, Set& set) : TwoD(tank, set) {
  mark("FreqSingle");
}

void FreqSingle::process(const Base::Params& settings) {
  mark("DA");
  settings.read("freq", Category::frequency);
  const double angle = settings.read("angle", Category::angle);
  prepare();
  mark("DB");

  double df = 0.0;
  const Base::Cvector& first = set_data_->front().freq(df);
  std::uint32_t bin = peak_bin(first, 1);
  if (!Base::compatible(first.units, Base::default_units(Category::length).row)) {
    throw std::string("Units not of distance");
  }
  mark("DC");
  for (std::size_t i = 1; i < set_data_->size(); ++i) {
    bin = std::min(bin, peak_bin((*set_data_)[i].freq(), 1));
  }
  mark("DD");

  double mean_x = 0.0;
  std::vector<ProbeRecord> records = locate(angle, mean_x);
  take_values(records, bin);
  mark("DE");
  std::stable_sort(records.begin(), records.end(), [](const ProbeRecord& a, const ProbeRecord& b) {
    return std::is_lt(std::strong_order(a.position, b.position));
  });
  mark("DF");

  const double depth = Maths::TankRun(*tank_, Maths::RunData()).depth_at(mean_x);
  const double omega = 2.0 * Base::Pi * df * bin;
  const double k = Maths::knum(omega, depth, tank_->g);
  const std::uint32_t independent = independent_probes(records, k);
  mark("DG");
  if (independent <= 2) throw std::string("Too few independant probes to process");

  store_fundamental(records, k, bin);
  mark("DH");
  if (independent >= 4) {
    for (std::uint32_t h = 2; h <= 4; ++h) {
      take_values(records, h * bin);
      store_harmonic(records, h * k, Maths::knum(omega * h, depth, tank_->g), h * bin);
    }
  }
  mark("DI");
  bin_ = bin;
}

void FreqSingle::prepare() {
  std::vector<Base::DataSet>& sets = *set_data_;
  if (sets.size() < 2) {
    throw std::string("At least two data sets must be provided for frequency analysis");
  }
  const Base::Cvector& first = sets.front().freq();
  for (Base::DataSet& set : sets) {
    if (set.freq().length != first.length) throw std::string("Inconsistent sizes of data sets");
  }
  const auto zeros = [&first](const char* label) {
    Base::Cvector vector;
    vector.label = label;
    vector.units = first.units;
    vector.length = first.length;
    vector.data.resize(vector.storage_size(vector.length));
    return vector;
  };
  forward_free_ = zeros("Forward free");
  backward_free_ = zeros("Backward free");
  forward_bound_ = zeros("Forward bound");
  backward_bound_ = zeros("Backward bound");
}

std::vector<ProbeRecord> FreqSingle::locate(double angle, double& mean_x) {
  const double s = std::sin(angle);
  const double c = std::cos(angle);
  double sum_x = 0.0;
  std::vector<ProbeRecord> records;
  for (const Base::DataSet& set : *set_data_) {
    const double x = set.param("x").get(Category::length);
    const double y = set.param("y").get(Category::length);
    sum_x += x;
    const auto index = static_cast<std::uint32_t>(records.size());
    records.push_back({index, s * y + c * x, {}});
  }
  mean_x = sum_x / static_cast<double>(records.size());
  return records;
}

void FreqSingle::take_values(std::vector<ProbeRecord>& records, std::uint32_t bin) {
  for (ProbeRecord& record : records) {
    record.value = (*set_data_)[record.index].freq().at(bin);
  }
}

void FreqSingle::store_fundamental(const std::vector<ProbeRecord>& records, double k,
                                   std::uint32_t bin) {
  const FreeTrains trains = separate_fundamental(records, k);
  forward_free_.at(bin) = trains.forward;
  backward_free_.at(bin) = trains.backward;
}

void FreqSingle::store_harmonic(const std::vector<ProbeRecord>& records, double k_bound,
                                double k_free, std::uint32_t bin) {
  const HarmonicTrains trains = separate_harmonic(records, k_bound, k_free);
  forward_bound_.at(bin) = trains.bound.forward;
  backward_bound_.at(bin) = trains.bound.backward;
  forward_free_.at(bin) = trains.free.forward;
  backward_free_.at(bin) = trains.free.backward;
}

void FreqSingle::results(Base::Params& out) {
  const auto add = [&out](const char* name, const Base::Cvector& waves, std::uint32_t bin) {
    out.insert(name, std::abs(waves.at(bin)), "");
  };
  add("Forward free fundamental", forward_free_, bin_);
  add("Backward free fundamental", backward_free_, bin_);
  add("Forward bound harmonic", forward_bound_, 2 * bin_);
  add("Backward bound harmonic", backward_bound_, 2 * bin_);
  add("Forward free harmonic", forward_free_, 2 * bin_);
  add("Backward free harmonic", backward_free_, 2 * bin_);
}

const std::vector<double>& FreqSingle::data(const Base::Params& params) {
  if (params.contains("x")) {
    params.read("x", Category::length);
    params.read("y", Category::length);
    params.read("start_time", Category::time);
    params.read("stop_time", Category::time);
    params.read("rate", Category::frequency);
  }
  return data_;
}

std::uint32_t peak_bin(const Base::Cvector& form, std::uint32_t start) {
  std::uint32_t bin = start;
  double best = 0.0;
  for (std::size_t i = start; i < form.data.size(); ++i) {
    const double magnitude = std::abs(form.data[i]);
    if (magnitude > best) {
      best = magnitude;
      bin = static_cast<std::uint32_t>(i);
    }
  }
  return bin;
}

std::uint32_t independent_probes(const std::vector<ProbeRecord>& records, double k) {
  std::uint32_t count = 1;
  double last = records.front().position;
  for (const ProbeRecord& record : records) {
    if (record.position - last > 0.1 / k) {
      ++count;
      last = record.position;
    }
  }
  return count;
}

}  // namespace Analysis
