#include "analysis/freq_single.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>

#include "analysis/separation.h"
#include "base/constants.h"
#include "base/streams.h"
#include "base/units.h"
#include "maths/dispersion.h"
#include "maths/tank_run.h"

namespace Analysis {
namespace {

namespace Category = Base::Category;
using Base::progress_line;

constexpr std::uint32_t first_harmonic = 1;  // element 0 is the mean
constexpr std::uint32_t highest_harmonic = 4;
constexpr std::uint32_t probes_for_fundamental = 3;
constexpr std::uint32_t probes_for_harmonics = 4;

void require_length(Base::Units units) {
  if (!Base::compatible(units, Base::default_units(Category::length).row)) {
    throw std::string("Units not of distance");
  }
}

}  // namespace

FreqSingle::FreqSingle(const Maths::TankConfig& tank, Set& set) : TwoD(tank, set) {
  progress_line("FreqSingle");
}

void FreqSingle::process(const Base::Params& settings) {
  progress_line("DA");
  settings.require_value("freq", Category::frequency);
  const double direction = settings.read("angle", Category::angle);
  prepare();
  progress_line("DB");

  const Record& first = set_data_->front();
  const double df = first.rate() / static_cast<double>(first.samples().size());
  require_length(first.units());
  progress_line("DC");
  const std::uint32_t bin = fundamental_bin();
  progress_line("DD");

  auto [records, mean_x] = locate_probes(*set_data_, direction);
  take_values(records, bin);
  progress_line("DE");
  sort_by_position(records);
  progress_line("DF");

  const double depth = Maths::TankRun(*tank_, Maths::RunData()).depth_at(mean_x);
  const double omega = 2.0 * Base::Pi * df * bin;
  const double k = Maths::knum(omega, depth, tank_->g);
  const std::uint32_t independent = independent_probes(records, k);
  progress_line("DG");
  if (independent < probes_for_fundamental) {
    throw std::string("Too few independant probes to process");
  }

  store_fundamental(records, k, bin);
  progress_line("DH");
  if (independent >= probes_for_harmonics) {
    for (std::uint32_t h = 2; h <= highest_harmonic; ++h) {
      take_values(records, h * bin);
      store_harmonic(records, h * k, Maths::knum(omega * h, depth, tank_->g), h * bin);
    }
  }
  progress_line("DI");
  bin_ = bin;
}

void FreqSingle::prepare() {
  std::vector<Record>& records = *set_data_;
  if (records.size() < 2) {
    throw std::string("At least two data sets must be provided for frequency analysis");
  }
  std::unique_ptr<Base::ForwardTransform> transform;  // one for all records
  for (Record& record : records) {
    static_cast<void>(record.spectrum(transform));
    if (record.samples().size() != records.front().samples().size()) {
      throw std::string("Inconsistent sizes of data sets");
    }
  }
  const BinValues none(records.front().spectrum().size());
  forward_free_ = backward_free_ = forward_bound_ = backward_bound_ = none;
}

std::uint32_t FreqSingle::fundamental_bin() {
  std::uint32_t bin = std::numeric_limits<std::uint32_t>::max();
  for (const Record& record : *set_data_) {
    bin = std::min(bin, record.spectrum().peak(first_harmonic));
  }
  return bin;
}

void FreqSingle::take_values(std::vector<ProbeRecord>& records, std::uint32_t bin) {
  for (ProbeRecord& record : records) {
    record.value = (*set_data_)[record.index].spectrum().at(bin);
  }
}

void FreqSingle::store_fundamental(const std::vector<ProbeRecord>& records, double k,
                                   std::uint32_t bin) {
  const FreeTrains trains = separate_fundamental(records, k);
  forward_free_.set(bin, trains.forward);
  backward_free_.set(bin, trains.backward);
}

void FreqSingle::store_harmonic(const std::vector<ProbeRecord>& records, double k_bound,
                                double k_free, std::uint32_t bin) {
  const HarmonicTrains trains = separate_harmonic(records, k_bound, k_free);
  forward_bound_.set(bin, trains.bound.forward);
  backward_bound_.set(bin, trains.bound.backward);
  forward_free_.set(bin, trains.free.forward);
  backward_free_.set(bin, trains.free.backward);
}

void FreqSingle::results(Base::Params& out) {
  const auto add = [&out](const char* name, const BinValues& waves, std::uint32_t bin) {
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
    params.require_value("x", Category::length);
    params.require_value("y", Category::length);
    params.require_value("start_time", Category::time);
    params.require_value("stop_time", Category::time);
    params.require_value("rate", Category::frequency);
  }
  return data_;
}

}  // namespace Analysis
