// What the records of probes and their analysis have to be.
#ifndef KELPBOX_FUZZ_RECORD_RESULTS_H_
#define KELPBOX_FUZZ_RECORD_RESULTS_H_

#include <cmath>

#include "cli/probe_records.h"
#include "cli/record_analysis.h"
#include "fuzz/property.h"

namespace Fuzz {

inline void require_records(const Cli::ProbeRecords& records) {
  require(std::isfinite(records.rate) && records.rate > 0.0, "the rate is a number above 0");
  require(std::isfinite(records.start), "the window begins at a time");
  require(!records.probes.empty(), "there is a probe");
  for (const Cli::Probe& probe : records.probes) {
    require(!probe.name.empty(), "a probe has a name");
    require(probe.samples.size() == records.samples() && !probe.samples.empty(),
            "the probes have one window");
    require(std::isfinite(probe.x) && std::isfinite(probe.y), "a probe stands at a place");
    require(std::isfinite(probe.mean), "the mean of a record is a number");
    for (const double sample : probe.samples) {
      require(std::isfinite(sample), "the samples of a record are numbers");
    }
  }
}

inline void require_results(const Cli::RecordAnalysis& found) {
  require(std::isfinite(found.height_m0), "the height is a number");
  if (found.crossings) {
    require(std::isfinite(found.crossings->height) && std::isfinite(found.crossings->period),
            "height and period of the waves are numbers");
  }
  if (found.trains) {
    const Cli::WaveTrains& trains = *found.trains;
    require(std::isfinite(trains.wave_length), "the wave length is a number");
    require(std::isfinite(trains.fundamental.forward) && std::isfinite(trains.fundamental.backward),
            "the amplitudes of the trains are numbers");
    if (trains.has_harmonics) {
      require(std::isfinite(trains.bound.forward) && std::isfinite(trains.bound.backward) &&
                  std::isfinite(trains.free.forward) && std::isfinite(trains.free.backward),
              "the amplitudes of the harmonics are numbers");
    }
  }
  require(found.crossings || found.trains || !found.notes.empty(), "what is not found has a note");
  for (const std::string& note : found.notes) require(!note.empty(), "a note has a text");
}

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_RECORD_RESULTS_H_
