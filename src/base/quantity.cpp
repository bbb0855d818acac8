#include "base/quantity.h"

#include <iterator>
#include <limits>

#include "base/enumerations.h"

namespace Base {
namespace {

// Truncated toward zero. What is no member number becomes one that every range check refuses.
std::uint32_t member_number(double value) {
  constexpr double beyond = 4294967296.0;
  if (value > -1.0 && value < beyond) {
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
  if (state.state == 0) {
    throw std::string("Invalid value");
  }
  return value * factor_to_base(units, category);
}

void Quantity::set(UnitCategory category, double base_value) {
  value = base_value / factor_to_base(units, category);
  if (state.state == 0) {
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
  if (state.state == 0) {
    throw std::string("Invalid value");
  }
  const EnumValue held = make_enum(own_type, member_number(value));
  if (held.type != type) {
    throw std::string("Accessing enum of wrong type");
  }
  return held.member;
}

bool Quantity::compatible(std::uint32_t row) const { return Base::compatible(units, row); }

std::ostream& operator<<(std::ostream& out, const Quantity& quantity) {
  if (quantity.is_enum()) {
    return out << make_enum(quantity.enum_type(), member_number(quantity.value));
  }
  out << quantity.value << quantity.units;
  const std::string state = state_text(quantity.state);
  if (!state.empty()) {
    out << '[' << state << ']';
  }
  return out;
}

}  // namespace Base
