#include "cli/record_analysis.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "base/constants.h"
#include "cli/analysis_doubts.h"
#include "cli/record_peak.h"
#include "facade/analysis.h"
#include "jobs/captured_lines.h"
#include "jobs/failure.h"
#include "maths/dispersion.h"
#include "maths/run_data.h"
#include "maths/tank_run.h"
#include "site/context.h"

namespace Cli {
namespace {

constexpr std::size_t least_probes = 3;

// The records as the library holds them. It prints progress lines in every step.
class LibraryRecords {
 public:
  LibraryRecords(const ProbeRecords& records, Kelpbox::Experiment& site)
      : site_(site), analysis_(site) {
    std::vector<std::uint32_t> series;
    for (const Probe& probe : records.probes) {
      Base::Params params;
      params.insert("rate", records.rate, "Hz");
      params.insert("x", probe.x, "m");
      params.insert("y", probe.y, "m");
      series.push_back(analysis_.add_series(params, probe.samples));
    }
    Base::Params window;
    window.insert("start_time", 0.0, "s");
    window.insert("stop_time", records.duration(), "s");
    set_ = analysis_.create_set(window, series);
  }

  // Runs a process and returns its results. Its list is in `data`.
  Base::Params results(Kelpbox::ProcessKind kind, const Base::Params& settings) {
    Base::Params values;
    site_.query(values);
    analysis_.set(values);  // required before each process, even if nothing changes
    const std::uint32_t process = analysis_.create_process(set_, static_cast<std::uint32_t>(kind));
    Base::Params out;
    analysis_.get_results(process, settings, out);
    data = analysis_.get_data(process, {});
    return out;
  }

  std::vector<double> data;

