// Reading time grows in proportion to the length of a token.

#include <gtest/gtest.h>

#include <ctime>
#include <sstream>
#include <vector>

#include "reading.h"
#include "script/scan.h"
#include "support/output.h"
#include "support/temp_dir.h"
#include "support/thrown.h"
#include "test_tree.h"

using Script::ScriptScan;
using Testing::nothing_thrown;
using Testing::printed;
using Testing::TempDir;
using TestTree::Tank;

namespace {

constexpr std::size_t four_mb = 4'000'000;
constexpr std::size_t longest = 1'048'576;

struct Scanned {
  std::size_t tokens = 0;
  double seconds = 0;  // processor time of this process
};

Scanned scanned(const std::string& script) {
  Scanned result;
  printed([&] {
    const std::clock_t start = std::clock();
    std::istringstream in(script);
    ScriptScan scan(in);
    while (scan.yylex() != 0) ++result.tokens;
    result.seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  });
  return result;
}

std::string outcome_of(const TempDir& dir, const std::string& script) {
  std::ostringstream report;
  Script::SimpleLog log(report);
  Script::Serialise<Tank> reader("Tank");
  reader.attach_log(log);
  return read_files(reader, report, dir.write("main.txt", script)).failure;
}

}  // namespace

// A scanner that restarts a token after each 8 KB needs many seconds for each of these.
TEST(LongToken, TakesTimeInProportionToItsLength) {
  struct Case {
    const char* what;
    std::string script;
    std::size_t tokens;
  };
  const std::string digits(four_mb, '1');
  const std::string letters(four_mb, 'x');
  const std::vector<Case> cases = {
      {"comment", "#" + letters + "\na", 1},
      {"comment at the end", "#" + letters, 0},
      {"blanks", std::string(four_mb, ' '), 0},
      {"tabs", std::string(four_mb, '\t') + "a", 1},
      {"name", letters, 1},
      {"integer", digits, 1},
      {"hexadecimal integer", "0x" + digits, 1},
      {"real", digits + "." + digits, 1},
      {"exponent", "1e" + digits, 1},
      {"string", "\"" + letters + "\"", 1},
      {"open string", "\"" + letters, 1},
      {"lines of a string", "\"" + letters + "\n\"", 1},
  };
  for (const Case& c : cases) {
    const Scanned result = scanned(c.script);
    EXPECT_EQ(result.tokens, c.tokens) << c.what;
    EXPECT_LT(result.seconds, 2.0) << c.what;
  }
}

TEST(LongToken, MeaninglessCharactersTakeTimeInProportionToTheirNumber) {
  const Scanned result = scanned(std::string(four_mb, '@') + "a");
  EXPECT_EQ(result.tokens, 1u);
  EXPECT_LT(result.seconds, 2.0);
}

TEST(LongToken, LongCommentsAndBlanksAreSkipped) {
  const TempDir dir;
  const std::string blanks(four_mb, ' ');
  EXPECT_EQ(outcome_of(dir, "#" + std::string(four_mb, 'x') + "\nTank {" + blanks + "depth = 1; }"),
            nothing_thrown);
}

TEST(LongToken, ATokenOfTheGreatestLengthIsRead) {
  const TempDir dir;
  const std::string text(longest, 'x');
  EXPECT_EQ(outcome_of(dir, "Tank { title = \"" + text + "\"; }"), nothing_thrown);
  EXPECT_EQ(outcome_of(dir, "Tank { depth = " + std::string(longest, '0') + "; }"), nothing_thrown);
  EXPECT_EQ(outcome_of(dir, text), "plain: yydefact after YYTRANSLATE added error");
}

TEST(LongToken, ALongerTokenIsRefusedWithItsLine) {
  const TempDir dir;
  const auto refused = [&](const std::string& kind, int line) {
    return "File \"" + dir.file("main.txt") + "\" has a " + kind +
           " of 1048577 characters at line " + std::to_string(line) +
           ": at most 1048576 can be read";
  };
  const std::string text(longest + 1, 'x');
  const std::string zeros(longest + 1, '0');
  EXPECT_EQ(outcome_of(dir, "Tank {\n  title =\n\"" + text + "\"; }"), refused("string", 3));
  EXPECT_EQ(outcome_of(dir, "include\n\"" + text + "\""), refused("string", 2));
  EXPECT_EQ(outcome_of(dir, "Tank { " + text), refused("name", 1));
  EXPECT_EQ(outcome_of(dir, "Tank { \n depth = " + zeros + "; }"), refused("number", 2));
  EXPECT_EQ(outcome_of(dir, "Tank { depth = ." + zeros.substr(1) + "; }"), refused("number", 1));
}
