// What a short script cannot make of the machine: files, array elements, values of the parser.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "script/parse.h"
#include "script/scan.h"
#include "test_tree.h"
#include "testutil.h"

using TestTree::Tank;

namespace {

class Bounds : public testing::Test {
 protected:
  std::string read(const std::string& main, const std::string& second = "") {
    std::ostringstream report;
    Script::SimpleLog log(report);
    Script::Serialise<Tank> reader("Tank");
    reader.attach_log(log);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const std::string outcome = failure([&] { reader.read(report, main, second); });
    testing::internal::GetCapturedStderr();
    printed_ = testing::internal::GetCapturedStdout();
    return outcome;
  }
  std::string read_script(const std::string& script) {
    return read(dir_.write("main.txt", script));
  }
  std::size_t opened() const {
    std::size_t count = 0;
    std::istringstream lines(printed_);
    for (std::string line; std::getline(lines, line);)
      count += line.find("Opened file") != line.npos;
    return count;
  }

  TempDir dir_;
  std::string printed_;
};

std::string repeated(const std::string& text, std::size_t count) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

// The parser alone, for its values.
class Parse : public Script::ScriptParse {
 public:
  using ScriptParse::ScriptParse;
  void report(const std::string&) override {}
};

// How many values a script leaves room for on the parser's stack.
std::size_t values_of(const std::string& script) {
  Script::WrapObj<Tank> tank;
  Script::List root;
  root.object("Tank", tank);
  Parse parse(root);
  std::istringstream in(script);
  Script::ScriptScan scan(in);
  while (const int token = scan.yylex()) {
    Script::Variable found = parse.find(scan.text());
    if (found.type() == Script::VarType::empty) {
      EXPECT_TRUE(parse.push(token, std::move(scan.value())));
    } else {
      const int kind = Script::ident_token(found);
      EXPECT_TRUE(parse.push(kind, std::move(found)));
    }
  }
  EXPECT_TRUE(parse.finish());
  return parse.values();
}

std::string sum_refused(std::uint64_t elements) {
  return "string: Arrays of " + std::to_string(elements) +
         " elements in all are too large: at most 200000 can be made or copied in one script";
}

}  // namespace

TEST_F(Bounds, FilesThatIncludeSeveralOthersAreBoundedInAll) {
  // Each of the first six files includes the next ten times: a million files in all.
  for (int i = 0; i < 6; ++i) {
    const std::string next = std::to_string(i + 1) + ".txt";
    dir_.write(std::to_string(i) + ".txt", repeated("include \"" + next + "\"\n", 10));
  }
  dir_.write("6.txt", "# end");
  EXPECT_EQ(read(dir_.file("0.txt")),
            "string: File \"" + dir_.file("6.txt") +
                "\" is not opened: one script can open at most 1000 files");
  EXPECT_EQ(opened(), 1000u);
}

TEST_F(Bounds, ThousandFilesAreRead) {
  dir_.write("part.txt", "depth = 1;");
  const std::string second = dir_.write("second.txt", "Tank { depth = 2; }");
  const auto main = [&](std::size_t includes) {
    return dir_.write("main.txt", "Tank { " + repeated("include \"part.txt\" ", includes) + "}");
  };
  EXPECT_EQ(read(main(998), second), "nothing");
  EXPECT_EQ(opened(), 1000u);
  // The second file counts as well.
  EXPECT_EQ(
      read(main(999), second),
      "string: File \"" + second + "\" is not opened: one script can open at most 1000 files");
}

TEST_F(Bounds, MissingFileIsReportedBeforeTheirNumber) {
  dir_.write("part.txt", "");
  const std::string main =
      dir_.write("main.txt", repeated("include \"part.txt\" ", 999) + "include \"missing.txt\"");
  EXPECT_EQ(read(main), "string: File \"" + dir_.file("missing.txt") + "\" does not exist");
}

TEST_F(Bounds, ArraysOfAScriptAreBoundedInAll) {
  const auto script = [](const std::string& last) {
    return "Tank { Section[1..0]; Section[0] { Layer[99999..0]; } Section[1] { Layer[" + last +
           "..0]; } }";
  };
  EXPECT_EQ(read_script(script("99997")), "nothing");
  EXPECT_EQ(read_script(script("99998")), sum_refused(200001));
}

TEST_F(Bounds, ReplicatedArraysCountWithEachCopy) {
  // 500 sections of 198 layers, and the 198 of the first before they are copied.
  const std::string nested = "Tank { Section[499..0] { Layer[197..0]; } ";
  EXPECT_EQ(read_script(nested + "}"), "nothing");
  EXPECT_EQ(read_script(nested + "Section[499..0]; }"), "nothing");
  EXPECT_EQ(read_script(nested + "Section[499..0]; Section[499..0]; }"),
            sum_refused(198 + 3 * (500 + 500 * 198)));
}

TEST_F(Bounds, DeclaringAnArrayAgainCountsAgain) {
  EXPECT_EQ(read_script("Tank { " + repeated("Section[99999..0];", 2) + " }"), "nothing");
  EXPECT_EQ(read_script("Tank { " + repeated("Section[99999..0];", 1000) + " }"),
            sum_refused(300000));
}

TEST_F(Bounds, StatementBeyondItsOwnBoundKeepsItsOwnMessage) {
  EXPECT_EQ(read_script("Tank { Section[99999..0]; Section[0] { Layer[100000..0]; } }"),
            "string: Array of 100001 elements is too large: at most 100000 can be made at once");
  EXPECT_EQ(read_script("Tank { Section[999..0] { Layer[299..0]; } }"),
            "string: Array of 300000 elements is too large: at most 100000 can be made at once");
}

TEST_F(Bounds, EachReadCountsAnew) {
  const std::string script = "Tank { " + repeated("Section[99999..0];", 2) + " }";
  EXPECT_EQ(read_script(script), "nothing");
  EXPECT_EQ(read_script(script), "nothing");
}

TEST(ParserValues, DoNotGrowWithTheLengthOfTheScript) {
  const std::string items =
      "title = \"a\"; depth = 1+2*(3-4)/-5;; gain = $; units = metric; box { x = 1; }\n"
      "Section[2*1..0]; Section[2..0] { Layer[1..0]; width = 1; } Section[1] { width = 2; }\n";
  const std::size_t once = values_of("Tank { " + items + "}");
  EXPECT_GT(once, 0u);
  EXPECT_EQ(values_of("Tank { " + repeated(items, 1000) + "}"), once);
}

TEST(ParserValues, AreNotKeptForTokensThatHaveNone) {
  // The name, then the number; the two are never there with more.
  EXPECT_EQ(values_of("Tank { depth = 1" + std::string(100000, ';') + " }"), 2u);
}
