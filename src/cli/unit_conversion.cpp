#include "cli/unit_conversion.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "base/unit_table.h"
#include "base/units.h"
#include "cli/unit_names.h"
#include "jobs/quantity_text.h"

namespace Cli {
namespace {

constexpr std::string_view unknown_units = "Unknown units - ";

[[noreturn]] void throw_unknown(const std::string& units) {
  const auto likely = likely_unit(units);
  throw BadConversion{fmt::format("unknown units \"{}\"", units),
                      likely ? fmt::format("a unit with a similar name is \"{}\"", *likely)
                             : "`kelpbox formulas` lists all units"};
}

Base::Units units_named(const std::string& text) {
  try {
    return Base::resolve_units(text);
  } catch (const std::string&) {
    throw_unknown(text);
  }
}

Jobs::QuantityText read(const std::string& text) {
  try {
    return Jobs::read_quantity(text);
  } catch (const std::string& fault) {
    if (fault.starts_with(unknown_units)) throw_unknown(fault.substr(unknown_units.size()));
    try {
      if (!text.empty()) return {1.0, Base::resolve_units(text)};
    } catch (const std::string&) {
      // Neither a quantity nor units: the first message says more.
    }
    throw BadConversion{fault, "write a number and units, as in \"3 ft/s\""};
  }
}

// What looks like one unit and is another.
std::string trap_of(Base::Units units) {
  const std::string text = Base::units_text(units);
  if (text == "ms") return "ms is the metre-second, a millisecond is msec";
  if (text == "yds") return "yds is the yard-second, the yard is yd";
  if (text == "fts") return "fts is the foot-second, the foot is ft";
  if (text == "ins") return "ins is the inch-second, the inch is in";
  return "";
}

std::vector<std::string> alternatives(Base::Units units) {
  std::vector<std::string> offered = Base::alternate(units);
  if (offered.size() > 1 || Base::category_of(units) == Base::Category::unit) return offered;
  for (const std::string& name : units_of_kind(Base::category_of(units))) {
    if (std::find(offered.begin(), offered.end(), name) == offered.end()) offered.push_back(name);
  }
  return offered;
}

[[noreturn]] void throw_other_kind(const Jobs::QuantityText& given, Base::Units to) {
  const Base::Units from = given.units;
  if (Base::category_of(from) == Base::Category::unit) {
    const std::string units = Base::units_text(to);
    throw BadConversion{fmt::format("\"{:.10g}\" is a plain number, but \"{}\" is {}", given.value,
                                    units, Jobs::kind_of(to)),
                        fmt::format("give it units, such as \"{:.10g} {}\"", given.value, units)};
  }
  std::string help = trap_of(from);
  if (help.empty()) help = trap_of(to);
  if (!help.empty()) help += "; ";
  throw BadConversion{fmt::format("\"{}\" is {}, but \"{}\" is {}", Base::units_text(from),
                                  Jobs::kind_of(from), Base::units_text(to), Jobs::kind_of(to)),
                      help + fmt::format("{} can be given in {}", Jobs::kind_of(from),
                                         fmt::join(alternatives(from), ", "))};
}

// Where the library's table is not what the name says. Stored data relies on all of it.
std::vector<std::string> remarks_on(Base::Units from, Base::Units to) {
  std::vector<std::string> remarks;
  const std::string names = Base::units_text(from) + " " + Base::units_text(to);
  if (names.find("gal") != std::string::npos || names.find("pt") != std::string::npos) {
    remarks.push_back("the library's gallons and pints are ten times the real ones");
  }
  const auto is_nano = [](Base::Units units) {
    return Base::prefix_table[units.prefix].letter == 'p';
  };
  if (is_nano(from) || is_nano(to)) remarks.push_back("the prefix p is nano (1e-9) in the library");
  if (from.prefix == to.prefix && from.prefix != 0 &&
      Base::unit_table[from.row].power != Base::unit_table[to.row].power) {
    remarks.push_back("the library cancels equal prefixes, even of units of different powers");
  }
  return remarks;
}

}  // namespace

Conversion convert(const std::string& quantity, const std::string& to) {
  const Jobs::QuantityText given = read(quantity);
  Conversion conversion;
  conversion.given = {given.value, Base::units_text(given.units)};
  conversion.kind = kind_name(Base::category_of(given.units));
  const std::vector<std::string> targets =
      to.empty() ? alternatives(given.units) : std::vector<std::string>{to};
  for (const std::string& target : targets) {
    const Base::Units units = units_named(target);
    if (!Base::compatible(given.units, units.row)) throw_other_kind(given, units);
    conversion.results.push_back({given.value * Base::factor(given.units, units), target});
    for (std::string& remark : remarks_on(given.units, units)) {
      auto& known = conversion.remarks;
      if (std::find(known.begin(), known.end(), remark) == known.end()) {
        known.push_back(std::move(remark));
      }
    }
  }
  return conversion;
}

std::string text_of(const InUnits& quantity) {
  const std::string number = fmt::format("{:.10g}", quantity.value);
  return quantity.units.empty() ? number : number + " " + quantity.units;
}

}  // namespace Cli
