#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/failure_report.h"
#include "cli/sea_page.h"
#include "jobs/nearest.h"

namespace Cli {

int seas(const SeasOptions& options, Console& console) {
  const std::vector<SeaPage>& pages = sea_pages();
  if (options.name.empty()) {
    console.out << (console.json ? seas_json(pages) : seas_text(pages));
    return Exit::good;
  }
  std::vector<std::string> names;
  for (const SeaPage& page : pages) {
    if (page.name == options.name) {
      console.out << (console.json ? sea_json(page) : sea_text(page));
      return Exit::good;
    }
    names.push_back(page.name);
  }
  const auto near = Jobs::nearest(options.name, names);
  const std::string advice = near ? "did you mean `" + *near + "`?" : "`kelpbox seas` lists them";
  return report(
      {Exit::bad_input, "there is no sea or change called `" + options.name + "`: " + advice, {}},
      console);
}

}  // namespace Cli
