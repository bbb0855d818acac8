#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>

#include "testutil.h"

namespace Expression {
namespace {

TEST(Numbers, PiHasTheLanguagesOwnBits) {
  EXPECT_EQ(std::bit_cast<std::uint64_t>(evaluated("pi")), 0x400921FB544428F7U);
  EXPECT_EQ(evaluated("pi"), 3.1415926535893237);
  EXPECT_LT(evaluated("pi"), 4.0 * std::atan2(1.0, 1.0));
}

TEST(Numbers, EIsTheNearestDouble) { EXPECT_EQ(evaluated("e"), std::exp(1.0)); }

TEST(Numbers, RealsAreReadToTheLastBit) {
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

// A decimal comma for the process while it lives, as a host's JVM may set one. Made of the C
// library's own "C.utf8" by replacing its one point, so that no locale need be installed.
class DecimalComma {
 public:
  DecimalComma() {
    std::ifstream own("/usr/lib/locale/C.utf8/LC_NUMERIC", std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(own), {}};
    std::replace(content.begin(), content.end(), '.', ',');
    std::filesystem::create_directories(directory_ / "comma");
    std::ofstream(directory_ / "comma" / "LC_NUMERIC", std::ios::binary) << content;
    setenv("LOCPATH", directory_.c_str(), 1);
    std::setlocale(LC_NUMERIC, "comma");
  }
  ~DecimalComma() {
    std::setlocale(LC_NUMERIC, "C");
    unsetenv("LOCPATH");
    std::filesystem::remove_all(directory_);
  }

 private:
  const std::filesystem::path directory_ =
      testing::TempDir() + "decimal_comma_" + std::to_string(getpid());
};

TEST(Numbers, DoNotDependOnTheLocale) {
  const DecimalComma comma;
  if (std::strtod("2,5", nullptr) != 2.5) {
    GTEST_SKIP() << "no decimal comma: this C library keeps its locales elsewhere";
  }
  EXPECT_EQ(evaluated("2.5"), 2.5);
  EXPECT_EQ(evaluated(".5"), 0.5);
}

TEST(Scanner, WritesNewlinesToStandardOutputAndSkipsThem) {
  testing::internal::CaptureStdout();
  const double value = evaluated("1 +\n\n 2\n");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n\n\n");
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
  testing::internal::CaptureStdout();
  const double value = evaluated(text);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(value, 3.0);
  EXPECT_EQ(evaluated(std::string("1\0+2", 4)), 3.0);
}

TEST(Scanner, SkipsAnUnmatchedBracketSilently) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(evaluated("[1+2"), 3.0);
  EXPECT_EQ(evaluated("1+2["), 3.0);
  EXPECT_EQ(evaluated("1+2]"), 3.0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(Scanner, TakesBlanksAndTabsBetweenTokens) { EXPECT_EQ(evaluated(" \t1\t+ 2 \t"), 3.0); }

TEST(Scanner, KeepsANewlineInsideBracketsAsUnits) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(thrown([] { Function("x[m\n]"); }), "Unknown units - m\n");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(Scanner, StartsNamesWithAnyLetterAndGoesOnWithLettersDigitsAndUnderscores) {
  const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (const char first : letters) {
    const std::string name = first + letters + "_0123456789";
    EXPECT_EQ(printed(Function(name)), name + "[]");
  }
}

TEST(Scanner, ReadsNamesOfAnyLength) {
  const std::string name = "a" + std::string(100000, 'b');
  EXPECT_EQ(printed(Function(name + "[Hz]+1")), "(" + name + "[Hz] + 1)");
}

}  // namespace
}  // namespace Expression
