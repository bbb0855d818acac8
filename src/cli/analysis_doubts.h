// What makes a separation of wave trains doubtful, in the words of those who placed the probes.
#ifndef KELPBOX_CLI_ANALYSIS_DOUBTS_H_
#define KELPBOX_CLI_ANALYSIS_DOUBTS_H_

#include <string>
#include <vector>

#include "cli/record_analysis.h"
#include "cli/record_peak.h"

namespace Cli {

// Irregular waves, a window that is no whole number of periods, a layout that amplifies noise.
std::vector<std::string> doubts_of(const ProbeRecords& records, const RecordPeak& peak,
                                   const WaveTrains& trains);

// Why the library refused to separate. `rate` in Hz.
std::string separation_failure(const std::string& message, const RecordPeak& peak, double rate);

}  // namespace Cli

#endif  // KELPBOX_CLI_ANALYSIS_DOUBTS_H_
