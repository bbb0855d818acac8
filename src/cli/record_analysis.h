// What the library's analysis finds in the records of one file, with what makes it doubtful.
#ifndef KELPBOX_CLI_RECORD_ANALYSIS_H_
#define KELPBOX_CLI_RECORD_ANALYSIS_H_

#include <optional>
#include <string>
#include <vector>

#include "cli/probe_layout.h"
#include "cli/probe_records.h"
#include "facade/experiment.h"

namespace Cli {

struct ZeroCrossings {
  bool regular = false;
  double period = 0.0;          // s: of a regular wave, otherwise sig_t
  double height = 0.0;          // m: of a regular wave the mean over the probes, otherwise sig_h
  std::vector<double> heights;  // m, by probe, of a regular wave
};

// Amplitudes in m.
struct Train {
  double forward = 0.0;
  double backward = 0.0;
};

struct WaveTrains {
  double angle = 0.0;        // rad
  double frequency = 0.0;    // Hz, of the element that was separated
  double depth = 0.0;        // m
  double wave_length = 0.0;  // m
  Train fundamental;
  bool has_harmonics = false;  // they need four probes
  Train bound;
  Train free;
  LayoutGain gain;

  double reflection() const { return fundamental.backward / fundamental.forward; }
};

struct RecordAnalysis {
  ProbeRecords records;
  double height_m0 = 0.0;  // m, four standard deviations, mean over the probes
  std::optional<ZeroCrossings> crossings;
  std::optional<WaveTrains> trains;
  std::vector<std::string> notes;  // what could not be found, and what is doubtful
};

// `site` has read its script. Throws std::string for records that cannot be analysed at all.
RecordAnalysis analyse_records(ProbeRecords records, double angle, Kelpbox::Experiment& site);

}  // namespace Cli

#endif  // KELPBOX_CLI_RECORD_ANALYSIS_H_
