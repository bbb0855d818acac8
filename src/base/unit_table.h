// The constant data behind units.h: units, their aliases, prefixes, default units of categories.
//
// Row numbers must not change, because Units values hold them.
#ifndef KELPBOX_BASE_UNIT_TABLE_H_
#define KELPBOX_BASE_UNIT_TABLE_H_

#include <array>
#include <cstdint>
#include <string_view>

#include "base/units.h"

namespace Base {

struct UnitRow {
  std::string_view name;
  UnitCategory category;
  std::uint32_t power;  // the exponent of the prefix: 3 for m3, so that 1 cm3 = 1e-6 m3
  double factor;        // the value of one unit in the base unit of its category
};

// Another name for a row.
struct UnitAlias {
  std::string_view name;
  std::uint32_t row;
};

struct PrefixRow {
  char letter;
  double multiplier;
};

// Row 0 is not a unit and has no name that resolves. Row 1 is the plain number.
extern const std::array<UnitRow, 90> unit_table;
extern const std::array<UnitAlias, 8> unit_aliases;
// Row 0 means no prefix.
extern const std::array<PrefixRow, 10> prefix_table;
// Indexed by category number. The entry of category 0 is not used.
extern const std::array<Units, 24> default_units_table;

}  // namespace Base

#endif  // KELPBOX_BASE_UNIT_TABLE_H_
