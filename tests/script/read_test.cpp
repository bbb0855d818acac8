// Reading whole scripts: what the case files cannot express.

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sstream>

#include "reading.h"
#include "script/serialise.h"
#include "support/checksum.h"
#include "support/temp_dir.h"
#include "support/thrown.h"
#include "test_tree.h"

using Testing::checksum_of;
using Testing::nothing_thrown;
using Testing::TempDir;
using Testing::thrown;
using TestTree::Tank;

namespace {

class Reading : public testing::Test {
 protected:
  Reading() : log_(log_text_) {}

  // Returns the failure of the read, or nothing_thrown.
  std::string read(const std::string& script) { return read_file(dir_.write("main.txt", script)); }
  std::string read_file(const std::string& main, const std::string& second = "") {
    if (!reader_.has_log()) reader_.attach_log(log_);
    const ReadResult result = read_files(reader_, report_, main, second);
    errors_ = result.errors;
    printed_ = result.printed;
    return result.failure;
  }
  std::string dump() const { return reader_.object() ? reader_.object()->dump() : "no tank"; }

  TempDir dir_;
  std::ostringstream log_text_;
  std::ostringstream report_;
  Script::SimpleLog log_;
  Script::Serialise<Tank> reader_{"Tank"};
  std::string printed_;
  std::string errors_;
};

const std::string syntax_error = "plain: yydefact after YYTRANSLATE added error";

}  // namespace

TEST_F(Reading, AMissingFileIsReported) {
  EXPECT_EQ(read_file(""), "File \"\" does not exist");
  const std::string missing = dir_.file("missing.txt");
  EXPECT_EQ(read_file(missing), "File \"" + missing + "\" does not exist");
  EXPECT_EQ(read_file(dir_.path()), "File \"" + dir_.path() + "\" does not exist");
  EXPECT_EQ(printed_, "");
}

TEST_F(Reading, AMissingSecondFileIsReportedAfterTheFirstIsRead) {
  const std::string main = dir_.write("main.txt", "Tank { depth = 1; }");
  const std::string second = dir_.file("second.txt");
  EXPECT_EQ(read_file(main, second), "File \"" + second + "\" does not exist");
  EXPECT_EQ(printed_, "Opened file  \"" + main + "\" for input\nLeaving file \"" + main + "\"\n");
  EXPECT_EQ(dump(), "Tank.depth = 1\n");
}

TEST_F(Reading, AFileThatCannotBeOpenedIsReported) {
  // A regular file without read permission, even for the superuser.
  const std::string file = "/proc/sys/vm/drop_caches";
  EXPECT_EQ(read_file(file), "Unable to open file \"" + file + "\" for input");
  EXPECT_EQ(printed_, "");
}

TEST_F(Reading, AFileThatCannotBeReadIsReported) {
  // The memory of this process is a regular file whose first byte cannot be read.
  EXPECT_EQ(read_file("/proc/self/mem"), "plain: YY_INPUT() in flex scanner failed");
}

TEST_F(Reading, APathIsEscapedInOutputButNotInMessages) {
  const std::string main = dir_.write("a\"b&c.txt", "Tank { depth = 1; }");
  EXPECT_EQ(read_file(main), nothing_thrown);
  const std::string escaped = "\"" + dir_.path() + "/a&\"b&&c.txt\"";
  EXPECT_EQ(printed_, "Opened file  " + escaped + " for input\nLeaving file " + escaped + "\n");
  const std::string missing = dir_.file("x\"&y.txt");
  EXPECT_EQ(read_file(missing), "File \"" + missing + "\" does not exist");
}

TEST_F(Reading, AnIncludeIsFoundBesideAFileGivenWithoutADirectory) {
  dir_.write("main.txt", "include \"part.txt\"");
  dir_.write("part.txt", "Tank { depth = 1; }");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(dir_.path());
  const std::string outcome = read_file("main.txt");
  std::filesystem::current_path(before);
  EXPECT_EQ(outcome, nothing_thrown);
  EXPECT_EQ(printed_,
            "Opened file  \"main.txt\" for input\n  Opened file  \"part.txt\" for input\n"
            "  Leaving file \"part.txt\"\nLeaving file \"main.txt\"\n");
}

