// The records of wave probes from a CSV file.
#ifndef KELPBOX_CLI_PROBE_RECORDS_H_
#define KELPBOX_CLI_PROBE_RECORDS_H_

#include <cstddef>
#include <string>
#include <vector>

#include "cli/commands.h"

namespace Cli {

struct Probe {
  std::string name;  // "probe 1", or its position
  bool placed = false;
  double x = 0.0;  // m
  double y = 0.0;
  std::vector<double> samples;  // m, of the window, without their mean
  double mean = 0.0;            // m, that was removed
};

struct ProbeRecords {
  std::string file;
  double rate = 0.0;   // Hz
  double start = 0.0;  // s, of the window, in the times of the file
  std::vector<Probe> probes;

  std::size_t samples() const { return probes.front().samples.size(); }
  double duration() const { return static_cast<double>(samples()) / rate; }  // s
  bool placed() const;  // whether all positions are known
};

// Reads a file and cuts it to the window of the options. Throws std::string that begins with the
// file's name.
ProbeRecords read_probe_records(const std::string& file, const AnalyseOptions& options);

}  // namespace Cli

#endif  // KELPBOX_CLI_PROBE_RECORDS_H_