 private:
  const Jobs::CapturedLines lines_;
  Kelpbox::Experiment& site_;
  Kelpbox::Analysis analysis_;
  std::uint32_t set_ = 0;
};

double mean(const std::vector<double>& values) {
  double sum = 0.0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

double mean_height_m0(const ProbeRecords& records) {
  double sum = 0.0;
  for (const Probe& probe : records.probes) {
    double squares = 0.0;
    for (const double sample : probe.samples) squares += sample * sample;
    sum += 4.0 * std::sqrt(squares / static_cast<double>(probe.samples.size()));
  }
  return sum / static_cast<double>(records.probes.size());
}

void find_crossings(LibraryRecords& library, RecordAnalysis& found) {
  try {
    const Base::Params out = library.results(Kelpbox::ProcessKind::zero_crossings, {});
    ZeroCrossings crossings;
    crossings.regular = out.contains("reg_t");
    if (crossings.regular) {
      crossings.period = out.get("reg_t", "s");
      crossings.heights = library.data;
      crossings.height = mean(crossings.heights);
    } else {
      crossings.period = out.get("sig_t", "s");
      crossings.height = out.get("sig_h", "m");
    }
    found.crossings = std::move(crossings);
  } catch (...) {
    const std::string message = Jobs::message_of_current();
    const bool few = message == "Insufficient zero crossings in time series";
    found.notes.push_back(few ? "no waves by zero crossings: each probe needs at least six waves"
                              : "no waves by zero crossings: " + message);
  }
}

// The wave and the layout, as the library will see them.
WaveTrains trains_to_find(const ProbeRecords& records, const RecordPeak& peak, double angle,
                          const Maths::TankConfig& tank) {
  WaveTrains trains;
  trains.angle = angle;
  trains.frequency = peak.frequency;
  double sum_x = 0.0;
  std::vector<double> positions;
  for (const Probe& probe : records.probes) {
    sum_x += probe.x;
    positions.push_back(probe.x * std::cos(angle) + probe.y * std::sin(angle));
  }
  std::sort(positions.begin(), positions.end());
  const double mean_x = sum_x / static_cast<double>(positions.size());
  trains.depth = Maths::TankRun(tank, Maths::RunData()).depth_at(mean_x);
  const double omega = Base::TwoPi * peak.frequency;
  const double k = Maths::knum(omega, trains.depth, tank.g);
  trains.wave_length = Base::TwoPi / k;
  trains.gain = layout_gain(positions, k, Maths::knum(2.0 * omega, trains.depth, tank.g));
  trains.has_harmonics = positions.size() > least_probes;
  return trains;
}

void find_trains(LibraryRecords& library, double angle, Kelpbox::Experiment& site,
                 RecordAnalysis& found) {
  const ProbeRecords& records = found.records;
  if (records.probes.size() < least_probes) {
    found.notes.push_back("no wave trains: they need at least three probes");
    return;
  }
  if (!records.placed()) {
    found.notes.push_back(
        "no wave trains: they need the position of each probe, as in \"probe 1 x=9 m [mm]\" in the "
        "head, or --probe \"x=9 m,y=0 m\"");
    return;
  }
  const RecordPeak peak = find_peak(records);
  try {
    if (!site.context().ready()) site.context().make_ready();
    WaveTrains trains = trains_to_find(records, peak, angle, site.context().tank_config());
    Base::Params settings;
    settings.insert("freq", peak.frequency, "Hz");
    settings.insert("angle", angle, "rad");
    const Base::Params out = library.results(Kelpbox::ProcessKind::wave_trains, settings);
    const auto train = [&out](const std::string& name) {
      return Train{out.get("Forward " + name, ""), out.get("Backward " + name, "")};
    };
    trains.fundamental = train("free fundamental");
    trains.bound = train("bound harmonic");
    trains.free = train("free harmonic");
    if (!trains.gain.fundamental_solved) {
      found.notes.push_back("no wave trains: the library cannot solve this layout, move one probe");
      return;
    }
    if (!trains.has_harmonics) {
      found.notes.push_back("no harmonics: they need at least four probes");
    } else if (!trains.gain.harmonic_solved ||
               (trains.bound.forward == 0.0 && trains.free.forward == 0.0)) {
      trains.has_harmonics = false;
      found.notes.push_back("no harmonics: the layout does not tell them apart");
    }
    for (std::string& doubt : doubts_of(records, peak, trains))
      found.notes.push_back(std::move(doubt));
    found.trains = trains;
  } catch (...) {
    found.notes.push_back("no wave trains: " +
                          separation_failure(Jobs::message_of_current(), peak, records.rate));
  }
}

void require_places_in_tank(const ProbeRecords& records, Kelpbox::Experiment& site) {
  const Maths::TankConfig& config = site.context().tank_config();
  const Common::Tank& tank = site.tank();
  for (const Probe& probe : records.probes) {
    // A y of 0 may just not be given.
    const bool outside = probe.x < config.x_low || probe.x > config.x_high ||
                         (probe.y != 0.0 && (probe.y < tank.min_y || probe.y > tank.max_y));
    if (!probe.placed || !outside) continue;
    throw fmt::format(
        "{}: {} at x = {:g} m, y = {:g} m is outside the tank, which has x = {:g} to {:g} m and "
        "y = {:g} to {:g} m",
        records.file, probe.name, probe.x, probe.y, config.x_low, config.x_high,
        static_cast<double>(tank.min_y), static_cast<double>(tank.max_y));
  }
}

}  // namespace

RecordAnalysis analyse_records(ProbeRecords records, double angle, Kelpbox::Experiment& site) {
  constexpr std::size_t least_samples = 16;
  if (records.samples() < least_samples) {
    throw fmt::format("{}: {} samples are too few, at least {} are needed", records.file,
                      records.samples(), least_samples);
  }
  require_places_in_tank(records, site);
  RecordAnalysis found;
  found.records = std::move(records);
  found.height_m0 = mean_height_m0(found.records);
  LibraryRecords library(found.records, site);
  find_crossings(library, found);
  find_trains(library, angle, site, found);
  return found;
}

}  // namespace Cli