TEST_F(Reading, AnIncludeThroughALinkIsTheSameFile) {
  dir_.write("main.txt", "include \"link.txt\"");
  std::filesystem::create_symlink("main.txt", dir_.file("link.txt"));
  EXPECT_EQ(read_file(dir_.file("main.txt")),
            "File \"" + dir_.file("link.txt") + "\" includes itself");
}

TEST_F(Reading, AMainFileThroughALinkIsTheSameFile) {
  dir_.write("main.txt", "include \"main.txt\"");
  const std::string link = dir_.file("link.txt");
  std::filesystem::create_symlink("main.txt", link);
  EXPECT_EQ(read_file(link), "File \"" + dir_.file("main.txt") + "\" includes itself");
  EXPECT_EQ(printed_, "Opened file  \"" + link + "\" for input\n");
}

TEST_F(Reading, TheDepthOfIncludesIsBounded) {
  const auto name = [](int i) { return std::to_string(i) + ".txt"; };
  for (int i = 0; i < 250; ++i) dir_.write(name(i), "include \"" + name(i + 1) + "\"");
  EXPECT_EQ(read_file(dir_.file(name(0))),
            "File \"" + dir_.file(name(201)) + "\" is included too deeply");
  dir_.write(name(200), "Tank { depth = 1; }");
  EXPECT_EQ(read_file(dir_.file(name(0))), nothing_thrown);
}

TEST_F(Reading, CarriageReturnsAreCopiedAndChangeNothing) {
  EXPECT_EQ(read("Tank {\r\n  depth = 1; # x\r\n}\r\n"), nothing_thrown);
  EXPECT_EQ(dump(), "Tank.depth = 1\n");
  const std::string main = dir_.file("main.txt");
  // The carriage return after the comment is part of the comment.
  EXPECT_EQ(printed_,
            "Opened file  \"" + main + "\" for input\n\r\rLeaving file \"" + main + "\"\n");
}

TEST_F(Reading, ACommentMayEndAFileWithoutANewline) {
  EXPECT_EQ(read("Tank { depth = 1; }#"), nothing_thrown);
  EXPECT_EQ(dump(), "Tank.depth = 1\n");
}

TEST_F(Reading, AScriptMayEndDirectlyAfterItsLastToken) {
  EXPECT_EQ(read("Tank{depth=1;}"), nothing_thrown);
  EXPECT_EQ(dump(), "Tank.depth = 1\n");
}

TEST_F(Reading, AnEmptyFileIsASyntaxError) { EXPECT_EQ(read(""), syntax_error); }

TEST_F(Reading, ASyntaxErrorIsReportedWithItsPlace) {
  EXPECT_EQ(read("Tank {\n  depth = 1 }\n"), syntax_error);
  EXPECT_EQ(errors_, "Failing at syntax error, unexpected }, expecting ; in \"" +
                         dir_.file("main.txt") + "\" at line 2 column 13\n");
}

TEST_F(Reading, AnUnknownNameIsASyntaxErrorWithItsPlace) {
  EXPECT_EQ(read("Tank { depth = 1; dept = 2; }"), syntax_error);
  EXPECT_TRUE(errors_.starts_with("Failing at syntax error, unexpected unknown name, expecting "))
      << errors_;
  EXPECT_TRUE(errors_.ends_with(" at line 1 column 19\n")) << errors_;
}

TEST_F(Reading, ASyntaxErrorAtTheEndHasNoPlace) {
  EXPECT_EQ(read("Tank { depth = 1;"), syntax_error);
  EXPECT_TRUE(errors_.starts_with("Failing at syntax error, unexpected end of input")) << errors_;
  EXPECT_EQ(errors_.find("main.txt"), std::string::npos);
}

