#include "script/variable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <limits>
#include <utility>

#include "script/list.h"
#include "test_tree.h"
#include "testutil.h"

using Script::Variable;
using Script::VarType;

namespace {

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t greatest = std::numeric_limits<std::int32_t>::max();

std::uint64_t bits(double value) { return std::bit_cast<std::uint64_t>(value); }

// What a literal stores in a real field.
double real_of(Variable literal) {
  double field = 0;
  Variable(VarType::fixed_real, "r", &field).assign(literal);
  return field;
}

// One variable of every type.
struct Samples {
  Samples() {
    all.emplace_back();
    all.emplace_back(std::int32_t{1});
    all.emplace_back(2.0);
    all.emplace_back(std::string("three"));
    all.emplace_back("four", 4);
    all.emplace_back(VarType::adjustable_integer, "k5", &integer);
    all.emplace_back(VarType::fixed_integer, "k6", &integer);
    all.emplace_back(VarType::adjustable_real, "k7", &real);
    all.emplace_back(VarType::fixed_real, "k8", &real);
    all.emplace_back(VarType::adjustable_string, "k9", &text);
    all.emplace_back(VarType::fixed_string, "k10", &text);
    all.emplace_back(VarType::adjustable_enum, "k11", &units);
    all.emplace_back(VarType::fixed_enum, "k12", &units);
    all.emplace_back("k13", static_cast<Script::BaseWrapObj*>(&object));
    all.emplace_back("k14", static_cast<Script::BaseWrapAry*>(&array));
  }

  std::int32_t integer = 50;
  double real = 70.5;
  std::string text = "ninety";
  TestTree::Units units;
  Script::WrapObj<TestTree::Layer> object;
  Script::WrapAry<TestTree::Layer> array{TestTree::any_size};
  std::vector<Variable> all;
};

}  // namespace

TEST(Variable, TypesHaveTheirNumbers) {
  const Samples samples;
  for (int type = 0; type < 15; ++type) {
    EXPECT_EQ(static_cast<int>(samples.all[static_cast<std::size_t>(type)].type()), type);
  }
}

TEST(Variable, MarksAreTheirBitPatterns) {
  EXPECT_EQ(bits(Script::UnsetReal), 0x7FF0000000000001u);
  EXPECT_EQ(bits(Script::NoReal), 0x7FF8000000000000u);
  EXPECT_EQ(Script::UnsetInteger, 0x7FFFFFFF);
  EXPECT_EQ(static_cast<std::uint32_t>(Script::NoInteger), 0x80000000u);
  EXPECT_STREQ(Script::UnsetString, "#UNDEF#");
}

TEST(Variable, OwnershipOfAStringMoves) {
  Variable first(std::string("text"));
  Variable second(std::move(first));
  EXPECT_EQ(first.type(), VarType::empty);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(second.as_string(), "text");
  Variable third(std::string("other"));
  third = std::move(second);
  EXPECT_EQ(second.type(), VarType::empty);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(third.as_string(), "text");
}

TEST(Variable, MovingOtherTypesLeavesTheSource) {
  Variable first(7);
  const Variable second(std::move(first));
  EXPECT_EQ(first.as_integer(), 7);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(second.as_integer(), 7);
}

TEST(Variable, ReferenceIsTheSameEntryAgain) {
  const Samples samples;
  for (const Variable& sample : samples.all) {
    const Variable same = sample.reference();
    EXPECT_EQ(same.type(), sample.type());
    EXPECT_EQ(same.name(), sample.name());
  }
  EXPECT_EQ(&samples.all[6].reference().integer_field(), &samples.integer);
  EXPECT_EQ(samples.all[3].reference().as_string(), "three");
  EXPECT_EQ(samples.all[3].as_string(), "three");
}

TEST(Variable, EachReadingTakesItsTypeAlone) {
  const Samples samples;
  const auto check = [&](auto read, std::vector<int> good, const std::string& text) {
    for (int type = 0; type < 15; ++type) {
      const Variable& sample = samples.all[static_cast<std::size_t>(type)];
      const bool fits = std::find(good.begin(), good.end(), type) != good.end();
      EXPECT_EQ(failure([&] { read(sample); }), fits ? "nothing" : "text: " + text) << type;
    }
  };
  check([](const Variable& v) { v.as_integer(); }, {1}, "Wrong type 8");
  check([](const Variable& v) { v.as_string(); }, {3}, "Wrong type 10");
  check([](const Variable& v) { v.as_object(); }, {13}, "Wrong type 1");
  check([](const Variable& v) { v.as_array(); }, {14}, "Wrong type 2");
  check([](const Variable& v) { v.as_enum(); }, {11, 12}, "Wrong type 6");
  check([](const Variable& v) { v.member_number(); }, {4}, "Wrong type");
  check([](const Variable& v) { v.integer_field(); }, {5, 6}, "Wrong type");
  check([](const Variable& v) { v.real_field(); }, {7, 8}, "Wrong type");
  check([](const Variable& v) { v.string_field(); }, {9, 10}, "Wrong type");
}

