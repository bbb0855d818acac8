#include "cli/completion.h"

#include <fmt/format.h>

#include "cli/command_table.h"
#include "cli/options.h"
#include "cli/sea_page.h"
#include "cli/templates.h"

namespace Cli {

std::string completion_script(const std::string& shell) {
  if (shell == "bash") return bash_completion();
  if (shell == "zsh") return zsh_completion();
  throw BadUsage{"there is no completion for `" + shell + "`, only for bash and zsh",
                 find_command("completion")};
}

std::string words_of(const Completes& completes) {
  std::vector<std::string> words;
  if (completes.what == "@commands") {
    words = command_names();
  } else if (completes.what == "@seas") {
    for (const SeaPage& page : sea_pages()) words.push_back(page.name);
  } else if (completes.what == "@jobs") {
    for (const Template& each : job_templates()) words.push_back(each.name);
    words.emplace_back("site");
  } else if (completes.what == "@sites") {
    for (const Template& each : site_templates()) words.push_back(each.name);
  } else {
    return std::string(completes.what);
  }
  return fmt::format("{}", fmt::join(words, " "));
}

}  // namespace Cli
