// Storing a value in a declared field.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "samples.h"
#include "support/output.h"
#include "support/thrown.h"

using Script::Variable;
using Script::VarType;
using Testing::printed;
using Testing::thrown;
using TestTree::Samples;

namespace {

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t greatest = std::numeric_limits<std::int32_t>::max();

}  // namespace

TEST(Assign, AnIntegerFieldTakesNumbersAndIntegerFields) {
  Samples samples;
  std::int32_t field = 0;
  for (const VarType type : {VarType::adjustable_integer, VarType::fixed_integer}) {
    Variable target(type, "n", &field);
    target.assign(samples.all[1]);
    EXPECT_EQ(field, 1);
    target.assign(samples.all[2]);
    EXPECT_EQ(field, 2);
    target.assign(samples.all[5]);
    EXPECT_EQ(field, 50);
    field = 0;
    target.assign(samples.all[6]);
    EXPECT_EQ(field, 50);
    for (const std::size_t other : {0u, 3u, 4u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 14u}) {
      EXPECT_EQ(thrown([&] { target.assign(samples.all[other]); }),
                "plain: Trying to set an int value with an unexpected type");
    }
  }
}

TEST(Assign, ARealFieldTakesNumbersAndRealFields) {
  Samples samples;
  double field = 0;
  for (const VarType type : {VarType::adjustable_real, VarType::fixed_real}) {
    Variable target(type, "r", &field);
    target.assign(samples.all[1]);
    EXPECT_EQ(field, 1.0);
    target.assign(samples.all[2]);
    EXPECT_EQ(field, 2.0);
    target.assign(samples.all[7]);
    EXPECT_EQ(field, 70.5);
    field = 0;
    target.assign(samples.all[8]);
    EXPECT_EQ(field, 70.5);
    for (const std::size_t other : {0u, 3u, 4u, 5u, 6u, 9u, 10u, 11u, 12u, 13u, 14u}) {
      EXPECT_EQ(thrown([&] { target.assign(samples.all[other]); }),
                "plain: Trying to set an int value with an unexpected type");
    }
  }
}

TEST(Assign, TheUnsetMarkOfARealFieldIsCopiedBitByBit) {
  double from = Script::UnsetReal;
  double to = 0;
  Variable source(VarType::fixed_real, "a", &from);
  Variable(VarType::fixed_real, "b", &to).assign(source);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(to), Script::UnsetRealBits);
}

TEST(Assign, AStringFieldMovesTheStringOutOfALiteral) {
  Samples samples;
  std::string field;
  for (const VarType type : {VarType::adjustable_string, VarType::fixed_string}) {
    Variable target(type, "s", &field);
    Variable literal(std::string("three"));
    target.assign(literal);
    EXPECT_EQ(field, "three");
    EXPECT_EQ(literal.type(), VarType::empty);
    target.assign(samples.all[9]);
    EXPECT_EQ(field, "ninety");
    EXPECT_EQ(samples.text, "ninety");
    field = "";
    target.assign(samples.all[10]);
    EXPECT_EQ(field, "ninety");
    for (const std::size_t other : {0u, 1u, 2u, 4u, 5u, 6u, 7u, 8u, 11u, 12u, 13u, 14u}) {
      EXPECT_EQ(thrown([&] { target.assign(samples.all[other]); }),
                "plain: Trying to set a string variable with an unexpected type");
    }
  }
}

TEST(Assign, AnEnumerationTakesAMember) {
  Samples samples;
  samples.units.number = 7;
  TestTree::Units field;
  for (const VarType type : {VarType::adjustable_enum, VarType::fixed_enum}) {
    Variable target(type, "e", &field);
    target.assign(samples.all[4]);
    EXPECT_EQ(field.number, 4);
    target.assign(samples.all[11]);
    EXPECT_EQ(field.number, 7);
    field.number = 0;
    target.assign(samples.all[12]);
    EXPECT_EQ(field.number, 7);
    for (const std::size_t other : {0u, 1u, 2u, 3u, 5u, 6u, 7u, 8u, 9u, 10u, 13u, 14u}) {
      EXPECT_EQ(thrown([&] { target.assign(samples.all[other]); }),
                "plain: Trying to set an enum variable with an unexpected type");
    }
  }
}

TEST(Assign, OtherTargetsAreRefused) {
  Samples samples;
  for (const std::size_t other : {0u, 1u, 2u, 3u, 4u, 13u, 14u}) {
    EXPECT_EQ(thrown([&] { samples.all[other].assign(samples.all[1]); }),
              "plain: Trying to set an unknown variable type");
  }
}

TEST(Assign, RoundingWarnsOfALossAboveOnePerMille) {
  struct Row {
    double value;
    std::int32_t stored;
    std::string warned;  // the value in the warning, or nothing
  };
  const Row rows[] = {{2.5, 3, "2.5"},
                      {2.4, 2, "2.4"},
                      {2.0000001, 2, ""},
                      {1000.5, 1001, ""},
                      {499.5, 500, ""},
                      {498.5, 499, "498.5"},
                      {0.0, 0, ""},
                      {-0.0, 0, ""},
                      {0.3, 0, "0.3"},
                      {1e-9, 0, "1e-09"},
                      {0.5, 1, "0.5"},
                      {-0.5, 0, "-0.5"},
                      {-1.5, -1, "-1.5"},
                      {-1.0, -1, ""},
                      {-3.0001, -3, ""},
                      {2147483647.0, greatest, ""},
                      {-2147483648.0, least, ""}};
  for (const Row& row : rows) {
    std::int32_t field = 99;
    Variable literal(row.value);
    const std::string warning =
        printed([&] { Variable(VarType::fixed_integer, "depth", &field).assign(literal); });
    EXPECT_EQ(field, row.stored) << row.value;
    EXPECT_EQ(warning, row.warned.empty() ? ""
                                          : "Loss of resolution while rounding value " +
                                                row.warned + " for variable depth\n");
  }
}

TEST(Assign, RealsBeyondTheIntegersAreRefused) {
  for (const auto& [value, text] :
       {std::pair(2147483647.5, "2.14748e+09"), std::pair(-2147483649.0, "-2.14748e+09"),
        std::pair(HUGE_VAL, "inf"), std::pair(Script::NoReal, "nan")}) {
    std::int32_t field = 99;
    Variable literal(value);
    EXPECT_EQ(thrown([&] { Variable(VarType::fixed_integer, "depth", &field).assign(literal); }),
              std::string("Value ") + text + " does not fit the integer variable depth");
    EXPECT_EQ(field, 99);
  }
}
