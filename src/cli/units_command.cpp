#include "cli/commands.h"
#include "cli/error_line.h"
#include "cli/tool_json.h"
#include "cli/unit_conversion.h"

namespace Cli {

int units(const std::string& quantity, const std::string& to, Console& console) {
  try {
    const Conversion conversion = convert(quantity, to);
    if (console.json) {
      console.out << json_of(conversion);
    } else {
      for (const InUnits& result : conversion.results) console.out << text_of(result) << '\n';
    }
    for (const std::string& remark : conversion.remarks) note_line(console, remark);
    return Exit::good;
  } catch (const BadConversion& bad) {
    error_line(console, bad.fault, bad.help);
    return Exit::bad_input;
  }
}

}  // namespace Cli
