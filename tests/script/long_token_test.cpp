// Tokens of any length: each takes time in proportion to its length.

#include <gtest/gtest.h>

#include <ctime>
#include <sstream>
#include <vector>

#include "script/scan.h"
#include "test_tree.h"
#include "testutil.h"

using Script::ScriptScan;
using TestTree::Tank;

namespace {

constexpr std::size_t four_mb = 4'000'000;
constexpr std::size_t longest = 1'048'576;

struct Scanned {
  std::size_t tokens = 0;
  double seconds = 0;  // of this process, whatever else the machine does
};

Scanned scanned(const std::string& script) {
  testing::internal::CaptureStdout();
  Scanned result;
  const std::clock_t start = std::clock();
  std::istringstream in(script);
  ScriptScan scan(in);
  while (scan.yylex() != 0) ++result.tokens;
  result.seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  testing::internal::GetCapturedStdout();
  return result;
}

std::string outcome_of(const TempDir& dir, const std::string& script) {
  std::ostringstream report;
  Script::SimpleLog log(report);
  Script::Serialise<Tank> reader("Tank");
  reader.attach_log(log);
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const std::string outcome =
      failure([&] { reader.read(report, dir.write("main.txt", script), ""); });
  testing::internal::GetCapturedStderr();
  testing::internal::GetCapturedStdout();
  return outcome;
}

}  // namespace

// A scanner that starts a token again after each 8 KB needs many seconds for each of these.
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

TEST(LongToken, RunsOfMeaninglessCharactersTakeTimeInProportionToTheirLength) {
  const Scanned result = scanned(std::string(four_mb, '@') + "a");
  EXPECT_EQ(result.tokens, 1u);
  EXPECT_LT(result.seconds, 2.0);
}

TEST(LongToken, CommentsAndBlanksAreReadAtAnyLength) {
  const TempDir dir;
  const std::string blanks(four_mb, ' ');
  EXPECT_EQ(outcome_of(dir, "#" + std::string(four_mb, 'x') + "\nTank {" + blanks + "depth = 1; }"),
            "nothing");
}

TEST(LongToken, OfTheGreatestLengthIsRead) {
  const TempDir dir;
  const std::string text(longest, 'x');
  EXPECT_EQ(outcome_of(dir, "Tank { title = \"" + text + "\"; }"), "nothing");
  EXPECT_EQ(outcome_of(dir, "Tank { depth = " + std::string(longest, '0') + "; }"), "nothing");
  EXPECT_EQ(outcome_of(dir, text), "text: yydefact after YYTRANSLATE added error");
}

TEST(LongToken, BeyondTheGreatestLengthIsRefusedWithItsPlace) {
  const TempDir dir;
  const auto refused = [&](const std::string& kind, int line) {
    return "string: File \"" + dir.file("main.txt") + "\" has a " + kind +
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
