#include "cli/probe_place.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <sstream>

#include "cli/unit_names.h"
#include "jobs/quantity_text.h"

namespace Cli {
namespace {

bool is_name_character(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

std::string trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t,;:_");
  if (begin == std::string_view::npos) return {};
  return std::string(text.substr(begin, text.find_last_not_of(" \t,;:_") - begin + 1));
}

std::string lower(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return result;
}

struct Mark {
  std::size_t begin = std::string_view::npos;  // of the letter
  std::size_t value = 0;                       // after the "="
};

// "x=" or "x =" as a word of its own, in either case.
Mark find_mark(std::string_view text, char letter) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (std::tolower(static_cast<unsigned char>(text[at])) != letter) continue;
    if (at > 0 && is_name_character(text[at - 1])) continue;
    const std::size_t equals = text.find_first_not_of(" \t", at + 1);
    if (equals != text.npos && text[equals] == '=') return {at, equals + 1};
  }
  return {};
}

double metres(const std::string& text) {
  const Jobs::QuantityText length = Jobs::read_quantity(text);
  const Base::UnitCategory category = Base::category_of(length.units);
  if (category == Base::Category::unit) return length.value;
  if (category != Base::Category::length) {
    throw "\"" + text + "\" is " + Jobs::kind_of(length.units) + ", not a length";
  }
  return length.value * Base::factor(length.units, Base::default_units(Base::Category::length));
}

// The number that a head consists of: "9.30".
std::optional<double> number_head(std::string_view head) {
  const std::string text = trimmed(head);
  if (text.empty() || text.find_first_not_of("0123456789.+-") != text.npos) return std::nullopt;
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (*end != '\0' || !std::isfinite(value)) return std::nullopt;
  return value;
}

// The units of length after "in" in a comment that has one of the words: "mm" in "Surface elevation
// in mm". Empty if no comment has any.
std::string units_in(const std::vector<std::string>& comments,
                     std::initializer_list<std::string_view> words) {
  for (const std::string& comment : comments) {
    const std::string text = lower(comment);
    std::size_t at = text.npos;
    for (const std::string_view word : words) at = std::min(at, text.find(word));
    if (at == text.npos) continue;
    std::istringstream rest(comment.substr(at));
    rest.exceptions(std::ios_base::badbit);  // set when a word does not fit into memory
    for (std::string word; rest >> word;) {
      if (word != "in" || !(rest >> word)) continue;
      std::string units = trimmed(word.substr(0, word.find_last_not_of('.') + 1));
      try {
        if (Base::category_of(Base::resolve_units(units)) == Base::Category::length) return units;
      } catch (const std::string&) {
        // "in front of the beach"
      }
    }
  }
  return {};
}

Base::Units known_units(const std::string& units) {
  try {
    return Base::resolve_units(units);
  } catch (const std::string&) {
    const auto likely = likely_unit(units);
    throw "has unknown units \"" + units + "\"; " +
        (likely ? "a unit with a similar name is \"" + *likely + "\""
                : "`kelpbox formulas` lists all units");
  }
}

}  // namespace

ProbePlace place_in(std::string_view text) {
  const Mark x = find_mark(text, 'x');
  const Mark y = find_mark(text, 'y');
  const auto value = [&](const Mark& mark, const Mark& other) -> std::optional<double> {
    if (mark.begin == text.npos) return std::nullopt;
    const std::size_t end = other.begin > mark.begin ? other.begin : text.npos;
    return metres(trimmed(text.substr(mark.value, end - mark.value)));
  };
  ProbePlace place;
  place.name = trimmed(text.substr(0, std::min(x.begin, y.begin)));
  place.x = value(x, y);
  place.y = value(y, x);
  return place;
}

ProbePlace place_of(const Jobs::CsvColumn& column, const std::vector<std::string>& comments) {
  const std::optional<double> x = number_head(column.name);
  if (!x) return place_in(column.name);
  const std::string units = units_in(comments, {"distance", "position"});
  const bool whole = column.name.find('.') == column.name.npos;
  if (units.empty() && whole) return {"probe " + column.name, std::nullopt, std::nullopt};
  return {"", metres(column.name + units), std::nullopt};
}

Base::Units elevation_units(const Jobs::CsvColumn& column, const std::string& given,
                            const std::vector<std::string>& comments) {
  std::string units = column.units.empty() ? given : column.units;
  if (units.empty()) units = units_in(comments, {"elevation"});
  if (units.empty()) {
    throw std::string(
        "has no units; write them in its head, as in \"probe 1 [mm]\", or give "
        "--units mm");
  }
  const Base::Units resolved = known_units(units);
  if (Base::category_of(resolved) != Base::Category::length) {
    throw "is " + Jobs::kind_of(resolved) + ", not a length; choose the probes with --column";
  }
  return resolved;
}

}  // namespace Cli
