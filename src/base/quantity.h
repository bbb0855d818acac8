// A value with units and a state, and the value of an enumeration.
#ifndef KELPBOX_BASE_QUANTITY_H_
#define KELPBOX_BASE_QUANTITY_H_

#include <bit>
#include <cstdint>
#include <ostream>
#include <string>

#include "base/units.h"

namespace Base {

// A real value that has not been set: a signalling NaN, which no computation produces.
inline constexpr std::uint64_t UNSET_REAL_BITS = 0x7FF0000000000001;
inline const double UNSET_REAL = std::bit_cast<double>(UNSET_REAL_BITS);

// The prefix field of Units that marks an enumeration. The row field then holds its type number.
inline constexpr std::uint32_t ENUM_MARKER = 170;

// Whether a value can be read, and what is printed after it.
struct ValueState {
  char mark = 0;            // printed after the letters of the state; 0 for none
  std::uint32_t state = 1;  // 0 invalid, 1 valid, 2 low, 3 high, 4 low and high

  bool invalid() const { return state == 0; }

  bool operator==(const ValueState&) const = default;
};

// The state of a value that is declared but not yet set.
inline constexpr ValueState InvalidState{0, 0};

// A member of an enumeration (enumerations.h).
struct EnumValue {
  std::int32_t type = 0;
  std::uint32_t member = 0;
  ValueState state;
};

// A number in the units in which it was given, or a member of an enumeration.
struct Quantity {
  Units units;
  double value = 0.0;
  ValueState state = InvalidState;

  // Unit row 0, value 0, invalid.
  Quantity() = default;
  // UNSET_REAL in the given units, invalid.
  explicit Quantity(Units units);
  Quantity(double value, Units units, ValueState state = {});
  // A plain number.
  Quantity(double value, ValueState state);
  // In the default units of the category.
  Quantity(double value, UnitCategory category, ValueState state = {});
  explicit Quantity(const EnumValue& member);

  bool is_enum() const { return units.prefix == ENUM_MARKER; }

  // The value in the given units, whatever the state: an unset value is returned as NaN. Throws as
  // `factor`.
  double get(Units to) const;
  // The value in the base unit of the category. Throws "Invalid value" for an invalid quantity, and
  // as `factor_to_base`.
  double get(UnitCategory category) const;
  // Stores a value given in the base unit of the category. Keeps the units, and makes an invalid
  // quantity valid. Throws as `factor_to_base`.
  void set(UnitCategory category, double base_value);

  // The enumeration's type number. Throws "Not an enum".
  std::int32_t enum_type() const;
  // The member number. Throws, in this order, "Not an enum", "Invalid value", the range messages of
  // make_enum, and "Accessing enum of wrong type".
  std::uint32_t enum_value(std::int32_t type) const;
  // The member that is held, even in an invalid quantity. Throws "Not an enum" and the range
  // messages of make_enum.
  EnumValue held_member() const;

  // Whether the row field's unit converts to the given unit row (units.h).
  bool compatible(std::uint32_t row) const;
};

// Writes for example "1.5m", "1.5m[I]" or "Window::Hamming".
std::ostream& operator<<(std::ostream& out, const Quantity& quantity);

}  // namespace Base

#endif  // KELPBOX_BASE_QUANTITY_H_