TEST(Variable, ReadingsGiveTheValue) {
  const Samples samples;
  EXPECT_EQ(samples.all[1].as_integer(), 1);
  EXPECT_EQ(samples.all[3].as_string(), "three");
  EXPECT_EQ(samples.all[4].member_number(), 4);
  EXPECT_STREQ(samples.all[4].name(), "four");
  EXPECT_EQ(&samples.all[13].as_object(), &samples.object);
  EXPECT_EQ(&samples.all[14].as_array(), &samples.array);
  EXPECT_EQ(&samples.all[11].as_enum(), &samples.units);
  EXPECT_EQ(samples.all[5].integer_field(), 50);
  EXPECT_EQ(samples.all[7].real_field(), 70.5);
  EXPECT_EQ(samples.all[9].string_field(), "ninety");
}

TEST(Variable, QuotesAreStrippedFromStringsAlone) {
  Samples samples;
  for (std::size_t type = 0; type < 15; ++type) {
    if (type == 3) continue;
    EXPECT_EQ(failure([&] { samples.all[type].strip_quotes(); }), "text: Wrong type") << type;
  }
  Variable quoted(std::string("\"a b\""));
  quoted.strip_quotes();
  EXPECT_EQ(quoted.as_string(), "a b");
  Variable two(std::string("\"\""));
  two.strip_quotes();
  EXPECT_EQ(two.as_string(), "");
}

TEST(Variable, ShortStringsCannotBeStripped) {
  for (const char* text : {"", "\""}) {
    Variable literal{std::string(text)};
    EXPECT_EQ(failure([&] { literal.strip_quotes(); }),
              "text: Can't strip this string as its too small");
  }
}

TEST(Arithmetic, IntegersStayIntegers) {
  EXPECT_EQ((Variable(7) + Variable(-9)).as_integer(), -2);
  EXPECT_EQ((Variable(7) - Variable(-9)).as_integer(), 16);
  EXPECT_EQ((Variable(7) * Variable(-9)).as_integer(), -63);
  EXPECT_EQ((Variable(-7) / Variable(2)).as_integer(), -3);
  EXPECT_EQ((Variable(7) / Variable(2)).as_integer(), 3);
  EXPECT_EQ((-Variable(7)).as_integer(), -7);
}

TEST(Arithmetic, IntegersWrap) {
  EXPECT_EQ((Variable(greatest) + Variable(1)).as_integer(), least);
  EXPECT_EQ((Variable(least) - Variable(1)).as_integer(), greatest);
  EXPECT_EQ((Variable(greatest) * Variable(2)).as_integer(), -2);
  EXPECT_EQ((Variable(least) / Variable(-1)).as_integer(), least);
  EXPECT_EQ((Variable(5) / Variable(-1)).as_integer(), -5);
  EXPECT_EQ((-Variable(least)).as_integer(), least);
}

TEST(Arithmetic, ARealOnEitherSideMakesAReal) {
  for (const auto& [left, right] :
       {std::pair(Variable(7).type(), VarType::real), std::pair(VarType::real, Variable(2).type()),
        std::pair(VarType::real, VarType::real)}) {
    const Variable seven = left == VarType::real ? Variable(7.0) : Variable(7);
    const Variable two = right == VarType::real ? Variable(2.0) : Variable(2);
    EXPECT_EQ((seven + two).type(), VarType::real);
    EXPECT_EQ(real_of(seven + two), 9.0);
    EXPECT_EQ(real_of(seven - two), 5.0);
    EXPECT_EQ(real_of(seven * two), 14.0);
    EXPECT_EQ(real_of(seven / two), 3.5);
  }
  EXPECT_EQ((-Variable(2.5)).type(), VarType::real);
  EXPECT_EQ(real_of(-Variable(2.5)), -2.5);
}

