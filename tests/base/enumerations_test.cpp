#include "base/enumerations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/thrown.h"

namespace {

using Base::EnumValue;
using Base::ValueState;
using Testing::thrown;

struct EnumFact {
  std::string type;
  std::vector<std::string> members;
};

const std::vector<EnumFact> enum_facts = {
    {"Bool", {"False", "True"}},
    {"Window",
     {"Null", "Barlett", "BarlettHann", "Blackman", "BlackmanHarris", "BlackmanNuttall", "Hamming",
      "Nuttall", "Triangular", "Rectangular"}},
    {"Ramp", {"Null", "Sine", "Linear"}},
    {"RanGen", {"Default", "FullRandom", "Distribute"}},
    {"WaveMerge", {"Null", "RMS", "Random"}},
    {"WaveMod",
     {"GainAdjust", "AngleSweep", "AngleSpread", "AngleSet", "AngleChange", "PhaseRandom",
      "PhaseWNoise", "PhaseSet", "PhaseChange"}},
    {"DataMod", {"Null", "Wrap", "Stretch"}},
    {"Geometry", {"NoSides", "PlusSide", "MinusSide", "BothSides", "TwoDimensional"}},
    {"SpreadFunc", {"CosS", "Cos2S"}},
};

TEST(Enumerations, EveryMemberIsFoundByNameAndByNumber) {
  for (std::int32_t type = 0; type < 9; ++type) {
    const EnumFact& fact = enum_facts[type];
    for (std::uint32_t member = 0; member < fact.members.size(); ++member) {
      const EnumValue by_name = Base::make_enum(fact.type, fact.members[member]);
      EXPECT_EQ(by_name.type, type);
      EXPECT_EQ(by_name.member, member);
      EXPECT_EQ(by_name.state, (ValueState{0, 1}));
      const EnumValue by_number = Base::make_enum(type, member);
      EXPECT_EQ(by_number.type, type);
      EXPECT_EQ(by_number.member, member);
      EXPECT_EQ(Base::type_name(by_number), fact.type);
      EXPECT_EQ(Base::member_name(by_number), fact.members[member]);
      std::ostringstream out;
      out << by_number;
      EXPECT_EQ(out.str(), fact.type + "::" + fact.members[member]);
    }
    const std::uint32_t beyond = static_cast<std::uint32_t>(fact.members.size());
    EXPECT_EQ(thrown([&] { Base::make_enum(type, beyond); }),
              "Value \"" + std::to_string(beyond) + "\" out of range in enum");
  }
}

TEST(Enumerations, EveryTypeNumberHasItsName) {
  const std::vector<std::pair<std::string, std::int32_t>> numbers = {
      {"Bool", Base::EnumType::Bool},
      {"Window", Base::EnumType::Window},
      {"Ramp", Base::EnumType::Ramp},
      {"RanGen", Base::EnumType::RanGen},
      {"WaveMerge", Base::EnumType::WaveMerge},
      {"WaveMod", Base::EnumType::WaveMod},
      {"DataMod", Base::EnumType::DataMod},
      {"Geometry", Base::EnumType::Geometry},
      {"SpreadFunc", Base::EnumType::SpreadFunc}};
  for (const auto& [name, number] : numbers) {
    EXPECT_EQ(Base::enum_of_type(name).type, number) << name;
  }
  EXPECT_EQ(Base::make_enum("Bool", "True").member, Base::Bool::True);
  EXPECT_EQ(Base::make_enum("Bool", "False").member, Base::Bool::False);
  EXPECT_EQ(Base::make_enum("WaveMerge", "Null").member, Base::WaveMerge::Null);
  EXPECT_EQ(Base::make_enum("WaveMerge", "RMS").member, Base::WaveMerge::RMS);
  EXPECT_EQ(Base::make_enum("WaveMerge", "Random").member, Base::WaveMerge::Random);
}

TEST(Enumerations, ATypeWithoutAMemberIsItsFirstMemberMarkedInvalid) {
  for (std::int32_t type = 0; type < 9; ++type) {
    for (const EnumValue& value :
         {Base::enum_of_type(enum_facts[type].type), Base::enum_of_type(type)}) {
      EXPECT_EQ(value.type, type);
      EXPECT_EQ(value.member, 0u);
      EXPECT_EQ(value.state, (ValueState{0, 0}));
    }
  }
}

TEST(Enumerations, TheGivenStateIsKept) {
  EXPECT_EQ(Base::make_enum("Ramp", "Sine", {'*', 3}).state, (ValueState{'*', 3}));
  EXPECT_EQ(Base::make_enum(2, 1, {'?', 0}).state, (ValueState{'?', 0}));
}

TEST(Enumerations, NamesAreMatchedExactly) {
  EXPECT_EQ(Base::make_enum("Window", "Barlett").member, 1u);
  EXPECT_EQ(thrown([] { Base::make_enum("Window", "Bartlett"); }),
            "Enum type::Window::Bartlett::Not found");
  EXPECT_EQ(thrown([] { Base::make_enum("window", "Barlett"); }), "Enum type::window::Not found");
  EXPECT_EQ(thrown([] { Base::make_enum("Window", "hamming"); }),
            "Enum type::Window::hamming::Not found");
  EXPECT_EQ(thrown([] { Base::enum_of_type("window"); }), "Enum type::window::Not found");
  EXPECT_EQ(thrown([] { Base::enum_of_type(""); }), "Enum type::::Not found");
  EXPECT_EQ(thrown([] { Base::make_enum("Ramp", ""); }), "Enum type::Ramp::::Not found");
}

TEST(Enumerations, NullBelongsToFourTypes) {
  for (const char* type : {"Window", "Ramp", "WaveMerge", "DataMod"}) {
    EXPECT_EQ(Base::make_enum(type, "Null").member, 0u) << type;
  }
  for (const std::string type : {"Bool", "RanGen", "WaveMod", "Geometry", "SpreadFunc"}) {
    EXPECT_EQ(thrown([&] { Base::make_enum(type, "Null"); }),
              "Enum type::" + type + "::Null::Not found");
  }
}

TEST(Enumerations, NumbersOutOfRangeAreRefused) {
  EXPECT_EQ(thrown([] { Base::make_enum(2, 3); }), "Value \"3\" out of range in enum");
  EXPECT_EQ(thrown([] { Base::make_enum(10, 0); }), "Type \"10\" out of range in enum");
  EXPECT_EQ(thrown([] { Base::make_enum(10, 99); }), "Type \"10\" out of range in enum");
  EXPECT_EQ(thrown([] { Base::enum_of_type(10); }), "Type \"10\" out of range in enum");
}

// Only numbers above 9 fail the check of the type; 9 and negative numbers pass and have no members.
TEST(Enumerations, AcceptedTypeNumbersOutsideTheTableHaveNoMembers) {
  constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
  for (const std::int32_t type : {9, -1, lowest}) {
    EXPECT_EQ(Base::enum_of_type(type).type, type);
    EXPECT_EQ(thrown([&] { Base::make_enum(type, 0); }), "Value \"0\" out of range in enum");
    const std::string message = "Type \"" + std::to_string(type) + "\" out of range in enum";
    EXPECT_EQ(thrown([&] { Base::type_name({type, 0, {}}); }), message);
    EXPECT_EQ(thrown([&] { Base::member_name({type, 0, {}}); }), message);
  }
  EXPECT_EQ(thrown([] { Base::member_name({2, 3, {}}); }), "Value \"3\" out of range in enum");
}

TEST(Enumerations, AStreamWritesTypeAndMember) {
  std::ostringstream out;
  out << Base::make_enum(1, 6);
  EXPECT_EQ(out.str(), "Window::Hamming");
}

}  // namespace
