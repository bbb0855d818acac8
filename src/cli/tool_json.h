// The results of the small commands as JSON documents. Keys are only ever added.
#ifndef KELPBOX_CLI_TOOL_JSON_H_
#define KELPBOX_CLI_TOOL_JSON_H_

#include <string>
#include <vector>

#include "cli/explanations.h"
#include "cli/record_analysis.h"
#include "cli/unit_conversion.h"

namespace Cli {

// What `kelpbox new` did.
struct NewFiles {
  std::vector<std::string> written;
  std::vector<std::string> kept;  // that were there already
};

// Each document ends with a line end.
std::string json_of(const Conversion& conversion);
std::string json_of(const Answer& answer);
// For an answer without a likely explanation: the error, and the similar messages.
std::string json_of(const Answer& answer, const std::string& error);
std::string json_of(const NewFiles& files);
std::string json_of(const std::vector<RecordAnalysis>& analyses);
std::string formulas_json();
std::string templates_json();

}  // namespace Cli

#endif  // KELPBOX_CLI_TOOL_JSON_H_
