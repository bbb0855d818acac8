// What --help shows.
#ifndef KELPBOX_CLI_HELP_PAGES_H_
#define KELPBOX_CLI_HELP_PAGES_H_

#include <string>

#include "cli/command_table.h"

namespace Cli {

std::string short_help();                           // of `kelpbox` alone
std::string full_help();                            // of `kelpbox --help`
std::string command_help(const CommandText& text);  // examples first

// "-o, --out DIR"
std::string option_term(const OptionText& option);

}  // namespace Cli

#endif  // KELPBOX_CLI_HELP_PAGES_H_
