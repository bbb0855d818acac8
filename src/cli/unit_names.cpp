#include "cli/unit_names.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/unit_table.h"
#include "jobs/nearest.h"
#include "jobs/quantity_text.h"

namespace Cli {
namespace {

using Spelt = std::pair<std::string_view, std::string_view>;

// In the singular; "feet" and "inches" are listed because they are no plain plurals.
constexpr std::array<Spelt, 41> spelt_out{{
    {"metre", "m"},       {"meter", "m"},          {"millimetre", "mm"},
    {"millimeter", "mm"}, {"centimetre", "cm"},    {"centimeter", "cm"},
    {"kilometre", "km"},  {"kilometer", "km"},     {"inch", "in"},
    {"inches", "in"},     {"foot", "ft"},          {"feet", "ft"},
    {"yard", "yd"},       {"mile", "mi"},          {"knot", "kn"},
    {"second", "s"},      {"millisecond", "msec"}, {"minute", "min"},
    {"hour", "h"},        {"hertz", "Hz"},         {"degree", "deg"},
    {"\u00b0", "deg"},    {"radian", "rad"},       {"gram", "g"},
    {"kilogram", "kg"},   {"tonne", "Mg"},         {"pound", "lb"},
    {"ounce", "oz"},      {"newton", "N"},         {"pascal", "Pa"},
    {"litre", "L"},       {"liter", "L"},          {"l", "L"},
    {"joule", "J"},       {"watt", "W"},           {"volt", "V"},
    {"amp", "A"},         {"ampere", "A"},         {"mps", "m/s"},
    {"rev/min", "r/min"}, {"percent", ""},
}};

bool resolves(std::string_view text) {
  try {
    Base::resolve_units(text);
    return true;
  } catch (const std::string&) {
    return false;
  }
}

void replace_all(std::string& text, std::string_view from, std::string_view to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

// Without signs of powers and products: "m/s^2" is "m/s2" here.
std::string without_signs(std::string text) {
  replace_all(text, "\u00b2", "2");
  replace_all(text, "\u00b3", "3");
  for (const std::string_view sign : {"^", "*", "\u00b7", " "}) replace_all(text, sign, "");
  return text;
}

std::string lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

std::vector<std::string> all_names() {
  std::vector<std::string> names;
  for (std::size_t row = 2; row < Base::unit_table.size(); ++row) {
    names.emplace_back(Base::unit_table[row].name);
  }
  for (const Base::UnitAlias& alias : Base::unit_aliases) names.emplace_back(alias.name);
  for (const std::string_view unit : {"m", "sec", "Hz", "N", "Pa", "W", "J", "V", "A", "rad"}) {
    for (const std::string_view prefix : {"G", "M", "k", "c", "m", "u"}) {
      names.push_back(std::string(prefix) + std::string(unit));
    }
  }
  return names;
}

}  // namespace

std::vector<std::string> units_of_kind(Base::UnitCategory category) {
  std::vector<std::string> names;
  for (std::size_t row = 1; row < Base::unit_table.size(); ++row) {
    if (Base::unit_table[row].category != category) continue;
    if (!Base::unit_table[row].name.empty()) names.emplace_back(Base::unit_table[row].name);
    for (const Base::UnitAlias& alias : Base::unit_aliases) {
      if (alias.row == row) names.emplace_back(alias.name);
    }
  }
  return names;
}

std::string kind_name(Base::UnitCategory category) {
  const std::string kind = Jobs::kind_of(Base::default_units(category));
  return kind.substr(kind.find(' ') + 1);  // the whole if there is no blank
}

std::optional<std::string> likely_unit(std::string_view text) {
  const std::string cleaned = without_signs(std::string(text));
  if (!cleaned.empty() && resolves(cleaned)) return cleaned;
  const std::string word = lower(cleaned);
  for (const auto& [spelt, unit] : spelt_out) {
    if (word == spelt || word == std::string(spelt) + "s") return std::string(unit);
  }
  return Jobs::nearest(cleaned, all_names());
}

}  // namespace Cli
