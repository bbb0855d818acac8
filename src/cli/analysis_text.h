// The results of `kelpbox analyse` as text.
#ifndef KELPBOX_CLI_ANALYSIS_TEXT_H_
#define KELPBOX_CLI_ANALYSIS_TEXT_H_

#include <string>
#include <vector>

#include "cli/record_analysis.h"

namespace Cli {

// All results of one file, without its notes.
std::string analysis_text(const RecordAnalysis& analysis);

// One line for each file.
std::string analysis_table(const std::vector<RecordAnalysis>& analyses);

}  // namespace Cli

#endif  // KELPBOX_CLI_ANALYSIS_TEXT_H_
