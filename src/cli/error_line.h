// Messages of the command that point into no file.
#ifndef KELPBOX_CLI_ERROR_LINE_H_
#define KELPBOX_CLI_ERROR_LINE_H_

#include <string>

#include "cli/console.h"

namespace Cli {

// Writes "error: <fault>" to standard error, and "  = <help>" below it unless that is empty.
// With --json both are part of the error object.
void error_line(Console& console, const std::string& fault, const std::string& help = "");

// Writes "note: <remark>" to standard error, unless the console is quiet.
void note_line(Console& console, const std::string& remark);

}  // namespace Cli

#endif  // KELPBOX_CLI_ERROR_LINE_H_
