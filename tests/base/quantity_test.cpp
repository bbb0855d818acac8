#include "base/quantity.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <iomanip>
#include <limits>
#include <numbers>
#include <sstream>
#include <vector>

#include "base/enumerations.h"
#include "support/thrown.h"

namespace {

using Base::Quantity;
using Base::resolve_units;
using Base::Units;
using Base::ValueState;
using Testing::thrown;
namespace Category = Base::Category;

template <typename T>
std::string written(const T& value) {
  std::ostringstream out;
  out << value;
  return out.str();
}

Quantity held_enum(double value, std::uint32_t type, ValueState state = {}) {
  return Quantity(value, Units{type, Base::ENUM_MARKER}, state);
}

TEST(Quantity, DefaultIsInvalid) {
  const Quantity quantity;
  EXPECT_EQ(quantity.units, (Units{0, 0}));
  EXPECT_EQ(quantity.value, 0.0);
  EXPECT_EQ(quantity.state, (ValueState{0, 0}));
}

TEST(Quantity, ConstructedFromUnitsIsUnset) {
  const Quantity quantity(Units{8, 6});
  EXPECT_EQ(quantity.units, (Units{8, 6}));
  EXPECT_EQ(std::bit_cast<std::uint64_t>(quantity.value), 0x7FF0000000000001u);
  EXPECT_EQ(quantity.state, (ValueState{0, 0}));
}

TEST(Quantity, CopiesKeepTheBitPatternOfAnUnsetValue) {
  const Quantity original(Units{8, 0});
  std::vector<Quantity> copies(3, original);
  copies.push_back(copies.front());
  copies.reserve(100);
  Quantity assigned;
  assigned = copies.back();
  EXPECT_EQ(std::bit_cast<std::uint64_t>(assigned.value), 0x7FF0000000000001u);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(Base::UNSET_REAL), 0x7FF0000000000001u);
}

TEST(Quantity, ConstructedFromAValueHasTheGivenOrDefaultUnits) {
  const Quantity as_given(2.5, Units{4, 0}, {'x', 2});
  EXPECT_EQ(as_given.units, (Units{4, 0}));
  EXPECT_EQ(as_given.value, 2.5);
  EXPECT_EQ(as_given.state, (ValueState{'x', 2}));

  const Quantity plain(2.5, ValueState{});
  EXPECT_EQ(plain.units, (Units{1, 0}));
  EXPECT_EQ(plain.state, (ValueState{0, 1}));

  const Quantity mass(2.5, Category::mass);
  EXPECT_EQ(mass.units, (Units{72, 2}));
  EXPECT_EQ(mass.value, 2.5);
  EXPECT_EQ(mass.get(Category::mass), 2500.0);
  EXPECT_EQ(thrown([] { Quantity(1.0, Category::error); }), "Set value 0 not supported");
}

TEST(Quantity, ConstructedFromAnEnumerationMemberHoldsItsNumber) {
  const Quantity quantity(Base::make_enum("Window", "Hamming", {'!', 4}));
  EXPECT_TRUE(quantity.is_enum());
  EXPECT_EQ(quantity.units, (Units{1, 170}));
  EXPECT_EQ(quantity.value, 6.0);
  EXPECT_EQ(quantity.state, (ValueState{'!', 4}));
  EXPECT_FALSE(Quantity(1.0, Category::length).is_enum());
}

TEST(Quantity, ReadingInUnitsIgnoresTheState) {
  EXPECT_DOUBLE_EQ(Quantity(3.0, resolve_units("ft")).get(resolve_units("m")), 0.9144);
  EXPECT_DOUBLE_EQ(Quantity(3.0, resolve_units("ft"), Base::InvalidState).get(resolve_units("m")),
                   0.9144);
  EXPECT_TRUE(std::isnan(Quantity(resolve_units("ft")).get(resolve_units("m"))));
  EXPECT_DOUBLE_EQ(Quantity(2.0, resolve_units("Hz")).get(resolve_units("rad/s")),
                   4.0 * std::numbers::pi);
}

