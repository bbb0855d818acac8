#include "script/scan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <sstream>
#include <vector>

#include "support/comma_locale.h"
#include "support/output.h"
#include "support/thrown.h"

using Script::ScriptScan;
using Script::VarType;
using Testing::printed;
using Testing::thrown;

namespace {

// The characters of each token.
std::vector<std::string> tokens(const std::string& script) {
  std::istringstream in(script);
  ScriptScan scan(in);
  std::vector<std::string> texts;
  while (scan.yylex() != 0) texts.push_back(scan.text());
  return texts;
}

using Texts = std::vector<std::string>;

// The value of the first token.
Script::Variable value_of(const std::string& script) {
  std::istringstream in(script);
  ScriptScan scan(in);
  scan.yylex();
  return std::move(scan.value());
}

VarType type_of(const std::string& script) { return value_of(script).type(); }

std::int32_t integer_of(const std::string& script) { return value_of(script).as_integer(); }

double real_of(const std::string& script) {
  Script::Variable literal = value_of(script);
  double field = 0.0;
  Script::Variable(VarType::fixed_real, "r", &field).assign(literal);
  return field;
}

// A stream whose first read throws.
struct Broken : std::streambuf {
  int underflow() override { throw 1; }
};

}  // namespace

TEST(Scan, TwoPointsSeparateTheNumbersOfARange) {
  EXPECT_EQ(tokens("3..0"), (Texts{"3", "..", "0"}));
  EXPECT_EQ(tokens("3.0..0"), (Texts{"3.0", "..", "0"}));
  EXPECT_EQ(tokens("1..5e2"), (Texts{"1", "..", "5e2"}));
  EXPECT_EQ(tokens("1...5"), (Texts{"1", "..", ".5"}));
}

TEST(Scan, AnIncompleteExponentOrPrefixIsASeparateToken) {
  EXPECT_EQ(tokens("1e"), (Texts{"1", "e"}));
  EXPECT_EQ(tokens("1e+"), (Texts{"1", "e", "+"}));
  EXPECT_EQ(tokens("1.5e-x"), (Texts{"1.5", "e", "-", "x"}));
  EXPECT_EQ(tokens("0x"), (Texts{"0", "x"}));
  EXPECT_EQ(tokens("0xg"), (Texts{"0", "xg"}));
  EXPECT_EQ(tokens("12ab"), (Texts{"12", "ab"}));
}

TEST(Scan, APointOrAnExponentMakesAReal) {
  for (const char* real : {"1.5", "1.5e3", "1.5E-3", ".5", ".5e+3", "1e3", "0E0"}) {
    EXPECT_EQ(tokens(real), Texts{real});
    EXPECT_EQ(type_of(real), VarType::real) << real;
  }
  for (const char* integer : {"0", "12", "0x1F", "0Xff", "007"}) {
    EXPECT_EQ(tokens(integer), Texts{integer});
    EXPECT_EQ(type_of(integer), VarType::integer) << integer;
  }
}

TEST(Scan, ASignIsNotPartOfANumber) { EXPECT_EQ(tokens("-1+2"), (Texts{"-", "1", "+", "2"})); }

TEST(Scan, TheLongestMatchWins) {
  EXPECT_EQ(tokens("includes include includ"), (Texts{"includes", "include", "includ"}));
  EXPECT_EQ(tokens("$abc$ $$x"), (Texts{"$abc", "$", "$", "$x"}));
  EXPECT_EQ(tokens("$include"), (Texts{"$include"}));
  EXPECT_EQ(tokens("$1"), (Texts{"$", "1"}));
}

TEST(Scan, EveryPunctuationMarkIsAToken) {
  const Texts all = {"(", ")", "{", "}", "[", "]", "=", ";", "+", "-", "*", "/", "$", ".."};
  for (const std::string& token : all) EXPECT_EQ(tokens(token), Texts{token});
}

