// The plain data behind units.h: units, their further names, prefixes, defaults of categories.
//
// Row numbers are part of the data, since Units values hold them.
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
  std::uint32_t power;  // the exponent that a prefix takes
  double factor;        // one such unit in the base unit of its category
};

// A further text that resolves to a row.
struct UnitAlias {
  std::string_view name;
  std::uint32_t row;
};

struct PrefixRow {
  char letter;
  double multiplier;
};

// Row 0 is no unit and cannot be reached from text; row 1 is the plain number.
extern const std::array<UnitRow, 90> unit_table;
extern const std::array<UnitAlias, 8> unit_aliases;
// Row 0 is no prefix.
extern const std::array<PrefixRow, 10> prefix_table;
// By category number; the entry of category 0 is never given out.
extern const std::array<Units, 24> default_units_table;

}  // namespace Base

#endif  // KELPBOX_BASE_UNIT_TABLE_H_