TEST(Quantity, ReadingByCategoryRefusesAnInvalidValue) {
  EXPECT_DOUBLE_EQ(Quantity(3.0, resolve_units("cm")).get(Category::length), 0.03);
  EXPECT_DOUBLE_EQ(Quantity(3.0, resolve_units("cm"), {0, 4}).get(Category::length), 0.03);
  EXPECT_EQ(thrown([] { Quantity(resolve_units("cm")).get(Category::length); }), "Invalid value");
  // The state is checked before the units.
  EXPECT_EQ(thrown([] { Quantity(resolve_units("cm")).get(Category::time); }), "Invalid value");
  EXPECT_EQ(thrown([] { Quantity(1.0, resolve_units("cm")).get(Category::time); }),
            "Unable to convert from \"cm\" to \"s\"");
}

TEST(Quantity, SetKeepsTheUnits) {
  Quantity quantity(resolve_units("cm"));
  quantity.set(Category::length, 1.0);
  EXPECT_DOUBLE_EQ(quantity.value, 100.0);
  EXPECT_EQ(quantity.units, resolve_units("cm"));
  EXPECT_EQ(quantity.state, (ValueState{0, 1}));

  Quantity mass(1.0, Category::mass);
  mass.set(Category::mass, 500.0);
  EXPECT_DOUBLE_EQ(mass.value, 0.5);
}

TEST(Quantity, SetChangesOnlyAnInvalidState) {
  Quantity marked(1.0, resolve_units("m"), {'*', 0});
  marked.set(Category::length, 2.0);
  EXPECT_EQ(marked.state, (ValueState{0, 1}));
  Quantity high(1.0, resolve_units("m"), {'*', 3});
  high.set(Category::length, 2.0);
  EXPECT_EQ(high.state, (ValueState{'*', 3}));
}

TEST(Quantity, AFailedSetChangesNothing) {
  Quantity quantity(resolve_units("cm"));
  EXPECT_EQ(thrown([&] { quantity.set(Category::time, 1.0); }),
            "Unable to convert from \"cm\" to \"s\"");
  EXPECT_EQ(quantity.state, Base::InvalidState);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(quantity.value), Base::UNSET_REAL_BITS);
}

TEST(Quantity, EnumMembersAreHeldExactly) {
  for (std::uint32_t member = 0; member < 10; ++member) {
    const Quantity quantity(Base::make_enum(Base::EnumType::Window, member));
    EXPECT_EQ(quantity.enum_type(), Base::EnumType::Window);
    EXPECT_EQ(quantity.enum_value(Base::EnumType::Window), member);
  }
}

TEST(Quantity, EnumMembersAreTruncatedTowardZero) {
  EXPECT_EQ(held_enum(2.999, 1).enum_value(1), 2u);
  EXPECT_EQ(held_enum(-0.999, 1).enum_value(1), 0u);
  EXPECT_EQ(held_enum(9.5, 1).enum_value(1), 9u);
  EXPECT_EQ(thrown([] { held_enum(10.0, 1).enum_value(1); }), "Value \"10\" out of range in enum");
}

TEST(Quantity, NumbersOutsideTheMembersAreOutOfRange) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const std::string message = "Value \"4294967295\" out of range in enum";
  for (const double value : {-1.0, -1e300, 4294967295.0, 4294967296.0, 1e300, infinity, -infinity,
                             std::nan(""), Base::UNSET_REAL}) {
    EXPECT_EQ(thrown([&] { held_enum(value, 1).enum_value(1); }), message) << value;
    EXPECT_EQ(thrown([&] { written(held_enum(value, 1)); }), message) << value;
  }
}

