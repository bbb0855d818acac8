// The keys of each class, in the order of printing and of the checksum.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "site/context.h"

namespace {

using Script::VarType;

using Keys = std::vector<std::pair<std::string, VarType>>;
using Members = std::vector<std::pair<std::string, std::int32_t>>;

template <typename T>
Keys keys_of() {
  T object;
  Script::List list;
  object.declare(list);
  Keys keys;
  for (const Script::Variable& item : list.items()) keys.emplace_back(item.name(), item.type());
  return keys;
}

template <typename T>
Members members_of() {
  T field;
  Members members;
  for (const Script::Variable& item : field.members().items()) {
    members.emplace_back(item.name(), item.member_number());
  }
  return members;
}

constexpr VarType text = VarType::fixed_string;
constexpr VarType real = VarType::fixed_real;
constexpr VarType choice = VarType::fixed_enum;
constexpr VarType object = VarType::object;
constexpr VarType array = VarType::array;

TEST(Keys, TheRootHasItsKeysInOrder) {
  EXPECT_EQ(keys_of<Common::Context>(), (Keys{{"site_name", text},
                                              {"tank_name", text},
                                              {"config_name", text},
                                              {"tank", object},
                                              {"limits", object},
                                              {"wavemaker_bank", array},
                                              {"rate_units", choice},
                                              {"base_rate", real},
                                              {"base_g", real},
                                              {"base_rho", real}}));
}

TEST(Keys, TheLimitsHaveTheirKeysInOrder) {
  EXPECT_EQ(keys_of<Common::FixedLimits>(), (Keys{{"frequency", object}, {"angle", object}}));
  EXPECT_EQ(keys_of<Common::FixedLimit>(),
            (Keys{{"units", text}, {"maximum", real}, {"minimum", real}}));
}

TEST(Keys, TheTankHasItsKeysInOrder) {
  EXPECT_EQ(keys_of<Common::Tank>(), (Keys{{"geometry", choice},
                                           {"units", choice},
                                           {"max_y", real},
                                           {"min_y", real},
                                           {"section", array},
                                           {"reference_x", real},
                                           {"delta_depth", real},
                                           {"delta_x", real},
                                           {"param", array}}));
  EXPECT_EQ(keys_of<Common::Section>(), (Keys{{"x", real}, {"offset", choice}, {"depth", text}}));
}

TEST(Keys, OnlyTheValueOfATunableIsAdjustable) {
  EXPECT_EQ(keys_of<Common::Param>(), (Keys{{"name", text},
                                            {"value", VarType::adjustable_real},
                                            {"max", real},
                                            {"min", real},
                                            {"error", real},
                                            {"units", text}}));
}

TEST(Keys, ABankHasItsKeysInOrder) {
  EXPECT_EQ(keys_of<Common::Paddles>(),
            (Keys{{"name", text}, {"pad_pos", array}, {"flap", object}, {"piston", object}}));
  EXPECT_EQ(keys_of<Common::PadPos>(), (Keys{{"x", real}, {"y", real}, {"angle", real}}));
}

TEST(Keys, AMachineHasItsKeysInOrder) {
  const Keys machine = {{"paddle_width", real},
                        {"critical_dimension", real},
                        {"dimension_type", choice},
                        {"paddle_motion", object},
                        {"constant", array}};
  EXPECT_EQ(keys_of<Common::Flap>(), machine);
  EXPECT_EQ(keys_of<Common::Piston>(), machine);
  EXPECT_EQ(keys_of<Common::PaddleMotion>(),
            (Keys{{"clip_limit", real}, {"maximum", real}, {"minimum", real}, {"units", text}}));
  EXPECT_EQ(keys_of<Common::PaddleConst>(),
            (Keys{{"name", text}, {"units", text}, {"value", real}}));
}

TEST(Keys, ChoicesAreNumberedFromZero) {
  EXPECT_EQ(members_of<Common::Context::Units_enum>(), (Members{{"Hz", 0}, {"rad_s", 1}}));
  EXPECT_EQ(members_of<Common::Tank::Geometry_enum>(), (Members{{"NoSides", 0},
                                                                {"PlusSide", 1},
                                                                {"MinusSide", 2},
                                                                {"BothSides", 3},
                                                                {"TwoDimensional", 4}}));
  EXPECT_EQ(members_of<Common::Tank::Units_enum>(),
            (Members{{"mm", 0}, {"m", 1}, {"ft", 2}, {"yds", 3}}));
  EXPECT_EQ(members_of<Common::Section::Offset_enum>(),
            (Members{{"Relative", 0}, {"Absolute", 1}}));
  EXPECT_EQ(members_of<Common::Machine::DimensionType_enum>(),
            (Members{{"ToBottom", 0}, {"ToSurface", 1}}));
}

}  // namespace
