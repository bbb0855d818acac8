// A short script cannot exhaust the machine: files, array elements and parser values are bounded.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "reading.h"
#include "script/parse.h"
#include "script/scan.h"
#include "support/temp_dir.h"
#include "support/thrown.h"
#include "test_tree.h"

using Testing::nothing_thrown;
using Testing::TempDir;
using TestTree::Tank;

namespace {

class Bounds : public testing::Test {
 protected:
  std::string read(const std::string& main, const std::string& second = "") {
    std::ostringstream report;
    Script::SimpleLog log(report);
    Script::Serialise<Tank> reader("Tank");
    reader.attach_log(log);
    const ReadResult result = read_files(reader, report, main, second);
    printed_ = result.printed;
    return result.failure;
  }
  std::string read_script(const std::string& script) {
    return read(dir_.write("main.txt", script));
  }
  std::size_t opened() const {
    std::size_t count = 0;
    std::istringstream lines(printed_);
    for (std::string line; std::getline(lines, line);) {
      if (line.find("Opened file") != line.npos) ++count;
    }
    return count;
  }

  TempDir dir_;
  std::string printed_;
};

// A parser that ignores reports.
class Parse : public Script::ScriptParse {
 public:
  using ScriptParse::ScriptParse;
  void report(const std::string&) override {}
};

// The number of values that the parser makes room for while it reads a script.
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
  return "Arrays of " + std::to_string(elements) +
         " elements in all are too large: at most 200000 can be made or copied in one script";
}

}  // namespace

TEST_F(Bounds, TheTotalNumberOfFilesIsBounded) {
  // Each of the first six files includes the next one ten times: a million files in total.
  for (int i = 0; i < 6; ++i) {
    const std::string next = std::to_string(i + 1) + ".txt";
    dir_.write(std::to_string(i) + ".txt", repeated("include \"" + next + "\"\n", 10));
  }
  dir_.write("6.txt", "# end");
  EXPECT_EQ(
      read(dir_.file("0.txt")),
      "File \"" + dir_.file("6.txt") + "\" is not opened: one script can open at most 1000 files");
  EXPECT_EQ(opened(), 1000u);
}

TEST_F(Bounds, AThousandFilesAreRead) {
  dir_.write("part.txt", "depth = 1;");
  const std::string second = dir_.write("second.txt", "Tank { depth = 2; }");
  const auto main = [&](std::size_t includes) {
    return dir_.write("main.txt", "Tank { " + repeated("include \"part.txt\" ", includes) + "}");
  };
  EXPECT_EQ(read(main(998), second), nothing_thrown);
  EXPECT_EQ(opened(), 1000u);
  // The second file is counted too.
  EXPECT_EQ(read(main(999), second),
            "File \"" + second + "\" is not opened: one script can open at most 1000 files");
}

TEST_F(Bounds, AMissingFileIsReportedBeforeTheBound) {
  dir_.write("part.txt", "");
  const std::string main =
      dir_.write("main.txt", repeated("include \"part.txt\" ", 999) + "include \"missing.txt\"");
  EXPECT_EQ(read(main), "File \"" + dir_.file("missing.txt") + "\" does not exist");
}

TEST_F(Bounds, TheTotalNumberOfArrayElementsIsBounded) {
  const auto script = [](const std::string& last) {
    return "Tank { Section[1..0]; Section[0] { Layer[99999..0]; } Section[1] { Layer[" + last +
           "..0]; } }";
  };
  EXPECT_EQ(read_script(script("99997")), nothing_thrown);
  EXPECT_EQ(read_script(script("99998")), sum_refused(200001));
}

TEST_F(Bounds, EachCopyOfAReplicatedArrayIsCounted) {
  // 500 sections of 198 layers, plus the 198 layers of the first section before it is copied.
  const std::string nested = "Tank { Section[499..0] { Layer[197..0]; } ";
  EXPECT_EQ(read_script(nested + "}"), nothing_thrown);
  EXPECT_EQ(read_script(nested + "Section[499..0]; }"), nothing_thrown);
  EXPECT_EQ(read_script(nested + "Section[499..0]; Section[499..0]; }"),
            sum_refused(198 + 3 * (500 + 500 * 198)));
}

TEST_F(Bounds, AnArrayDeclaredAgainIsCountedAgain) {
  EXPECT_EQ(read_script("Tank { " + repeated("Section[99999..0];", 2) + " }"), nothing_thrown);
  EXPECT_EQ(read_script("Tank { " + repeated("Section[99999..0];", 1000) + " }"),
            sum_refused(300000));
}

TEST_F(Bounds, ATooLargeStatementKeepsItsOwnMessage) {
  EXPECT_EQ(read_script("Tank { Section[99999..0]; Section[0] { Layer[100000..0]; } }"),
            "Array of 100001 elements is too large: at most 100000 can be made at once");
  EXPECT_EQ(read_script("Tank { Section[999..0] { Layer[299..0]; } }"),
            "Array of 300000 elements is too large: at most 100000 can be made at once");
}

TEST_F(Bounds, EachReadStartsItsOwnCount) {
  const std::string script = "Tank { " + repeated("Section[99999..0];", 2) + " }";
  EXPECT_EQ(read_script(script), nothing_thrown);
  EXPECT_EQ(read_script(script), nothing_thrown);
}

TEST(ParserValues, DoNotGrowWithTheScript) {
  const std::string items =
      "title = \"a\"; depth = 1+2*(3-4)/-5;; gain = $; units = metric; box { x = 1; }\n"
      "Section[2*1..0]; Section[2..0] { Layer[1..0]; width = 1; } Section[1] { width = 2; }\n";
  const std::size_t once = values_of("Tank { " + items + "}");
  EXPECT_GT(once, 0u);
  EXPECT_EQ(values_of("Tank { " + repeated(items, 1000) + "}"), once);
}

TEST(ParserValues, AreNotStoredForTokensWithoutAValue) {
  // The name and the number; no third value exists at the same time.
  EXPECT_EQ(values_of("Tank { depth = 1" + std::string(100000, ';') + " }"), 2u);
}