TEST_F(Reading, ValuesSetBeforeAFailureStaySet) {
  EXPECT_EQ(read("Tank { depth = 1; title = \"a\"; gain }"), syntax_error);
  EXPECT_EQ(dump(), "Tank.depth = 1\nTank.title = \"a\"\n");
}

// The parser's stack has fewer than 200 entries: its start, key, opened scope and brace, the key
// and the equals sign, then each bracket, and on top the value and its closing bracket.
TEST_F(Reading, BracketsNestUntilTheStackIsFull) {
  const auto nested = [](int depth) {
    return "Tank { depth = " + repeated("(", depth) + "1" + repeated(")", depth) + "; }";
  };
  EXPECT_EQ(read(nested(191)), nothing_thrown);
  EXPECT_EQ(dump(), "Tank.depth = 1\n");
  EXPECT_EQ(read(nested(192)), "" + dir_.file("main.txt") + "::parse error");
  EXPECT_TRUE(errors_.starts_with("Failing at memory exhausted, the script is nested too deeply"))
      << errors_;
}

// Each block takes three entries: key, opened scope, brace. The innermost assignment takes three.
TEST_F(Reading, BlocksNestUntilTheStackIsFull) {
  const auto nested = [](int depth) {
    return "Tank { " + repeated("box { ", depth - 1) + "x = 1; " + repeated("} ", depth);
  };
  EXPECT_EQ(read(nested(65)), nothing_thrown);
  EXPECT_EQ(read(nested(66)), "" + dir_.file("main.txt") + "::parse error");
}

TEST_F(Reading, TheFileThatExhaustsTheStackIsLeft) {
  const std::string main = dir_.file("main.txt");
  EXPECT_EQ(read("Tank { depth = " + repeated("(", 250) + "@"), "" + main + "::parse error");
  EXPECT_EQ(printed_, "Opened file  \"" + main + "\" for input\nLeaving file \"" + main + "\"\n");
}

TEST_F(Reading, AnIncludeThatExhaustsTheStackStopsTheIncludingFile) {
  dir_.write("part.txt", repeated("(", 250));
  const std::string main = dir_.file("main.txt");
  EXPECT_EQ(read("Tank { depth = include \"part.txt\" @"), "" + main + "::parse error");
  EXPECT_EQ(printed_, "Opened file  \"" + main + "\" for input\n  Opened file  \"" +
                          dir_.file("part.txt") + "\" for input\n  Leaving file \"" +
                          dir_.file("part.txt") + "\"\n");
}

TEST_F(Reading, ASecondFileThatExhaustsTheStackIsReportedUnderTheMainName) {
  const std::string main = dir_.write("main.txt", "Tank { depth = ");
  const std::string second = dir_.write("second.txt", repeated("(", 250));
  EXPECT_EQ(read_file(main, second), "" + main + "::parse error");
}

TEST_F(Reading, FlatScriptsMayHaveAnyLength) {
  EXPECT_EQ(read("Tank { " + repeated("title = \"a\"; depth = 1+2*(3-4);;", 20000) + " }"),
            nothing_thrown);
  EXPECT_EQ(dump(), "Tank.depth = -1\nTank.title = \"a\"\n");
}

TEST_F(Reading, TruncatedScriptsAreSyntaxErrors) {
  const std::string whole =
      "Tank { title = \"a b\"; units = metric; depth = (1.5 + -2) * 0x1F; gain = $;\n"
      "Section[2..1] { label = \"c\"; Layer[0..0] { depth = 1; } box { x = 1; } }\n"
      "Section[2] { width = 1; } } # end";
  for (std::size_t length = 0; length < whole.size() - 7; ++length) {
    Script::Serialise<Tank> reader("Tank");
    reader.attach_log(log_);
    const std::string main = dir_.write("main.txt", whole.substr(0, length));
    EXPECT_EQ(read_files(reader, report_, main).failure, syntax_error) << length;
  }
  EXPECT_EQ(read(whole), nothing_thrown);
}

