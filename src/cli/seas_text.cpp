// The pages of `kelpbox seas` as people read them.
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "cli/sea_page.h"
#include "cli/wrapped_text.h"

namespace Cli {

namespace {

constexpr std::size_t width = 92;

std::string names_of(const SeaPage& page) {
  std::string required;
  std::string optional;
  for (const PageParameter& parameter : page.parameters) {
    std::string& names = parameter.required ? required : optional;
    names += (names.empty() ? "" : " ") + parameter.name;
  }
  if (optional.empty()) return required;
  return required + (required.empty() ? "(" : "  (") + optional + ")";
}

struct Block {
  const char* heading;
  bool is_change;
  bool is_own;
};

constexpr Block blocks[] = {
    {"Ready seas, for the kind of a [[sea.wave]]", false, false},
    {"The library's own waves, for the same place", false, true},
    {"Ready changes, for the kind of a [[sea.change]]", true, false},
    {"The library's own changes, for the same place", true, true},
};

// Where a line of a formula may end: before an operator that is not in the brackets of a unit.
std::size_t break_before(std::string_view text, std::size_t longest) {
  if (text.size() <= longest) return text.size();
  std::size_t found = longest;
  bool in_units = false;
  for (std::size_t i = 1; i <= longest; ++i) {
    if (text[i] == '[') in_units = true;
    if (text[i] == ']') in_units = false;
    if (!in_units && (text[i] == '*' || text[i] == '/' || text[i] == '+')) found = i;
  }
  return found;
}

// Each limit and function begins a line.
std::string formula_lines(std::string_view formula) {
  std::string lines;
  std::string indent = "  ";
  while (!formula.empty()) {
    const std::size_t next = std::min(formula.find('#', 1), formula.size());
    const std::size_t end = break_before(formula.substr(0, next), width - indent.size());
    lines += indent + std::string(formula.substr(0, end)) + '\n';
    formula.remove_prefix(end);
    indent = formula.substr(0, 1) == "#" ? "  " : "      ";
  }
  return lines;
}

struct Columns {
  std::size_t name = 4;
  std::size_t units = 5;
  std::size_t fallback = 7;
};

std::string fallback_text(const PageParameter& parameter) {
  return parameter.required ? "-" : parameter.fallback;
}

void add_row(std::string& text, const Columns& columns, const PageParameter& parameter,
             const std::string& fallback) {
  const std::string first = fmt::format("  {:<{}}  {:<{}}  {:<{}}  ", parameter.name, columns.name,
                                        parameter.units, columns.units, fallback, columns.fallback);
  std::string meaning = parameter.meaning;
  if (!parameter.range.empty()) meaning += "; " + parameter.range;
  text += wrapped(meaning, first, std::string(first.size(), ' '), width);
}

std::string parameter_table(const SeaPage& page) {
  Columns columns;
  for (const auto* list : {&page.parameters, &page.computed}) {
    for (const PageParameter& parameter : *list) {
      columns.name = std::max(columns.name, parameter.name.size());
      columns.units = std::max(columns.units, parameter.units.size());
    }
  }
  for (const PageParameter& parameter : page.parameters) {
    columns.fallback = std::max(columns.fallback, fallback_text(parameter).size());
  }
  PageParameter head;
  head.name = "name";
  head.units = "units";
  head.meaning = "meaning";
  std::string text = "\nParameters, in these units or others of the same kind\n";
  add_row(text, columns, head, "default");
  for (const PageParameter& parameter : page.parameters) {
    add_row(text, columns, parameter, fallback_text(parameter));
  }
  if (page.computed.empty()) return text;
  text += "\nAdded to them\n";
  for (PageParameter parameter : page.computed) {
    parameter.range.clear();
    add_row(text, columns, parameter, "");
  }
  return text;
}

}  // namespace

std::string seas_text(const std::vector<SeaPage>& pages) {
  std::string text;
  for (const Block& block : blocks) {
    text += (text.empty() ? "" : "\n") + std::string(block.heading) + "\n";
    for (const SeaPage& page : pages) {
      if (page.is_change != block.is_change || page.is_own != block.is_own) continue;
      text += fmt::format("  {:<19}{}\n", page.name, page.title);
      text += wrapped(names_of(page), std::string(23, ' '), std::string(23, ' '), width);
    }
  }
  return text +
         "\nParameters in parentheses have defaults. `kelpbox seas NAME` describes one: what its\n"
         "parameters mean, its formula, its source, and an example.\n";
}

std::string sea_text(const SeaPage& page) {
  std::string text = fmt::format("{}  {}\n", page.name, page.title);
  if (!page.parameters.empty()) text += parameter_table(page);
  if (!page.stands_for.empty()) {
    text += "\nStands for\n  " + page.stands_for;
    for (const auto& [name, value] : page.fixed) text += fmt::format(", {} = {}", name, value);
    text += '\n';
  }
  if (!page.formula.empty())
    text +=
        "\nFormula ($ is the frequency; see `kelpbox formulas`)\n" + formula_lines(page.formula);
  if (!page.source.empty()) text += "\nSource\n" + wrapped(page.source, "  ", "  ", width);
  text += "\nExample\n";
  std::string_view rest = page.example;
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n') + 1;
    text += "  " + std::string(rest.substr(0, end));
    rest.remove_prefix(end);
  }
  return text;
}

}  // namespace Cli
