// The program: from its command line to its exit code.
#ifndef KELPBOX_CLI_PROGRAM_H_
#define KELPBOX_CLI_PROGRAM_H_

#include <string>
#include <vector>

namespace Cli {

// Runs the command that the words ask for, without the program's name. May end the process by
// SIGPIPE when nobody reads its results any more.
int run_program(const std::vector<std::string>& words);

}  // namespace Cli

#endif  // KELPBOX_CLI_PROGRAM_H_
