// Reports why a command failed.
#ifndef KELPBOX_CLI_FAILURE_REPORT_H_
#define KELPBOX_CLI_FAILURE_REPORT_H_

#include <string>

#include "cli/console.h"
#include "jobs/diagnostic.h"

namespace Cli {

struct Failure {
  int exit_code = Exit::bad_input;
  std::string message;       // one line
  Jobs::Diagnostics faults;  // of a job or site; may be empty
};

// To be called in a catch block: what the current exception means. `subject` is the file that the
// command worked on, and `consequence` follows the number of faults: "storm.toml: 2 errors, nothing
// was built".
Failure failure_of_current(const std::string& subject, const std::string& consequence = "");

// For people: the faults with their lines, then the message.
std::string shown(const Failure& failure, bool colour);

// For machines: {"code": ..., "message": ..., "diagnostics": [...]}.
std::string failure_json(const Failure& failure);

// The text as a JSON string. Bytes that are not UTF-8 are replaced.
std::string json_string(const std::string& text);

// Writes the failure to standard error, or with --json as {"error": ...} to standard output.
// Returns its exit code.
int report(const Failure& failure, Console& console);

// To be called in a catch block by commands that read one file, or none.
int report_current(const std::string& subject, Console& console);

}  // namespace Cli

#endif  // KELPBOX_CLI_FAILURE_REPORT_H_
