#include "base/quantity.h"

#include <iterator>
#include <limits>

#include "base/enumerations.h"

namespace Base {
namespace {

// Truncates toward zero. A value outside 32 bits, or NaN, becomes a number that every range check
// refuses.
std::uint32_t member_number(double value) {
  constexpr double two_to_32 = 4294967296.0;
  if (value > -1.0 && value < two_to_32) {
    return static_cast<std::uint32_t>(value);
  }
  return std::numeric_limits<std::uint32_t>::max();
}

std::string state_text(ValueState state) {
  static constexpr const char* letters[] = {"I", "", "L", "H", "LH"};
  std::string text = state.state < std::size(letters) ? letters[state.state] : "";
  if (state.mark != 0) {
    text += state.mark;
  }
  return text;
}

}  // namespace

Quantity::Quantity(Units in_units) : units(in_units), value(UNSET_REAL) {}

Quantity::Quantity(double in_value, Units in_units, ValueState in_state)
    : units(in_units), value(in_value), state(in_state) {}

Quantity::Quantity(double in_value, ValueState in_state)
    : Quantity(in_value, Category::unit, in_state) {}

Quantity::Quantity(double in_value, UnitCategory category, ValueState in_state)
    : Quantity(in_value, default_units(category), in_state) {}

Quantity::Quantity(const EnumValue& member)
    : units{static_cast<std::uint32_t>(member.type), ENUM_MARKER},
      value(member.member),
      state(member.state) {}

double Quantity::get(Units to) const { return value * factor(units, to); }

double Quantity::get(UnitCategory category) const {
  if (state.invalid()) {
    throw std::string("Invalid value");
  }
  return value * factor_to_base(units, category);
}

void Quantity::set(UnitCategory category, double base_value) {
  value = base_value / factor_to_base(units, category);
  if (state.invalid()) {
    state = ValueState{};
  }
}

std::int32_t Quantity::enum_type() const {
  if (!is_enum()) {
    throw std::string("Not an enum");
  }
  return static_cast<std::int32_t>(units.row);
}

std::uint32_t Quantity::enum_value(std::int32_t type) const {
  const std::int32_t own_type = enum_type();
  if (state.invalid()) {
    throw std::string("Invalid value");
  }
  const std::uint32_t member = held_member().member;
  if (own_type != type) {
    throw std::string("Accessing enum of wrong type");
  }
  return member;
}

EnumValue Quantity::held_member() const { return make_enum(enum_type(), member_number(value)); }

bool Quantity::compatible(std::uint32_t row) const { return Base::compatible(units, row); }

std::ostream& operator<<(std::ostream& out, const Quantity& quantity) {
  if (quantity.is_enum()) {
    return out << quantity.held_member();
  }
  out << quantity.value << quantity.units;
  const std::string state = state_text(quantity.state);
  if (!state.empty()) {
    out << '[' << state << ']';
  }
  return out;
}

}  // namespace Base
