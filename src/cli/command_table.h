// The commands of `kelpbox` with their arguments, options and examples. The option parser, --help,
// the man page and the completion scripts are all made from this table.
#ifndef KELPBOX_CLI_COMMAND_TABLE_H_
#define KELPBOX_CLI_COMMAND_TABLE_H_

#include <string>
#include <string_view>
#include <vector>

namespace Cli {

// What a shell offers for a value.
struct Completes {
  enum class Kind { nothing, files, folders, words };
  Kind kind = Kind::nothing;
  // The ending of files, "toml"; or the words, "bash zsh". "@commands", "@seas", "@jobs" and
  // "@sites" stand for the names that there are.
  std::string_view what;
};

struct OptionText {
  std::string_view name;    // "--out"
  std::string_view letter;  // "-o"; empty without one
  std::string_view value;   // "DIR"; empty for a switch
  std::string_view help;
  Completes completes{};
  bool repeats = false;
};

struct ArgumentText {
  std::string_view name;  // "JOB"
  std::string_view help;
  Completes completes{};
  bool required = true;
  bool repeats = false;  // only the last argument
};

struct Example {
  std::string_view line;     // without the prompt
  std::string_view comment;  // what it does
};

struct CommandText {
  std::string_view name;
  std::string_view summary;      // for the list of commands
  std::string_view description;  // paragraphs are separated by an empty line
  std::vector<Example> examples;
  std::vector<ArgumentText> arguments;
  std::vector<OptionText> options;
};

struct ExitText {
  int code;
  std::string_view meaning;
};

struct VariableText {
  std::string_view name;
  std::string_view meaning;
};

// One sentence about the program.
extern const std::string_view purpose;
extern const std::string_view short_purpose;  // for the man page's heading

const std::vector<CommandText>& commands();         // in the order of the help
const std::vector<OptionText>& global_options();    // known to every command
const std::vector<Example>& first_examples();       // of a first use
const std::vector<ExitText>& exit_texts();          // all exit codes
const std::vector<VariableText>& variable_texts();  // of the environment

// Null for an unknown name.
const CommandText* find_command(std::string_view name);
std::vector<std::string> command_names();

// "kelpbox run [OPTION]... JOB..."
std::string usage_line(const CommandText& command);

}  // namespace Cli

#endif  // KELPBOX_CLI_COMMAND_TABLE_H_
