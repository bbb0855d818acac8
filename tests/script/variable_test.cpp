#include "script/variable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <limits>
#include <utility>

#include "samples.h"
#include "support/thrown.h"
#include "test_tree.h"

using Script::Variable;
using Script::VarType;
using Testing::nothing_thrown;
using Testing::thrown;
using TestTree::Samples;

namespace {

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t greatest = std::numeric_limits<std::int32_t>::max();

std::uint64_t bits(double value) { return std::bit_cast<std::uint64_t>(value); }

// The value of a real literal, read through a field.
double real_of(Variable literal) {
  double field = 0;
  Variable(VarType::fixed_real, "r", &field).assign(literal);
  return field;
}

}  // namespace

TEST(Variable, TypesHaveTheirNumbers) {
  const Samples samples;
  for (int type = 0; type < 15; ++type) {
    EXPECT_EQ(static_cast<int>(samples.all[static_cast<std::size_t>(type)].type()), type);
  }
}

TEST(Variable, MarksHaveTheirBitPatterns) {
  EXPECT_EQ(bits(Script::UnsetReal), 0x7FF0000000000001u);
  EXPECT_EQ(bits(Script::NoReal), 0x7FF8000000000000u);
  EXPECT_EQ(Script::UnsetInteger, 0x7FFFFFFF);
  EXPECT_EQ(static_cast<std::uint32_t>(Script::NoInteger), 0x80000000u);
  EXPECT_STREQ(Script::UnsetString, "#UNDEF#");
}

TEST(Variable, MovingAStringEmptiesTheSource) {
  Variable first(std::string("text"));
  Variable second(std::move(first));
  EXPECT_EQ(first.type(), VarType::empty);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(second.as_string(), "text");
  Variable third(std::string("other"));
  third = std::move(second);
  EXPECT_EQ(second.type(), VarType::empty);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(third.as_string(), "text");
}

TEST(Variable, AssigningAStringToItselfKeepsIt) {
  Variable text(std::string("text"));
  Variable& same = text;
  text = std::move(same);
  EXPECT_EQ(text.as_string(), "text");
}

TEST(Variable, MovingOtherTypesKeepsTheSource) {
  Variable first(7);
  const Variable second(std::move(first));
  EXPECT_EQ(first.as_integer(), 7);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(second.as_integer(), 7);
}

