// The results of the small commands as JSON documents. Keys are only ever added.
#ifndef KELPBOX_CLI_TOOL_JSON_H_
#define KELPBOX_CLI_TOOL_JSON_H_

#include <string>

#include "cli/explanations.h"
#include "cli/unit_conversion.h"

namespace Cli {

// Each document ends with a line end.
std::string json_of(const Conversion& conversion);
std::string json_of(const Answer& answer);
std::string formulas_json();

}  // namespace Cli

#endif  // KELPBOX_CLI_TOOL_JSON_H_
