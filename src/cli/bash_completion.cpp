#include "cli/command_table.h"
#include "cli/completion.h"

namespace Cli {

namespace {

// A command of bash that writes what can stand in place of $cur.
std::string offer(const Completes& completes) {
  switch (completes.kind) {
    case Completes::Kind::files:
      if (completes.what.empty()) return "compgen -f -- \"$cur\"";
      return "compgen -d -- \"$cur\"; compgen -f -X '!*." + std::string(completes.what) +
             "' -- \"$cur\"";
    case Completes::Kind::folders:
      return "compgen -d -- \"$cur\"";
    case Completes::Kind::words:
      return "compgen -W '" + words_of(completes) + "' -- \"$cur\"";
    case Completes::Kind::nothing:
      break;
  }
  return ":";
}

std::string names_of(const std::vector<OptionText>& options) {
  std::string names;
  for (const OptionText& option : options) names += " " + std::string(option.name);
  return names;
}

// Lines of a case statement on "<command>:<previous word>".
std::string value_cases(const CommandText& command) {
  std::string lines;
  const std::string before = std::string(command.name) + ":";
  for (const OptionText& option : command.options) {
    if (option.value.empty()) continue;
    lines += "    " + before + std::string(option.name);
    if (!option.letter.empty()) lines += " | " + before + std::string(option.letter);
    const std::string offered = offer(option.completes);
    lines += ") " + (offered == ":" ? "" : offered + "; ") + "return ;;\n";
  }
  return lines;
}

// A line of a case statement on the command. Only the last argument's files are offered, which is
// enough for all commands.
std::string argument_case(const CommandText& command) {
  if (command.arguments.empty()) return "";
  std::string all;
  for (const ArgumentText& argument : command.arguments) {
    const std::string one = offer(argument.completes);
    if (one == ":" || all.find(one) != std::string::npos) continue;
    all += (all.empty() ? "" : "; ") + one;
  }
  return all.empty() ? "" : "    " + std::string(command.name) + ") " + all + " ;;\n";
}

}  // namespace

std::string bash_completion() {
  std::string values, options, arguments;
  for (const CommandText& command : commands()) {
    values += value_cases(command);
    options += "      " + std::string(command.name) + ") options+=\"" + names_of(command.options) +
               "\" ;;\n";
    arguments += argument_case(command);
  }
  const std::string names = words_of({Completes::Kind::words, "@commands"});
  return R"(# bash completion for kelpbox. Written by "kelpbox completion bash".

_kelpbox_offer() {
  local command=$1 previous=$2 cur=$3
  case $command:$previous in
)" + values +
         R"(  esac
  if [[ $cur == -* ]]; then
    local options=")" +
         names_of(global_options()).substr(1) + R"("
    case $command in
)" + options +
         R"(    esac
    compgen -W "$options" -- "$cur"
    return
  fi
  case $command in
    "") compgen -W ')" +
         names + R"(' -- "$cur" ;;
)" + arguments +
         R"(  esac
}

_kelpbox() {
  local command="" i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    if [[ ${COMP_WORDS[i]} != -* ]]; then
      command=${COMP_WORDS[i]}
      break
    fi
  done
  local previous=${COMP_WORDS[COMP_CWORD - 1]} cur=${COMP_WORDS[COMP_CWORD]}
  # bash may make three words of --out=DIR.
  if [[ $cur == "=" ]]; then
    cur=""
  elif [[ $previous == "=" ]]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  mapfile -t COMPREPLY < <(_kelpbox_offer "$command" "$previous" "$cur" | sort -u)
}

complete -o filenames -F _kelpbox kelpbox
)";
}

}  // namespace Cli