TEST(Arithmetic, OtherTypesFailWithTheOperatorInTheText) {
  const Samples samples;
  for (std::size_t type = 0; type < 15; ++type) {
    if (type == 1 || type == 2) continue;
    const Variable& bad = samples.all[type];
    const Variable good(1);
    const auto lhs = [](const char* op) {
      return std::string("text: Unexpected type for lhs of ") + op + " operator";
    };
    const auto rhs = [](const char* op) {
      return std::string("text: Unexpected type for rhs value of ") + op + " operator";
    };
    EXPECT_EQ(failure([&] { bad + good; }), lhs("+"));
    EXPECT_EQ(failure([&] { bad - good; }), lhs("-"));
    EXPECT_EQ(failure([&] { bad* good; }), lhs("*"));
    EXPECT_EQ(failure([&] { bad / good; }), lhs("/"));
    EXPECT_EQ(failure([&] { good + bad; }), rhs("+"));
    EXPECT_EQ(failure([&] { good - bad; }), rhs("-"));
    EXPECT_EQ(failure([&] { good* bad; }), rhs("*"));
    EXPECT_EQ(failure([&] { good / bad; }), rhs("/"));
    EXPECT_EQ(failure([&] { Variable(1.5) + bad; }), rhs("+"));
    EXPECT_EQ(failure([&] { bad + bad; }), lhs("+"));
    EXPECT_EQ(failure([&] { -bad; }), rhs("+"));
  }
}

TEST(ArithmeticDeathTest, IntegerDivisionByZeroStopsTheProcess) {
  const auto divide = [] {
    std::signal(SIGFPE, SIG_DFL);  // a sanitizer would catch it
    return (Variable(1) / Variable(0)).as_integer();
  };
  EXPECT_EXIT(divide(), testing::KilledBySignal(SIGFPE), "");
}

TEST(Variable, IsSetComparesWithTheUnsetMark) {
  Samples samples;
  for (std::size_t type = 5; type < 13; ++type) EXPECT_TRUE(samples.all[type].is_set()) << type;
  samples.integer = Script::UnsetInteger;
  samples.real = Script::UnsetReal;
  samples.text = "#UNDEF#";
  samples.units.number = Script::UnsetInteger;
  for (std::size_t type = 5; type < 13; ++type) EXPECT_FALSE(samples.all[type].is_set()) << type;
  samples.integer = Script::NoInteger;
  samples.real = Script::NoReal;
  for (std::size_t type = 5; type < 9; ++type) EXPECT_TRUE(samples.all[type].is_set()) << type;
  samples.real = std::bit_cast<double>(std::uint64_t{0x7FF0000000000002});
  EXPECT_TRUE(samples.all[8].is_set());
}

TEST(Variable, ObjectsAndArraysAreSetOnceBuilt) {
  Samples samples;
  EXPECT_FALSE(samples.all[13].is_set());
  EXPECT_FALSE(samples.all[14].is_set());
  samples.object.build();
  samples.array.build(0, 0);
  EXPECT_TRUE(samples.all[13].is_set());
  EXPECT_TRUE(samples.all[14].is_set());
}

TEST(Variable, LiteralsCannotBeAskedWhetherTheyAreSet) {
  const Samples samples;
  for (std::size_t type = 0; type < 5; ++type) {
    EXPECT_EQ(failure([&] { samples.all[type].is_set(); }), "text: Not a ref type!!");
  }
}

TEST(Variable, SimpleFieldsAreAlwaysRequired) {
  const Samples samples;
  for (std::size_t type = 0; type < 13; ++type) EXPECT_TRUE(samples.all[type].is_required());
}

TEST(Variable, RuleSaysWhetherABlockIsRequired) {
  using Script::SizeRule;
  const auto required = [](Script::Rule rule) {
    Script::WrapObj<TestTree::Layer> object(rule);
    Script::WrapAry<TestTree::Layer> array(rule);
    const bool from_object =
        Variable("o", static_cast<Script::BaseWrapObj*>(&object)).is_required();
    const bool from_array = Variable("a", static_cast<Script::BaseWrapAry*>(&array)).is_required();
    EXPECT_EQ(from_object, from_array);
    return from_array;
  };
  EXPECT_FALSE(required({SizeRule::any, 1, 0, 0}));
  EXPECT_FALSE(required({SizeRule::at_most, 1, 0, 0}));
  EXPECT_TRUE(required({SizeRule::at_least, 1, 0, 0}));
  EXPECT_TRUE(required({SizeRule::exactly, 1, 0, 0}));
  EXPECT_FALSE(required({SizeRule::at_least, 0, 0, 0}));
  EXPECT_FALSE(required({SizeRule::exactly, 0, 0, 0}));
}

