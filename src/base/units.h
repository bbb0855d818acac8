// Units of measure: the table of units, the table of prefixes, and the conversions.
//
// A unit is text for the host ("mm", "ft/s", "kHz") and a pair of table rows inside. All
// tables are constant, and every failure is thrown as a std::string.
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

// A category number, 1 to 23. A plain number, since hosts and site data carry it as one and a
// number out of range must be reported, not be impossible.
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

// The units that a text names. A whole name comes before a prefixed one: "ms" is metre
// seconds, "msec" is a millisecond. Throws "Unknown units - " and the text.
Units resolve_units(std::string_view text);

// The units that a value of the category takes when none are given.
// Throws "Set value N not supported" for a number below 1 or above 23.
Units default_units(UnitCategory category);

// The category of the units' row.
UnitCategory category_of(Units units);

// The prefix letter, if any, and the row's name.
std::string units_text(Units units);
std::ostream& operator<<(std::ostream& out, Units units);

// Whether values of the two rows convert: the same category, or frequency and angular rate.
// Prefixes do not matter.
bool compatible(Units units, std::uint32_t row);

// The number by which a value in `from` is multiplied to express it in `to`.
// Throws `Unable to convert from "<from>" to "<to>"`.
double factor(Units from, Units to);

// The number by which a value in `units` is multiplied to express it in the base unit of the
// category (whose factor is 1.0; kilograms for a mass). Throws as `factor` does.
double factor_to_base(Units units, UnitCategory category);

// The units that a host may offer its user beside the given ones.
std::vector<std::string> alternate(Units units);

}  // namespace Base

#endif  // KELPBOX_BASE_UNITS_H_