TEST(Quantity, EnumChecksHaveAFixedOrder) {
  const Quantity number(1.0, Category::length, Base::InvalidState);
  EXPECT_EQ(thrown([&] { number.enum_type(); }), "Not an enum");
  EXPECT_EQ(thrown([&] { number.enum_value(1); }), "Not an enum");
  EXPECT_EQ(thrown([] { held_enum(99.0, 10, Base::InvalidState).enum_value(1); }), "Invalid value");
  EXPECT_EQ(thrown([] { held_enum(99.0, 10).enum_value(1); }), "Type \"10\" out of range in enum");
  EXPECT_EQ(thrown([] { held_enum(99.0, 2).enum_value(1); }), "Value \"99\" out of range in enum");
  EXPECT_EQ(thrown([] { held_enum(1.0, 2).enum_value(1); }), "Accessing enum of wrong type");
  EXPECT_EQ(held_enum(0.0, 0, Base::InvalidState).enum_type(), 0);
}

TEST(Quantity, CompatibleReadsAnEnumerationTypeAsAUnitRow) {
  EXPECT_TRUE(Quantity(1.0, resolve_units("km")).compatible(4));
  EXPECT_TRUE(Quantity(1.0, resolve_units("Hz")).compatible(81));
  EXPECT_FALSE(Quantity(1.0, resolve_units("s")).compatible(52));
  // Type 3, RanGen, equals the row of the inch; type 0, Bool, the error row.
  EXPECT_TRUE(held_enum(0.0, 3).compatible(8));
  EXPECT_FALSE(held_enum(0.0, 0).compatible(8));
}

TEST(Quantity, AnEnumerationDoesNotConvert) {
  EXPECT_EQ(thrown([] { held_enum(1.0, 3).get(resolve_units("m")); }),
            "Unable to convert from \"in\" to \"m\"");
  EXPECT_EQ(thrown([] { held_enum(1.0, 3).get(Category::length); }),
            "Unable to convert from \"in\" to \"m\"");
}

TEST(Quantity, WritesValueUnitsAndState) {
  EXPECT_EQ(written(Quantity(1.5, Category::length)), "1.5m");
  EXPECT_EQ(written(Quantity(1.5, Category::length, Base::InvalidState)), "1.5m[I]");
  EXPECT_EQ(written(Quantity(1.5, Category::length, {0, 2})), "1.5m[L]");
  EXPECT_EQ(written(Quantity(1.5, Category::length, {0, 3})), "1.5m[H]");
  EXPECT_EQ(written(Quantity(1.5, Category::length, {0, 4})), "1.5m[LH]");
  EXPECT_EQ(written(Quantity(1.5, Category::length, {'*', 1})), "1.5m[*]");
  EXPECT_EQ(written(Quantity(1.5, Category::length, {'*', 0})), "1.5m[I*]");
  EXPECT_EQ(written(Quantity(1.5, Category::length, {'*', 4})), "1.5m[LH*]");
  EXPECT_EQ(written(Quantity(1.5, Category::length, {0, 5})), "1.5m");
  EXPECT_EQ(written(Quantity(2.0, resolve_units("kg/m3"))), "2kg/m3");
  EXPECT_EQ(written(Quantity(2.0, ValueState{})), "2");
  EXPECT_EQ(written(Quantity()), "0Error[I]");
  EXPECT_EQ(written(Quantity(resolve_units("m"))), "nanm[I]");
}

TEST(Quantity, WritesAnEnumerationByNameWithoutState) {
  EXPECT_EQ(written(Quantity(Base::make_enum("Window", "Hamming"))), "Window::Hamming");
  EXPECT_EQ(written(Quantity(Base::enum_of_type("Ramp"))), "Ramp::Null");
}

TEST(Quantity, WritesInTheFormatOfTheStream) {
  std::ostringstream out;
  out << Quantity(1.0 / 3.0, Category::length) << ' ' << std::fixed << std::setprecision(2)
      << Quantity(1.0 / 3.0, Category::length);
  EXPECT_EQ(out.str(), "0.333333m 0.33m");
}

}  // namespace
