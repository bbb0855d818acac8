// The wave that the library will take for the fundamental of several records.
#ifndef KELPBOX_CLI_RECORD_PEAK_H_
#define KELPBOX_CLI_RECORD_PEAK_H_

#include <cstddef>

#include "cli/probe_records.h"

namespace Cli {

struct RecordPeak {
  std::size_t element = 0;  // of the spectrum: the periods in the window
  double frequency = 0.0;   // Hz, of that element
  double periods = 0.0;     // estimated, not a whole number if the wave lies between two elements
  // The share of the variance at the element, its harmonics, and the neighbours of each.
  double share = 0.0;
};

RecordPeak find_peak(const ProbeRecords& records);

}  // namespace Cli

#endif  // KELPBOX_CLI_RECORD_PEAK_H_
