#include "cli/completion.h"

#include "cli/command_table.h"
#include "cli/options.h"

namespace Cli {

std::string completion_script(const std::string& shell) {
  if (shell == "bash") return bash_completion();
  if (shell == "zsh") return zsh_completion();
  throw BadUsage{"there is no completion for `" + shell + "`, only for bash and zsh",
                 find_command("completion")};
}

std::string words_of(const Completes& completes) {
  if (completes.what != "@commands") return std::string(completes.what);
  std::string words;
  for (const CommandText& command : commands()) {
    words += (words.empty() ? "" : " ") + std::string(command.name);
  }
  return words;
}

}  // namespace Cli
