// Commands that are not written yet. A definition elsewhere replaces each.
#include "cli/commands.h"
#include "jobs/failure.h"

namespace Cli {

static int pending(Console& console) {
  console.err << "not written yet\n";
  return Exit::bad_input;
}

[[gnu::weak]] int run(const JobOptions&, Console& console) { return pending(console); }
[[gnu::weak]] int check(const JobOptions&, Console& console) { return pending(console); }
[[gnu::weak]] int site(const SiteOptions&, Console& console) { return pending(console); }
[[gnu::weak]] int analyse(const AnalyseOptions&, Console& console) { return pending(console); }
[[gnu::weak]] int seas(const SeasOptions&, Console& console) { return pending(console); }
[[gnu::weak]] int make_new(const NewOptions&, Console& console) { return pending(console); }
[[gnu::weak]] int units(const std::string&, const std::string&, Console& console) {
  return pending(console);
}
[[gnu::weak]] int formulas(Console& console) { return pending(console); }
[[gnu::weak]] int explain(const std::vector<std::string>&, Console& console) {
  return pending(console);
}

}  // namespace Cli

namespace Jobs {

[[gnu::weak]] std::string message_of_current() { return "an unknown failure"; }

}  // namespace Jobs
