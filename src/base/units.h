// Units of measure: from text to table rows, from rows to text, and conversion factors.
//
// The host writes units as text ("mm", "ft/s", "kHz"). The library holds them as a pair of table
// rows (unit_table.h). Failures are thrown as std::string.
#ifndef KELPBOX_BASE_UNITS_H_
#define KELPBOX_BASE_UNITS_H_

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Base {

// A row of the unit table and a row of the prefix table.
struct Units {
  std::uint32_t row = 0;
  std::uint32_t prefix = 0;

  bool operator==(const Units&) const = default;
};

// A category number from 1 to 23. It is a plain number because it can come from outside, and a
// number out of range must be reported.
using UnitCategory = std::uint32_t;

namespace Category {
inline constexpr UnitCategory error = 0;
inline constexpr UnitCategory unit = 1;
inline constexpr UnitCategory length = 2;
inline constexpr UnitCategory velocity = 3;
inline constexpr UnitCategory acceleration = 4;
inline constexpr UnitCategory area = 5;
inline constexpr UnitCategory volume = 6;
inline constexpr UnitCategory force = 7;
inline constexpr UnitCategory pressure = 8;
inline constexpr UnitCategory flow = 9;
inline constexpr UnitCategory time = 10;
inline constexpr UnitCategory frequency = 11;
inline constexpr UnitCategory length_time = 12;
inline constexpr UnitCategory variance = 13;
inline constexpr UnitCategory mass = 14;
inline constexpr UnitCategory energy = 15;
inline constexpr UnitCategory power = 16;
inline constexpr UnitCategory angle = 17;
inline constexpr UnitCategory angrate = 18;
inline constexpr UnitCategory torque = 19;
inline constexpr UnitCategory density = 20;
inline constexpr UnitCategory wavenum = 21;
inline constexpr UnitCategory volts = 22;
inline constexpr UnitCategory amps = 23;
}  // namespace Category

// The units with that name. A whole name takes precedence over a prefixed one: "ms" is a metre
// second and "msec" a millisecond. Throws "Unknown units - <text>".
Units resolve_units(std::string_view text);

// The units of a value for which only the category is given. Mass and density have Mg and Mg/m3,
// which are not the base units. Throws "Set value N not supported" for a number outside 1 to 23.
Units default_units(UnitCategory category);

// The category of the unit; the prefix does not matter.
UnitCategory category_of(Units units);

// The prefix letter, if any, and the name of the unit.
std::string units_text(Units units);
std::ostream& operator<<(std::ostream& out, Units units);

// Whether the unit converts to that of the given row: both have the same category, or one is a
// frequency and the other an angular rate. Prefixes do not matter.
bool compatible(Units units, std::uint32_t row);

// The number by which a value in `from` is multiplied to express it in `to`. Throws `Unable to
// convert from "<from>" to "<to>"`.
double factor(Units from, Units to);

// The number by which a value in `units` is multiplied to express it in the base unit of the
// category, the one with factor 1.0 (for mass the kilogram). Throws as `factor`, naming the default
// units of the category as the target.
double factor_to_base(Units units, UnitCategory category);

// The units that a host can offer its user instead of the given ones. The list includes these too.
std::vector<std::string> alternate(Units units);

}  // namespace Base

#endif  // KELPBOX_BASE_UNITS_H_
