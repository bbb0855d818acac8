// Commands that are not written yet. A definition elsewhere replaces each.
#include "cli/commands.h"

namespace Cli {

static int pending(Console& console) {
  console.err << "not written yet\n";
  return Exit::bad_input;
}

[[gnu::weak]] int analyse(const AnalyseOptions&, Console& console) { return pending(console); }
[[gnu::weak]] int make_new(const NewOptions&, Console& console) { return pending(console); }

}  // namespace Cli
