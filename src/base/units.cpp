#include "base/units.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>

#include "base/compose.h"
#include "base/constants.h"
#include "base/unit_table.h"

namespace Base {
namespace {

// A row outside the table counts as the error row, so units from damaged data do not convert.
const UnitRow& row_of(std::uint32_t row) { return unit_table[row < unit_table.size() ? row : 0]; }

std::unordered_map<std::string_view, std::uint32_t> index_names() {
  std::unordered_map<std::string_view, std::uint32_t> index;
  for (std::uint32_t row = 1; row < unit_table.size(); ++row) {
    index.emplace(unit_table[row].name, row);
  }
  for (const UnitAlias& alias : unit_aliases) {
    index.emplace(alias.name, alias.row);
  }
  return index;
}

std::optional<std::uint32_t> find_row(std::string_view name) {
  static const auto index = index_names();
  const auto found = index.find(name);
  if (found == index.end()) {
    return std::nullopt;
  }
  return found->second;
}

// The row of the prefix with that letter, or 0.
std::uint32_t prefix_of(char letter) {
  for (std::uint32_t prefix = 1; prefix < prefix_table.size(); ++prefix) {
    if (prefix_table[prefix].letter == letter) {
      return prefix;
    }
  }
  return 0;
}

[[noreturn]] void throw_no_conversion(Units from, Units to) {
  throw "Unable to convert from \"" + units_text(from) + "\" to \"" + units_text(to) + "\"";
}

bool is_rate(UnitCategory category) {
  return category == Category::frequency || category == Category::angrate;
}

bool categories_convert(UnitCategory from, UnitCategory to) {
  return from == to || (is_rate(from) && is_rate(to));
}

// The factor f between two rows, adjusted for the step between cycles and radians.
double across_categories(double f, Units from, UnitCategory from_category, Units to,
                         UnitCategory to_category) {
  if (!categories_convert(from_category, to_category)) {
    throw_no_conversion(from, to);
  }
  if (from_category == to_category) {
    return f;
  }
  return to_category == Category::angrate ? f * TwoPi : f / TwoPi;
}

}  // namespace

Units resolve_units(std::string_view text) {
  if (const auto row = find_row(text)) {
    return {*row, 0};
  }
  const std::uint32_t prefix = prefix_of(text.front());  // no text is the unit of plain numbers
  if (prefix != 0) {
    if (const auto row = find_row(text.substr(1))) {
      return {*row, prefix};
    }
  }
  throw "Unknown units - " + std::string(text);
}

Units default_units(UnitCategory category) {
  if (category < 1 || category >= default_units_table.size()) {
    throw compose("Set value ", category, " not supported");
  }
  return default_units_table[category];
}

UnitCategory category_of(Units units) { return row_of(units.row).category; }

std::string units_text(Units units) {
  std::string text;
  if (units.prefix > 0 && units.prefix < prefix_table.size()) {
    text += prefix_table[units.prefix].letter;
  }
  text += row_of(units.row).name;
  return text;
}

std::ostream& operator<<(std::ostream& out, Units units) { return out << units_text(units); }

bool compatible(Units units, std::uint32_t row) {
  return categories_convert(category_of(units), row_of(row).category);
}

double factor(Units from, Units to) {
  const UnitRow& a = row_of(from.row);
  const UnitRow& b = row_of(to.row);
  const double f = across_categories(a.factor / b.factor, from, a.category, to, b.category);
  // Equal prefixes cancel, even between rows of different powers: hosts rely on this.
  if (from.prefix == to.prefix) {
    return f;
  }
  if (from.prefix >= prefix_table.size() || to.prefix >= prefix_table.size()) {
    throw_no_conversion(from, to);
  }
  const double from_multiplier = prefix_table[from.prefix].multiplier;
  const double to_multiplier = prefix_table[to.prefix].multiplier;
  if (a.power < 2 && b.power < 2) {
    return f * from_multiplier / to_multiplier;
  }
  return f * std::pow(from_multiplier, a.power) / std::pow(to_multiplier, b.power);
}

double factor_to_base(Units units, UnitCategory category) {
  const UnitRow& row = row_of(units.row);
  const Units wanted = default_units(category);
  const double f = across_categories(row.factor, units, row.category, wanted, category);
  if (units.prefix >= prefix_table.size()) {
    throw_no_conversion(units, wanted);
  }
  const double multiplier = prefix_table[units.prefix].multiplier;
  return row.power >= 2 ? f * std::pow(multiplier, row.power) : f * multiplier;
}

std::vector<std::string> alternate(Units units) {
  std::vector<std::string> offered;
  switch (category_of(units)) {
    case Category::length:
      offered = {"m", "cm", "mm", "ft", "in"};
      break;
    case Category::time:
      offered = {"s", "min", "h"};
      break;
    case Category::frequency:
    case Category::angrate:
      offered = {"Hz", "rad/s"};
      break;
    case Category::angle:
      offered = {"rad", "deg"};
      break;
    default:
      break;
  }
  std::string text = units_text(units);
  if (std::find(offered.begin(), offered.end(), text) == offered.end()) {
    offered.insert(offered.begin(), std::move(text));
  }
  return offered;
}

}  // namespace Base