TEST(Scan, CommentsEndAtTheNewline) {
  EXPECT_EQ(tokens("a # b\nc"), (Texts{"a", "c"}));
  EXPECT_EQ(tokens("a # b"), Texts{"a"});
  EXPECT_EQ(tokens("#"), Texts{});
  EXPECT_EQ(tokens("a#\r\nb"), (Texts{"a", "b"}));
}

TEST(Scan, StrayCharactersAreCopiedToStandardOutput) {
  const std::string all = std::string("@!%&'?,:<>|\\^`~.\"\f\v\x80\xff\r") + std::string(1, '\0');
  EXPECT_EQ(printed([&] { EXPECT_EQ(tokens("a" + all + "b"), (Texts{"a", "b"})); }), all);
}

TEST(Scan, StringsMayHoldAnyCharacterExceptQuotes) {
  std::istringstream in("\"a\n#\\\t\r$\" \"\"");
  ScriptScan scan(in);
  ASSERT_NE(scan.yylex(), 0);
  EXPECT_EQ(scan.value().as_string(), "a\n#\\\t\r$");
  ASSERT_NE(scan.yylex(), 0);
  EXPECT_EQ(scan.value().as_string(), "");
  EXPECT_EQ(scan.yylex(), 0);
}

TEST(Scan, StringsMayBeLongerThanTheBuffer) {
  const std::string text(200000, 'x');
  std::istringstream in("\"" + text + "\"");
  ScriptScan scan(in);
  ASSERT_NE(scan.yylex(), 0);
  EXPECT_EQ(scan.value().as_string(), text);
}

TEST(Scan, LinesAndColumnsAreCountedFromOne) {
  std::istringstream in("a  b\n# c\n \"x\ny\" d");
  ScriptScan scan(in);
  const std::pair<unsigned, unsigned> expected[] = {{1, 1}, {1, 4}, {3, 2}, {4, 4}};
  for (const auto& [line, column] : expected) {
    ASSERT_NE(scan.yylex(), 0);
    EXPECT_EQ(scan.line(), line);
    EXPECT_EQ(scan.column(), column);
  }
}

TEST(Scan, AFailingStreamIsReported) {
  Broken buffer;
  std::istream in(&buffer);
  ScriptScan scan(in);
  EXPECT_EQ(thrown([&] { scan.yylex(); }), "plain: YY_INPUT() in flex scanner failed");
}

TEST(Scan, IntegersKeepTheirLow32Bits) {
  EXPECT_EQ(integer_of("0"), 0);
  EXPECT_EQ(integer_of("2147483647"), 2147483647);
  EXPECT_EQ(integer_of("2147483648"), -2147483647 - 1);
  EXPECT_EQ(integer_of("53021371269125"), 5);  // 12345 * 2^32 + 5
  EXPECT_EQ(integer_of("0x0"), 0);
  EXPECT_EQ(integer_of("0x9aF"), 0x9AF);
  EXPECT_EQ(integer_of("0XFFFFFFFF"), -1);
  EXPECT_EQ(integer_of("0xABCDEF0000000012"), 0x12);
}

TEST(Scan, RealsAreReadTheSameInEveryLocale) {
  const Testing::CommaLocale comma;
  if (!comma.active()) GTEST_SKIP() << "no locale with a decimal comma can be compiled here";
  ASSERT_EQ(std::strtod("2,5", nullptr), 2.5);
  EXPECT_EQ(real_of("2.5"), 2.5);
}

TEST(Scan, RealsAreTheNearestDoubles) {
  EXPECT_EQ(real_of("0.1"), 0.1);
  EXPECT_EQ(real_of(".1e1"), 1.0);
  EXPECT_EQ(real_of("123456789.123456789"), 123456789.123456789);
  EXPECT_EQ(real_of("4.9e-324"), 4.9e-324);
  EXPECT_EQ(real_of("1e400"), HUGE_VAL);
}
