// Reads the command line by the table of commands.
#ifndef KELPBOX_CLI_OPTIONS_H_
#define KELPBOX_CLI_OPTIONS_H_

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_table.h"

namespace Cli {

struct CommandLine {
  const CommandText* command = nullptr;  // null if none was given
  std::vector<std::string> arguments;
  std::map<std::string, std::vector<std::string>, std::less<>> options;  // by long name

  bool has(std::string_view option) const { return options.find(option) != options.end(); }
  // The values in order; empty if the option was not given.
  std::vector<std::string> all(std::string_view option) const;
  // The last value.
  std::string last(std::string_view option, const std::string& fallback = "") const;
  // The argument, or an empty text if there are fewer.
  std::string argument(std::size_t index) const;
};

// Thrown for a command line that cannot be used.
struct BadUsage {
  std::string message;
  const CommandText* command = nullptr;  // that was used wrongly; null if it is not known
};

// Global options may stand before or after the command, options of the command after it. With
// --help or --version, missing and surplus arguments are not reported. Throws BadUsage.
CommandLine read_command_line(const std::vector<std::string>& words);

// The number of workers of "3", "0" or "auto". Throws BadUsage.
unsigned worker_count(const std::string& text, const CommandText* command);

}  // namespace Cli

#endif  // KELPBOX_CLI_OPTIONS_H_