TEST(Variable, AReferenceIsTheSameEntry) {
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

TEST(Variable, EachAccessorAcceptsItsTypesOnly) {
  const Samples samples;
  const auto check = [&](auto read, std::vector<int> good, const std::string& text) {
    for (int type = 0; type < 15; ++type) {
      const Variable& sample = samples.all[static_cast<std::size_t>(type)];
      const bool fits = std::find(good.begin(), good.end(), type) != good.end();
      EXPECT_EQ(thrown([&] { read(sample); }), fits ? nothing_thrown : "plain: " + text) << type;
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

TEST(Variable, AccessorsReturnTheValue) {
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

TEST(Variable, QuotesAreStrippedFromStringLiteralsOnly) {
  Samples samples;
  for (std::size_t type = 0; type < 15; ++type) {
    if (type == 3) continue;
    EXPECT_EQ(thrown([&] { samples.all[type].strip_quotes(); }), "plain: Wrong type") << type;
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
    EXPECT_EQ(thrown([&] { literal.strip_quotes(); }),
              "plain: Can't strip this string as its too small");
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

TEST(Arithmetic, IntegersWrapAt32Bits) {
  EXPECT_EQ((Variable(greatest) + Variable(1)).as_integer(), least);
  EXPECT_EQ((Variable(least) - Variable(1)).as_integer(), greatest);
  EXPECT_EQ((Variable(greatest) * Variable(2)).as_integer(), -2);
  EXPECT_EQ((Variable(least) / Variable(-1)).as_integer(), least);
  EXPECT_EQ((Variable(5) / Variable(-1)).as_integer(), -5);
  EXPECT_EQ((-Variable(least)).as_integer(), least);
}

TEST(Arithmetic, ARealOnEitherSideGivesAReal) {
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

TEST(Arithmetic, OtherTypesAreRefusedWithTheOperatorInTheMessage) {
  const Samples samples;
  for (std::size_t type = 0; type < 15; ++type) {
    if (type == 1 || type == 2) continue;
    const Variable& bad = samples.all[type];
    const Variable good(1);
    const auto lhs = [](const char* op) {
      return std::string("plain: Unexpected type for lhs of ") + op + " operator";
    };
    const auto rhs = [](const char* op) {
      return std::string("plain: Unexpected type for rhs value of ") + op + " operator";
    };
    EXPECT_EQ(thrown([&] { bad + good; }), lhs("+"));
    EXPECT_EQ(thrown([&] { bad - good; }), lhs("-"));
    EXPECT_EQ(thrown([&] { bad* good; }), lhs("*"));
    EXPECT_EQ(thrown([&] { bad / good; }), lhs("/"));
    EXPECT_EQ(thrown([&] { good + bad; }), rhs("+"));
    EXPECT_EQ(thrown([&] { good - bad; }), rhs("-"));
    EXPECT_EQ(thrown([&] { good* bad; }), rhs("*"));
    EXPECT_EQ(thrown([&] { good / bad; }), rhs("/"));
    EXPECT_EQ(thrown([&] { Variable(1.5) + bad; }), rhs("+"));
    EXPECT_EQ(thrown([&] { bad + bad; }), lhs("+"));
    EXPECT_EQ(thrown([&] { -bad; }), rhs("+"));
  }
}

TEST(ArithmeticDeathTest, IntegerDivisionByZeroStopsTheProcess) {
  const auto divide = [] {
    std::signal(SIGFPE, SIG_DFL);  // a sanitizer installs its own handler
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

TEST(Variable, IsSetIsRefusedForLiterals) {
  const Samples samples;
  for (std::size_t type = 0; type < 5; ++type) {
    EXPECT_EQ(thrown([&] { samples.all[type].is_set(); }), "plain: Not a ref type!!");
  }
}

TEST(Variable, SimpleFieldsAreAlwaysRequired) {
  const Samples samples;
  for (std::size_t type = 0; type < 13; ++type) EXPECT_TRUE(samples.all[type].is_required());
}

TEST(Variable, TheRuleDecidesWhetherABlockIsRequired) {
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

TEST(Variable, AWrapperMayRequireMoreThanItsRule) {
  struct Wanted : Script::WrapAry<TestTree::Layer> {
    using WrapAry::WrapAry;
    bool required() const override { return true; }
  } array(TestTree::any_size);
  EXPECT_TRUE(Variable("a", static_cast<Script::BaseWrapAry*>(&array)).is_required());

  struct WantedObject : Script::WrapObj<TestTree::Layer> {
    using WrapObj::WrapObj;
    bool required() const override { return true; }
  } object(TestTree::optional_object);
  EXPECT_TRUE(Variable("o", static_cast<Script::BaseWrapObj*>(&object)).is_required());
}

TEST(Variable, NoValueIsAcceptedForNumberFieldsOnly) {
  Samples samples;
  for (std::size_t type = 0; type < 15; ++type) {
    samples.integer = 0;
    samples.real = 0;
    const std::string outcome = thrown([&] { samples.all[type].set_no_value(); });
    if (type < 5 || type > 8) {
      EXPECT_EQ(outcome, "plain: Trying to set to NaN an item not of simple variable type");
      continue;
    }
    EXPECT_EQ(outcome, nothing_thrown);
    EXPECT_EQ(samples.integer == least, type < 7);
    EXPECT_EQ(bits(samples.real) == 0x7FF8000000000000u, type > 6);
  }
}

TEST(SubEnum, MemberNamesAreFoundByNumberNotPosition) {
  TestTree::Units units;
  units.number = 7;
  EXPECT_STREQ(units.member_name(), "imperial");
  units.number = 0;
  EXPECT_STREQ(units.member_name(), "metric");
  units.number = 1;
  EXPECT_STREQ(units.member_name(), "Not found");
}
