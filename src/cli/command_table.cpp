#include "cli/command_table.h"

#include "cli/command_texts.h"

namespace Cli {

const std::string_view purpose =
    "Makes drive signals for the paddles of a wave tank from a short description of the sea, and "
    "compares what was asked with what will be made.";
const std::string_view short_purpose = "from a wave job to checked drive signals";

// Made at first use, so that the start of the program stays short.
const std::vector<CommandText>& commands() {
  static const std::vector<CommandText> all{
      run_text(),  check_text(),      report_text(), site_text(),     analyse_text(),
      new_text(),  seas_text(),       units_text(),  formulas_text(), explain_text(),
      help_text(), completion_text(), man_text()};
  return all;
}

const std::vector<OptionText>& global_options() {
  static const std::vector<OptionText> all{
      {"--help", "-h", "", "Describe the command, and do nothing else."},
      {"--version", "", "", "Show the version; with --verbose, those of the libraries too."},
      {"--json", "", "", "Write the results as one JSON document, errors included."},
      {"--quiet", "-q", "",
       "Write errors, but no remarks; run, check, report and new no results either."},
      {"--verbose", "-v", "", "Show more: minor findings, all details."},
      {"--no-color", "", "", "Use no colours. They are used on a terminal only."},
  };
  return all;
}

const std::vector<Example>& first_examples() {
  static const std::vector<Example> all{
      {"kelpbox new jonswap", "writes a commented job, jonswap.toml"},
      {"kelpbox check jonswap.toml", "shows what the paddles would make of it"},
      {"kelpbox run jonswap.toml", "writes drive signals and more to jonswap.out"},
  };
  return all;
}

const std::vector<ExitText>& exit_texts() {
  static const std::vector<ExitText> all{
      {0, "good"},
      {1, "built, but a finding needs a look and --strict was given"},
      {2, "a job, site or folder of results that cannot be used, or a mistake on the command line"},
      {3, "results could not be written"},
      {129, "ended by SIGHUP; nothing half written is left"},
      {130, "interrupted by Ctrl-C; nothing half written is left"},
      {143, "ended by SIGTERM; nothing half written is left"},
  };
  return all;
}

const std::vector<VariableText>& variable_texts() {
  static const std::vector<VariableText> all{
      {"NO_COLOR", "If it is set and not empty, no colours are used."},
      {"TERM", "If it is dumb, no colours and no progress bar are used."},
  };
  return all;
}

const CommandText* find_command(std::string_view name) {
  for (const CommandText& command : commands()) {
    if (command.name == name) return &command;
  }
  return nullptr;
}

std::vector<std::string> command_names() {
  std::vector<std::string> names;
  for (const CommandText& command : commands()) names.emplace_back(command.name);
  return names;
}

std::string usage_line(const CommandText& command) {
  std::string line = "kelpbox " + std::string(command.name) + " [OPTION]...";
  for (const ArgumentText& argument : command.arguments) {
    const std::string name = std::string(argument.name) + (argument.repeats ? "..." : "");
    line += argument.required ? " " + name : " [" + name + "]";
  }
  return line;
}

}  // namespace Cli
