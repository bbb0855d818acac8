// Scripts that let a shell complete the command line.
#ifndef KELPBOX_CLI_COMPLETION_H_
#define KELPBOX_CLI_COMPLETION_H_

#include <string>

namespace Cli {

// Throws BadUsage for a shell other than "bash" and "zsh".
std::string completion_script(const std::string& shell);

std::string bash_completion();  // bash_completion.cpp
std::string zsh_completion();   // zsh_completion.cpp

// The words that a value can be, separated by blanks.
struct Completes;
std::string words_of(const Completes& completes);

}  // namespace Cli

#endif  // KELPBOX_CLI_COMPLETION_H_
