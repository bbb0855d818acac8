#include <fmt/format.h>

#include <string>
#include <vector>

#include "base/unit_table.h"
#include "cli/commands.h"
#include "cli/formula_parts.h"
#include "cli/tool_json.h"
#include "cli/unit_names.h"
#include "cli/wrapped_text.h"

namespace Cli {
namespace {

constexpr std::size_t width = 92;

void heading(std::string& page, const char* title) { page += fmt::format("\n{}\n", title); }

std::string arguments_of(const FormulaFunction& function) {
  return fmt::format("{}({})", function.name, function.arguments == 1 ? "a" : "a,b");
}

void add_functions(std::string& page) {
  heading(page, "Functions");
  for (const FormulaFunction& function : formula_functions()) {
    page += fmt::format("  {:<12}{:<40}", arguments_of(function), function.meaning);
    if (!function.example.empty())
      page += fmt::format("{} is {}", function.example, function.value);
    page.erase(page.find_last_not_of(' ') + 1);
    page += '\n';
  }
}

void add_operators(std::string& page) {
  heading(page, "Operators, from the strongest to the weakest binding");
  for (const FormulaOperator& op : formula_operators()) {
    page += fmt::format("  {:<12}{:<40}{} is {}\n", op.written, op.meaning, op.example, op.value);
  }
}

void add_constants(std::string& page) {
  heading(page, "Constants");
  for (const FormulaConstant& constant : formula_constants()) {
    page += fmt::format("  {:<12}{}\n", constant.name, constant.meaning);
  }
}

void add_units(std::string& page) {
  heading(page, "Units, by kind");
  for (Base::UnitCategory category = 2; category < Base::default_units_table.size(); ++category) {
    std::string names;
    for (const std::string& name : units_of_kind(category)) names += name + "  ";
    names.erase(names.find_last_not_of(' ') + 1);
    page +=
        wrapped(names, fmt::format("  {:<24}", kind_name(category)), std::string(26, ' '), width);
  }
  std::string prefixes;
  for (const Base::PrefixRow& prefix : Base::prefix_table) {
    if (prefix.letter != '\0')
      prefixes += fmt::format("{} {:g}  ", prefix.letter, prefix.multiplier);
  }
  page += wrapped(prefixes, fmt::format("  {:<24}", "prefixes"), std::string(26, ' '), width);
}

void add_traps(std::string& page) {
  heading(page, "Traps");
  for (const std::string_view trap : formula_traps()) {
    page += wrapped(std::string(trap), "  - ", "    ", width);
  }
}

}  // namespace

int formulas(Console& console) {
  if (console.json) {
    console.out << formulas_json();
    return Exit::good;
  }
  std::string page =
      "A formula such as 2*$[Hz]^2 + sqrt(depth[m])/pi@m has a variable with units, $[Hz],\n"
      "parameters with units, depth[m], and the units of its result after the @.\n"
      "A spectrum joins limits and formulas with #, as Pierson-Moskowitz from 0.2 to 2 Hz:\n"
      "  0.2@Hz#5/16*hs[m]^2*fp[Hz]^4/$[Hz]^5*exp(0-1.25*(fp[Hz]/$[Hz])^4)@m2s#2@Hz\n";
  add_functions(page);
  add_operators(page);
  add_constants(page);
  add_units(page);
  add_traps(page);
  page += "\nMore: docs/expressions.md, docs/components.md, docs/modifiers.md\n";
  console.out << page;
  return Exit::good;
}

}  // namespace Cli