TEST(Variable, WrapperMayRequireWhatItsRuleDoesNot) {
  struct Wanted : Script::WrapAry<TestTree::Layer> {
    using WrapAry::WrapAry;
    bool required() const override { return true; }
  } array(TestTree::any_size);
  EXPECT_TRUE(Variable("a", static_cast<Script::BaseWrapAry*>(&array)).is_required());
}

TEST(Assign, IntegerFieldTakesNumbersAndIntegerFields) {
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
      EXPECT_EQ(failure([&] { target.assign(samples.all[other]); }),
                "text: Trying to set an int value with an unexpected type");
    }
  }
}

TEST(Assign, RealFieldTakesNumbersAndRealFields) {
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
      EXPECT_EQ(failure([&] { target.assign(samples.all[other]); }),
                "text: Trying to set an int value with an unexpected type");
    }
  }
}

TEST(Assign, MarksOfARealFieldAreCopiedBitByBit) {
  double from = Script::UnsetReal;
  double to = 0;
  Variable source(VarType::fixed_real, "a", &from);
  Variable(VarType::fixed_real, "b", &to).assign(source);
  EXPECT_EQ(bits(to), Script::UnsetRealBits);
}

TEST(Assign, StringFieldTakesTheLiteralAway) {
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
      EXPECT_EQ(failure([&] { target.assign(samples.all[other]); }),
                "text: Trying to set a string variable with an unexpected type");
    }
  }
}

TEST(Assign, EnumerationTakesAMember) {
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
      EXPECT_EQ(failure([&] { target.assign(samples.all[other]); }),
                "text: Trying to set an enum variable with an unexpected type");
    }
  }
}

TEST(Assign, OtherTargetsFail) {
  Samples samples;
  for (const std::size_t other : {0u, 1u, 2u, 3u, 4u, 13u, 14u}) {
    EXPECT_EQ(failure([&] { samples.all[other].assign(samples.all[1]); }),
              "text: Trying to set an unknown variable type");
  }
}

TEST(Assign, RoundingTellsALossAboveOnePerMille) {
  struct Row {
    double value;
    std::int32_t stored;
    std::string told;  // the value as it is told, or nothing
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
    testing::internal::CaptureStdout();
    Variable(VarType::fixed_integer, "depth", &field).assign(literal);
    const std::string told = testing::internal::GetCapturedStdout();
    EXPECT_EQ(field, row.stored) << row.value;
    EXPECT_EQ(told, row.told.empty() ? ""
                                     : "Loss of resolution while rounding value " + row.told +
                                           " for variable depth\n");
  }
}

TEST(Assign, RealsThatNoIntegerHoldsAreRefused) {
  for (const auto& [value, text] :
       {std::pair(2147483647.5, "2.14748e+09"), std::pair(-2147483649.0, "-2.14748e+09"),
        std::pair(HUGE_VAL, "inf"), std::pair(Script::NoReal, "nan")}) {
    std::int32_t field = 99;
    Variable literal(value);
    EXPECT_EQ(failure([&] { Variable(VarType::fixed_integer, "depth", &field).assign(literal); }),
              std::string("string: Value ") + text + " does not fit the integer variable depth");
    EXPECT_EQ(field, 99);
  }
}

TEST(Variable, NoValueIsForNumbersAlone) {
  Samples samples;
  for (std::size_t type = 0; type < 15; ++type) {
    samples.integer = 0;
    samples.real = 0;
    const std::string outcome = failure([&] { samples.all[type].set_no_value(); });
    if (type < 5 || type > 8) {
      EXPECT_EQ(outcome, "text: Trying to set to NaN an item not of simple variable type");
      continue;
    }
    EXPECT_EQ(outcome, "nothing");
    EXPECT_EQ(samples.integer == least, type < 7);
    EXPECT_EQ(bits(samples.real) == 0x7FF8000000000000u, type > 6);
  }
}

TEST(SubEnum, MemberNameIsFoundByNumberNotByPosition) {
  TestTree::Units units;
  units.number = 7;
  EXPECT_STREQ(units.member_name(), "imperial");
  units.number = 0;
  EXPECT_STREQ(units.member_name(), "metric");
  units.number = 1;
  EXPECT_STREQ(units.member_name(), "Not found");
}
