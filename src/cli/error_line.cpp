#include "cli/error_line.h"

#include "cli/failure_report.h"
#include "jobs/diagnostic.h"

namespace Cli {

void error_line(Console& console, const std::string& fault, const std::string& help) {
  if (console.json) {
    report({Exit::bad_input, help.empty() ? fault : fault + " (" + help + ")", {}}, console);
  } else {
    const auto colour = console.err_colour ? Jobs::Colour::on : Jobs::Colour::off;
    console.err << Jobs::show({fault, {}, help}, colour);
  }
}

void note_line(Console& console, const std::string& remark) {
  if (console.quiet) return;
  console.err << (console.err_colour ? "\033[1mnote\033[0m: " : "note: ") << remark << '\n';
}

}  // namespace Cli
