#include "cli/command_table.h"
#include "cli/completion.h"

namespace Cli {

namespace {

// Text inside single quotes, within a specification of _arguments.
std::string zsh_text(std::string_view text) {
  std::string out;
  for (const char letter : text) {
    if (letter == '\'') {
      out += "'\\''";
    } else if (letter == ':' || letter == '[' || letter == ']' || letter == '\\') {
      out += std::string("\\") + letter;
    } else {
      out += letter;
    }
  }
  return out;
}

std::string action(const Completes& completes) {
  switch (completes.kind) {
    case Completes::Kind::files:
      if (completes.what.empty()) return "_files";
      return "_files -g \"*." + std::string(completes.what) + "\"";
    case Completes::Kind::folders:
      return "_files -/";
    case Completes::Kind::words:
      return "(" + words_of(completes) + ")";
    case Completes::Kind::nothing:
      break;
  }
  return " ";
}

std::string option_line(const OptionText& option) {
  const std::string help = "[" + zsh_text(option.help) + "]";
  const std::string value =
      option.value.empty() ? "" : ":" + zsh_text(option.value) + ":" + action(option.completes);
  const std::string star = option.repeats ? "*" : "";
  std::string line = " \\\n    '" + star + std::string(option.name) + help + value + "'";
  if (!option.letter.empty()) {
    line += " \\\n    '" + star + std::string(option.letter) + help + value + "'";
  }
  return line;
}

std::string argument_line(const ArgumentText& argument, std::size_t number) {
  const std::string place = argument.repeats ? "*" : std::to_string(number);
  const std::string optional = argument.required || argument.repeats ? ":" : "::";
  return " \\\n    '" + place + optional + zsh_text(argument.name) + ":" +
         action(argument.completes) + "'";
}

std::string command_function(const CommandText& command) {
  std::string out = "_kelpbox_" + std::string(command.name) + "() {\n  _arguments \"$global[@]\"";
  for (const OptionText& option : command.options) out += option_line(option);
  std::size_t number = 1;
  for (const ArgumentText& argument : command.arguments) out += argument_line(argument, number++);
  return out + "\n}\n\n";
}

}  // namespace

std::string zsh_completion() {
  std::string global, summaries, functions;
  for (const OptionText& option : global_options()) global += option_line(option);
  for (const CommandText& command : commands()) {
    summaries += "    '" + zsh_text(command.name) + ":" + zsh_text(command.summary) + "'\n";
    functions += command_function(command);
  }
  return R"(#compdef kelpbox
# zsh completion for kelpbox. Written by "kelpbox completion zsh".

)" + functions +
         R"(_kelpbox() {
  local curcontext="$curcontext" state line
  local -a global=( \)" +
         global.substr(2) + R"( )
  local -a names=(
)" + summaries +
         R"(  )
  _arguments -C "$global[@]" '1:command:->command' '*::argument:->argument'
  case $state in
    command) _describe command names ;;
    argument) (( $+functions[_kelpbox_$words[1]] )) && _kelpbox_$words[1] ;;
  esac
}

_kelpbox "$@"
)";
}

}  // namespace Cli
