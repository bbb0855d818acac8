// A value with units and a state, and the value of an enumeration.
#ifndef KELPBOX_BASE_QUANTITY_H_
#define KELPBOX_BASE_QUANTITY_H_

#include <bit>
#include <cstdint>
#include <ostream>
#include <string>

#include "base/units.h"

namespace Base {

// The bit pattern of a real value that has not been set: a signalling NaN, stored by pattern
// and never computed.
inline constexpr std::uint64_t UNSET_REAL_BITS = 0x7FF0000000000001;
inline const double UNSET_REAL = std::bit_cast<double>(UNSET_REAL_BITS);

// In the prefix field of Units: the row field holds an enumeration's type number.
inline constexpr std::uint32_t ENUM_MARKER = 170;

// Whether a value may be read. States: 0 invalid, 1 valid, 2 low, 3 high, 4 low and high.
struct ValueState {
  char mark = 0;  // shown after the state's letters when not 0
  std::uint32_t state = 1;

  bool operator==(const ValueState&) const = default;
};

// The state of a value that is declared and not yet given.
inline constexpr ValueState InvalidState{0, 0};

// A member of one of the enumerations of parameters (enumerations.h).
struct EnumValue {
  std::int32_t type = 0;
  std::uint32_t member = 0;
  ValueState state;
};

// A number in the units it was given in, never normalised; or an enumeration's member.
struct Quantity {
  Units units;
  double value = 0.0;
  ValueState state = InvalidState;

  // Unit row 0, value 0, invalid.
  Quantity() = default;
  // UNSET_REAL in these units, invalid.
  explicit Quantity(Units units);
  Quantity(double value, Units units, ValueState state = {});
  // A plain number.
  Quantity(double value, ValueState state);
  // In the default units of the category.
  Quantity(double value, UnitCategory category, ValueState state = {});
  explicit Quantity(const EnumValue& member);

  bool is_enum() const { return units.prefix == ENUM_MARKER; }

  // The value in the given units. The state is not examined: an unset value passes as NaN.
  double get(Units to) const;
  // The value in the base unit of the category. Throws "Invalid value" when the state is 0.
  double get(UnitCategory category) const;
  // Stores a value given in the base unit of the category; the units stay. Makes an invalid
  // quantity valid.
  void set(UnitCategory category, double base_value);

  // The enumeration's type number. Throws "Not an enum".
  std::int32_t enum_type() const;
  // The member number. Throws "Not an enum", "Invalid value", the range messages of
  // enumerations.h, "Accessing enum of wrong type", in this order.
  std::uint32_t enum_value(std::int32_t type) const;

  // Whether the row field's unit converts to the given unit row.
  bool compatible(std::uint32_t row) const;
};

// As "1.5m", "1.5m[I]" or "Window::Hamming".
std::ostream& operator<<(std::ostream& out, const Quantity& quantity);

}  // namespace Base

#endif  // KELPBOX_BASE_QUANTITY_H_
