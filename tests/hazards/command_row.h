// Rows that run the command `kelpbox`.
#ifndef KELPBOX_TESTS_HAZARDS_COMMAND_ROW_H_
#define KELPBOX_TESTS_HAZARDS_COMMAND_ROW_H_

#include <functional>
#include <string>
#include <vector>

#include "cli/program_run.h"
#include "hazard.h"

namespace Testing {

// Writes the files of a row into its folder, and returns the words of the command line.
using Command = std::function<Words(const TempDir& folder)>;

// The message of the row is "<exit code>: <what the command wrote to standard error>".
Hazard command(const std::string& name, const Command& words, const std::string& expected);

// The text of a small job in the flume, with its site beside it, and more lines.
std::string flume_job(const std::string& more = "");

// `kelpbox check` of that job with a value replaced.
Hazard job_value(const std::string& name, const std::string& key, const std::string& value,
                 const std::string& expected);
// `kelpbox check` of that job with more lines.
Hazard job_lines(const std::string& name, const std::function<std::string()>& lines,
                 const std::string& expected);

// The beginning of a text that is shown in part.
std::string shortened(const std::string& text, std::size_t longest);

// What a command writes about a value in a line that is too long to be shown, at a
// column of the first line of a file.
std::string error_in_long_line(const std::string& message, const std::string& file,
                               const std::string& line, std::size_t column,
                               const std::string& label);

}  // namespace Testing

#endif  // KELPBOX_TESTS_HAZARDS_COMMAND_ROW_H_
