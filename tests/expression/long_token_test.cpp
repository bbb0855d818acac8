// Reading time grows in proportion to the length of a token.

#include <gtest/gtest.h>

#include <cstddef>
#include <ctime>
#include <string>
#include <vector>

#include "support/output.h"
#include "support/thrown.h"
#include "testutil.h"

namespace Expression {
namespace {

using Testing::printed;
using Testing::thrown;

constexpr std::size_t FourMb = 4'000'000;
constexpr std::size_t Longest = 1'048'576;

// The processor time to read a formula, whether or not it succeeds.
double seconds(const std::string& formula) {
  std::clock_t start = 0;
  std::clock_t end = 0;
  printed([&] {
    start = std::clock();
    thrown([&] { Function{formula}; });
    end = std::clock();
  });
  return static_cast<double>(end - start) / CLOCKS_PER_SEC;
}

std::string filled(std::size_t length, char with) { return std::string(length, with); }

// A scanner that restarts a token after each 8 KB needs many seconds for each of these.
TEST(LongToken, TakesTimeInProportionToItsLength) {
  struct Case {
    const char* what;
    std::string formula;
  };
  const std::vector<Case> cases = {
      {"blanks", "1+" + filled(FourMb, ' ') + "2"},
      {"tabs", "1+" + filled(FourMb, '\t') + "2"},
      {"integer", filled(FourMb, '1')},
      {"hexadecimal integer", "0x" + filled(FourMb, '1')},
      {"real", "1." + filled(FourMb, '1')},
      {"name", filled(FourMb, 'x')},
      {"units", "x[" + filled(FourMb, 'm') + "]"},
      {"open bracket", "1+2[" + filled(FourMb, ' ')},
      {"meaningless characters", "1+2" + filled(FourMb, '!')},
      {"newlines", "1+2" + filled(FourMb, '\n')},
  };
  for (const Case& c : cases) EXPECT_LT(seconds(c.formula), 2.0) << c.what;
}

// A scanner that searches the rest of the formula from each bracket needs days.
TEST(LongToken, OpenBracketsTakeTimeInProportionToTheirNumber) {
  const std::string brackets = filled(FourMb, '[');
  EXPECT_LT(seconds("1" + brackets + "+2"), 2.0);
  EXPECT_EQ(evaluated("1" + brackets + "+2"), 3.0);
}

TEST(LongToken, UnitsEndAtTheFirstClosingBracket) {
  // Opening brackets inside units belong to the units.
  EXPECT_EQ(thrown([] { Function("x[[m]+[1"); }), "Unknown units - [m");
  EXPECT_EQ(evaluated("$[m]+[[1+[2", quantity(5.0, "m")), 8.0);
}

TEST(LongToken, AnyNumberOfBlanksIsSkipped) {
  EXPECT_EQ(evaluated("1+" + filled(FourMb, ' ') + "2"), 3.0);
}

TEST(LongToken, ATokenOfTheGreatestLengthIsRead) {
  EXPECT_EQ(evaluated("2+" + filled(Longest - 1, '0') + "7"), 9.0);
  EXPECT_EQ(written(Function(filled(Longest, 'x'))), filled(Longest, 'x') + "[]");
  const std::string units = filled(Longest, 'm');
  EXPECT_EQ(thrown([&] { Function("x[" + units + "]"); }), "Unknown units - " + units);
}

TEST(LongToken, ALongerTokenIsRefused) {
  const auto refused = [](const std::string& beginning, const std::string& kind) {
    return "Formula \"" + beginning + "...\" has a " + kind +
           " of 1048577 characters: at most 1048576 can be read";
  };
  const std::size_t length = Longest + 1;
  EXPECT_EQ(thrown([&] { Function("2*" + filled(length, 'x') + " @m"); }),
            refused("2*" + filled(58, 'x'), "name"));
  EXPECT_EQ(thrown([&] { Function(filled(length, '1')); }), refused(filled(60, '1'), "number"));
  EXPECT_EQ(thrown([&] { Function("x[" + filled(length, 'm') + "]"); }),
            refused("x[" + filled(58, 'm'), "unit"));
}

TEST(LongToken, TheMessageDoesNotSplitACharacter) {
  // The omega takes bytes 60 and 61, and the message quotes at most 60.
  const std::string start = "1+" + filled(57, ' ');
  const std::string message =
      thrown([&] { Function(start + "\u03A9" + filled(Longest + 1, 'x')); });
  EXPECT_TRUE(message.starts_with("Formula \"" + start + "...\" has a name")) << message;
}

TEST(LongToken, TheMessageQuotesNothingOfAFormulaWithoutCharacters) {
  // Each byte continues a character that has not begun.
  const std::string message =
      thrown([] { Function(filled(70, '\x80') + filled(Longest + 1, 'x')); });
  EXPECT_TRUE(message.starts_with("Formula \"...\" has a name")) << message;
}

}  // namespace
}  // namespace Expression
