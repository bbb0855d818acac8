#include <gtest/gtest.h>

#include <bit>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

#include "support/comma_locale.h"
#include "support/output.h"
#include "support/thrown.h"
#include "testutil.h"

namespace Expression {
namespace {

using Testing::printed;
using Testing::thrown;

TEST(Numbers, PiIsSlightlyBelowTheNearestDouble) {
  EXPECT_EQ(std::bit_cast<std::uint64_t>(evaluated("pi")), 0x400921FB544428F7U);
  EXPECT_EQ(evaluated("pi"), 3.1415926535893237);
  EXPECT_LT(evaluated("pi"), 4.0 * std::atan2(1.0, 1.0));
}

TEST(Numbers, EIsTheNearestDoubleToExpOfOne) { EXPECT_EQ(evaluated("e"), std::exp(1.0)); }

TEST(Numbers, RealsAreTheNearestDoubles) {
  EXPECT_EQ(evaluated("0.1"), 0.1);
  EXPECT_EQ(evaluated("123456789.123456789"), 123456789.123456789);
  EXPECT_EQ(evaluated("5000000000.0"), 5e9);
  EXPECT_EQ(evaluated("1" + std::string(400, '0') + ".0"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(evaluated("." + std::string(400, '0') + "1"), 0.0);
}

TEST(Numbers, IntegersKeepTheirLow32Bits) {
  EXPECT_EQ(evaluated("2147483648"), 2147483648.0);
  EXPECT_EQ(evaluated("4294967295"), 4294967295.0);
  EXPECT_EQ(evaluated("4294967296"), 0.0);
  EXPECT_EQ(evaluated("4294967303"), 7.0);
  EXPECT_EQ(evaluated("0x1FFFFFFFF"), 4294967295.0);
  EXPECT_EQ(evaluated("0X80000000"), 2147483648.0);
  EXPECT_EQ(evaluated("0xaBcDeF09"), 2882400009.0);
}

TEST(Numbers, DoNotDependOnTheLocale) {
  const Testing::CommaLocale comma;
  if (!comma.active()) GTEST_SKIP() << "no locale with a decimal comma can be compiled here";
  ASSERT_EQ(std::strtod("2,5", nullptr), 2.5);
  EXPECT_EQ(evaluated("2.5"), 2.5);
  EXPECT_EQ(evaluated(".5"), 0.5);
}

TEST(Scanner, CopiesNewlinesToStandardOutputAndSkipsThem) {
  double value = 0.0;
  EXPECT_EQ(printed([&] { value = evaluated("1 +\n\n 2\n"); }), "\n\n\n");
  EXPECT_EQ(value, 3.0);
}

TEST(Scanner, SkipsAnyOtherCharacterSilently) {
  std::string text = "1";
  for (int c = 1; c < 256; ++c) {
    const std::string letters = "\t\n $()*+,-./^@[]";
    if (std::isalnum(c) || letters.find(static_cast<char>(c)) != std::string::npos) continue;
    text += static_cast<char>(c);
  }
  text += "+2";
  double value = 0.0;
  EXPECT_EQ(printed([&] { value = evaluated(text); }), "");
  EXPECT_EQ(value, 3.0);
  EXPECT_EQ(evaluated(std::string("1\0+2", 4)), 3.0);
}

TEST(Scanner, SkipsAnUnmatchedBracketSilently) {
  const std::string output = printed([] {
    EXPECT_EQ(evaluated("[1+2"), 3.0);
    EXPECT_EQ(evaluated("1+2["), 3.0);
    EXPECT_EQ(evaluated("1+2]"), 3.0);
  });
  EXPECT_EQ(output, "");
}

TEST(Scanner, SkipsBlanksAndTabsBetweenTokens) { EXPECT_EQ(evaluated(" \t1\t+ 2 \t"), 3.0); }

TEST(Scanner, KeepsANewlineInsideUnits) {
  std::string failure;
  EXPECT_EQ(printed([&] { failure = thrown([] { Function("x[m\n]"); }); }), "");
  EXPECT_EQ(failure, "Unknown units - m\n");
}

TEST(Scanner, NamesAreALetterFollowedByLettersDigitsAndUnderscores) {
  const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (const char first : letters) {
    const std::string name = first + letters + "_0123456789";
    EXPECT_EQ(written(Function(name)), name + "[]");
  }
}

TEST(Scanner, ReadsLongNames) {
  const std::string name = "a" + std::string(100000, 'b');
  EXPECT_EQ(written(Function(name + "[Hz]+1")), "(" + name + "[Hz] + 1)");
}

}  // namespace
}  // namespace Expression