TEST_F(Reading, NoValueIsStoredAsAMark) {
  EXPECT_EQ(read("Tank { depth = $; count = $; }"), nothing_thrown);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(reader_.object()->depth), 0x7FF8000000000000u);
  EXPECT_EQ(static_cast<std::uint32_t>(reader_.object()->count), 0x80000000u);
}

TEST_F(Reading, UnmentionedObjectsAreNotBuilt) {
  EXPECT_EQ(read("Tank { depth = 1; }"), nothing_thrown);
  EXPECT_EQ(reader_.object()->box.get(), nullptr);
  EXPECT_EQ(reader_.object()->section.size(), 0u);
}

TEST_F(Reading, AReaderIsEmptyBeforeItReads) {
  EXPECT_EQ(reader_.object(), nullptr);
  EXPECT_EQ(reader_.checksum(), 0u);
}

TEST_F(Reading, ObjectsHaveTheirPathsAndReportToTheLog) {
  EXPECT_EQ(read("Tank { Section[2..1]; }"), nothing_thrown);
  EXPECT_EQ(reader_.object()->section[1].path(), "Tank::Section[2]");
  reader_.object()->section[1].message(Script::LogItm("General", 5).add("here"));
  EXPECT_EQ(log_text_.str(), "Info::here\n");
}

TEST_F(Reading, TheChecksumIsThatOfTheRootObject) {
  EXPECT_EQ(read("Tank { depth = 1; gain = 2; }"), nothing_thrown);
  const std::uint32_t before = reader_.checksum();
  const std::uint32_t all_before = reader_.checksum(false);
  reader_.object()->gain = 3;
  EXPECT_EQ(reader_.checksum(), before);
  EXPECT_NE(reader_.checksum(false), all_before);
  EXPECT_EQ(before, checksum_of("Tankdepth = 1count = -999title = \"untouched\"units = Not found"));
}

TEST_F(Reading, SaveWritesTheSettingsToTheSecondFile) {
  const std::string main = dir_.write("main.txt", "Tank { depth = 1; Section[1..0]; }");
  const std::string second = dir_.write("second.txt", "Tank { gain = 2; shown = metric; }");
  EXPECT_EQ(read_file(main, second), nothing_thrown);
  reader_.object()->gain = 2.5;
  reader_.object()->section[0].save();
  EXPECT_EQ(dir_.contents("second.txt"),
            "Tank {\n\tgain = 2.5;\n\tlevel = -999;\n\tnote = \"untouched\";\n\tshown = metric;\n"
            "}\n");

  Script::Serialise<Tank> again("Tank");
  again.attach_log(log_);
  EXPECT_EQ(read_files(again, report_, main, second).failure, nothing_thrown);
  EXPECT_EQ(again.object()->gain, 2.5);
}

TEST_F(Reading, SaveWithoutASecondFileDoesNothing) {
  reader_.save();
  EXPECT_EQ(read("Tank { depth = 1; }"), nothing_thrown);
  reader_.save();
  EXPECT_EQ(dir_.contents("main.txt"), "Tank { depth = 1; }");
}

TEST_F(Reading, SaveIgnoresAFileThatCannotBeOpened) {
  const std::string main = dir_.write("main.txt", "Tank { depth = 1; }");
  const std::string second = dir_.write("second.txt", "# nothing yet");
  EXPECT_EQ(read_file(main, second), nothing_thrown);
  std::filesystem::remove(second);
  std::filesystem::create_directory(second);
  EXPECT_EQ(thrown([&] { reader_.save(); }), nothing_thrown);
  EXPECT_TRUE(std::filesystem::is_empty(second));
}

using ReadingDeathTest = Reading;

TEST_F(ReadingDeathTest, IntegerDivisionByZeroStopsTheProcess) {
  const auto divide = [&] {
    std::signal(SIGFPE, SIG_DFL);  // a sanitizer installs its own handler
    reader_.read(report_, dir_.write("main.txt", "Tank { depth = 1/(2-2); }"), "");
  };
  EXPECT_EXIT(divide(), testing::KilledBySignal(SIGFPE), "");
}
