#include "jobs/csv_head.h"

#include <cstddef>

#include "base/units.h"
#include "jobs/csv_fields.h"

namespace Jobs::Csv {

namespace {

bool is_known_unit(std::string_view text) {
  try {
    const Base::UnitCategory category = Base::category_of(Base::resolve_units(text));
    return category != Base::Category::error && category != Base::Category::unit;
  } catch (const std::string&) {
    return false;
  }
}

std::string_view without_quotes(std::string_view text) {
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') return text;
  return trimmed(text.substr(1, text.size() - 2));
}

// The parts between separators that are not in quotes.
std::vector<std::string_view> split(std::string_view line, char separator) {
  std::vector<std::string_view> parts;
  bool quoted = false;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') quoted = !quoted;
    if (line[i] != separator || quoted) continue;
    parts.push_back(line.substr(begin, i - begin));
    begin = i + 1;
  }
  parts.push_back(line.substr(begin));
  return parts;
}

bool opens_bracket(std::string_view text) {
  return !text.empty() && (text.front() == '[' || text.front() == '(');
}

}  // namespace

CsvColumn read_head(std::string_view head) {
  const std::string_view whole = without_quotes(trimmed(head));
  std::string_view name = whole;
  std::string_view units;
  const char last = whole.empty() ? '\0' : whole.back();
  if (last == ']' || last == ')') {
    const std::size_t open = whole.rfind(last == ']' ? '[' : '(');
    if (open != std::string_view::npos) {
      name = trimmed(whole.substr(0, open));
      units = trimmed(whole.substr(open + 1, whole.size() - open - 2));
    }
  } else if (const std::size_t bar = whole.rfind('_');
             bar != std::string_view::npos && bar > 0 && is_known_unit(whole.substr(bar + 1))) {
    name = whole.substr(0, bar);
    units = whole.substr(bar + 1);
  }
  return {std::string(whole), std::string(name), std::string(units), {}};
}

std::vector<CsvColumn> read_heads(std::string_view line, char separator) {
  std::vector<std::string> heads;
  for (const std::string_view part : split(line, separator)) {
    const std::string_view head = trimmed(part);
    if (separator != ' ') {
      heads.emplace_back(head);
    } else if (opens_bracket(head) && !heads.empty()) {
      heads.back().append(" ").append(head);
    } else if (!head.empty()) {
      heads.emplace_back(head);
    }
  }
  std::vector<CsvColumn> columns;
  columns.reserve(heads.size());
  for (const std::string& head : heads) columns.push_back(read_head(head));
  return columns;
}

}  // namespace Jobs::Csv
