#include "jobs/diagnostic.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "jobs/failure.h"
#include "jobs/marked_line.h"

namespace {

using Jobs::Colour;
using Jobs::Diagnostic;
using Jobs::Diagnostics;
using Jobs::show;
using Jobs::SourceText;
using Jobs::Span;

std::shared_ptr<const SourceText> source(std::string text, std::string name = "storm.toml") {
  return std::make_shared<SourceText>(SourceText{std::move(name), std::move(text)});
}

TEST(Diagnostic, ShowsTheLineAndCarets) {
  const auto text = source(std::string(16, '\n') + "      gama  = 3.3\nnext\n");
  EXPECT_EQ(
      show({"unknown key `gama` in a `jonswap` wave", {text, 17, 7, 4}, "did you mean `gamma`?"}),
      "error: unknown key `gama` in a `jonswap` wave\n"
      "  --> storm.toml:17:7\n"
      "   |\n"
      "17 |       gama  = 3.3\n"
      "   |       ^^^^ did you mean `gamma`?\n");
}

TEST(Diagnostic, TheMarginFollowsTheLineNumber) {
  EXPECT_EQ(show({"bad", {source("a = 1"), 1, 1, 1}, ""}),
            "error: bad\n"
            " --> storm.toml:1:1\n"
            "  |\n"
            "1 | a = 1\n"
            "  | ^\n");
  EXPECT_EQ(show({"bad", {source(std::string(999, '\n') + "a = 1\r\n"), 1000, 5, 1}, "why"}),
            "error: bad\n"
            "    --> storm.toml:1000:5\n"
            "     |\n"
            "1000 | a = 1\n"
            "     |     ^ why\n");
}

TEST(Diagnostic, AFaultOfAWholeFileHasNoLine) {
  EXPECT_EQ(show({"the job has no `site`", {source("a = 1"), 0, 0, 0}, "add one"}),
            "error: the job has no `site`\n"
            " --> storm.toml\n"
            "  = add one\n");
}

TEST(Diagnostic, AFaultWithoutASourceIsOneLine) {
  EXPECT_EQ(show({"storm.toml: No such file or directory", {}, ""}),
            "error: storm.toml: No such file or directory\n");
}

TEST(Diagnostic, CaretsStandBelowCharactersOfSeveralBytes) {
  // "é€😀" has 2, 3 and 4 bytes; `x` is byte 11 and column 5.
  EXPECT_EQ(show({"bad", {source("\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80x"), 1, 11, 1}, ""}),
            "error: bad\n"
            " --> storm.toml:1:11\n"
            "  |\n"
            "1 | \"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80x\n"
            "  |     ^\n");
  EXPECT_EQ(show({"bad", {source("\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80x"), 1, 2, 9}, ""}),
            "error: bad\n"
            " --> storm.toml:1:2\n"
            "  |\n"
            "1 | \"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80x\n"
            "  |  ^^^\n");
}

TEST(Diagnostic, ControlCharactersBecomeBlanks) {
  EXPECT_EQ(show({"a\x1B[2Jb", {source("\tx\x1B[31m = \xC2\x9B 1", "n\x07.toml"), 1, 2, 1}, "\r!"}),
            "error: a [2Jb\n"
            " --> n .toml:1:2\n"
            "  |\n"
            "1 |  x [31m =   1\n"
            "  |  ^  !\n");
}

TEST(Diagnostic, BytesThatAreNotUtf8BecomeQuestionMarks) {
  EXPECT_EQ(show({"\xFF", {source("\xE9=1", "--set"), 1, 2, 1}, ""}),
            "error: ?\n"
            " --> --set:1:2\n"
            "  |\n"
            "1 | ?=1\n"
            "  |  ^\n");
}

TEST(Diagnostic, AByteOrderMarkHasNoColumn) {
  EXPECT_EQ(show({"bad", {source("\xEF\xBB\xBFx = 1"), 1, 4, 1}, ""}),
            "error: bad\n"
            " --> storm.toml:1:4\n"
            "  |\n"
            "1 | x = 1\n"
            "  | ^\n");
}

TEST(Diagnostic, ASpanBehindTheLineHasOneCaretAtItsEnd) {
  EXPECT_EQ(show({"no value", {source("a =\nb = 1"), 1, 4, 1}, ""}),
            "error: no value\n"
            " --> storm.toml:1:4\n"
            "  |\n"
            "1 | a =\n"
            "  |    ^\n");
  EXPECT_EQ(show({"bad", {source("abc"), 1, 2, 500}, ""}),
            "error: bad\n"
            " --> storm.toml:1:2\n"
            "  |\n"
            "1 | abc\n"
            "  |  ^^\n");
}

TEST(Diagnostic, ALineThatDoesNotExistIsEmpty) {
  EXPECT_EQ(show({"the file ends too early", {source("a"), 7, 1, 0}, ""}),
            "error: the file ends too early\n"
            " --> storm.toml:7:1\n"
            "  |\n"
            "7 |\n"
            "  | ^\n");
}

TEST(Diagnostic, AVeryLongLineIsCutAroundTheSpan) {
  const std::string text = std::string(5000, 'a') + "XYZ" + std::string(5000, 'b');
  EXPECT_EQ(show({"bad", {source(text), 1, 5001, 3}, "here"}),
            "error: bad\n"
            " --> storm.toml:1:5001\n"
            "  |\n"
            "1 | ..." +
                std::string(30, 'a') + "XYZ" + std::string(67, 'b') +
                "...\n"
                "  | " +
                std::string(33, ' ') + "^^^ here\n");
}

TEST(Diagnostic, TheEndsOfALongLineAreShownWhole) {
  const std::string text = "XYZ" + std::string(500, 'b') + "UVW";
  EXPECT_EQ(show({"bad", {source(text), 1, 1, 3}, ""}),
            "error: bad\n"
            " --> storm.toml:1:1\n"
            "  |\n"
            "1 | XYZ" +
                std::string(97, 'b') +
                "...\n"
                "  | ^^^\n");
  EXPECT_EQ(show({"bad", {source(text), 1, 504, 3}, ""}),
            "error: bad\n"
            " --> storm.toml:1:504\n"
            "  |\n"
            "1 | ..." +
                std::string(97, 'b') +
                "UVW\n"
                "  | " +
                std::string(100, ' ') + "^^^\n");
}

TEST(Diagnostic, ALongLineIsCutBetweenCharacters) {
  std::string text;
  for (int i = 0; i < 100000; ++i) {
    text += "\xE2\x82\xAC";
  }
  const std::string euro = "\xE2\x82\xAC";
  std::string shown_line;
  for (int i = 0; i < 100; ++i) {
    shown_line += euro;
  }
  for (const std::uint32_t character : {50000U, 50001U, 50002U, 50003U}) {
    const std::uint32_t column = 3 * character + 1;
    EXPECT_EQ(show({"bad", {source(text), 1, column, 3}, ""}),
              "error: bad\n"
              " --> storm.toml:1:" +
                  std::to_string(column) +
                  "\n"
                  "  |\n"
                  "1 | ..." +
                  shown_line +
                  "...\n"
                  "  | " +
                  std::string(33, ' ') + "^\n");
  }
}

TEST(Diagnostic, CaretsDoNotGoBeyondTheCutLine) {
  const std::string text(1000, 'a');
  EXPECT_EQ(show({"bad", {source(text), 1, 1, 1000}, ""}),
            "error: bad\n"
            " --> storm.toml:1:1\n"
            "  |\n"
            "1 | " +
                std::string(100, 'a') +
                "...\n"
                "  | " +
                std::string(100, '^') + "\n");
}

TEST(Diagnostic, AVeryLongMessageIsCut) {
  const std::string shown = show({std::string(100000, 'x'), {}, ""});
  EXPECT_EQ(shown, "error: " + std::string(400, 'x') + "...\n");
}

TEST(Diagnostic, ColoursSurroundTheErrorAndTheCarets) {
  EXPECT_EQ(show({"bad", {source("a = 1"), 1, 5, 1}, "why"}, Colour::on),
            "\x1B[1;31merror\x1B[0m\x1B[1m: bad\x1B[0m\n"
            " \x1B[1;34m-->\x1B[0m storm.toml:1:5\n"
            "\x1B[1;34m  |\x1B[0m\n"
            "\x1B[1;34m1 |\x1B[0m a = 1\n"
            "\x1B[1;34m  |\x1B[0m     \x1B[1;31m^ why\x1B[0m\n");
}

TEST(Diagnostic, SortsByPlaceWithinEachSource) {
  const auto a = source("", "a");
  const auto b = source("", "b");
  Diagnostics faults = {
      {"b2", {b, 2, 1, 1}, ""},       {"a2", {a, 2, 5, 1}, ""}, {"none", {}, ""},
      {"a2 left", {a, 2, 3, 1}, ""},  {"b1", {b, 1, 9, 1}, ""}, {"a whole", {a, 0, 0, 0}, ""},
      {"a2 again", {a, 2, 3, 1}, ""}, {"none again", {}, ""}};
  Jobs::sort_by_place(faults);
  std::string order;
  for (const Diagnostic& fault : faults) {
    order += fault.fault + ", ";
  }
  EXPECT_EQ(order, "none, none again, b1, b2, a whole, a2 left, a2 again, a2, ");
}

TEST(Diagnostic, AnEmptyLineIsShown) {
  EXPECT_EQ(show({"bad", {source("a = 1\n\nb = 2"), 2, 1, 1}, ""}),
            "error: bad\n"
            " --> storm.toml:2:1\n"
            "  |\n"
            "2 |\n"
            "  | ^\n");
}

// A mark has three bytes and no column, so that hundreds of them make a line long but not wide.
TEST(Diagnostic, ALineThatOnlyMarksMakeLongIsCutToo) {
  std::string marks;
  for (int i = 0; i < 400; ++i) marks += "\xEF\xBB\xBF";
  const Jobs::MarkedLine late = Jobs::marked_line({source("a" + marks + "x = 1"), 1, 1202, 1});
  EXPECT_EQ(late.text, "...x = 1");
  EXPECT_EQ(late.blanks, 3u);
  const Jobs::MarkedLine early = Jobs::marked_line({source("xy" + marks + "a = 1"), 1, 1, 1});
  EXPECT_EQ(early.text, "xy...");
  EXPECT_EQ(early.blanks, 0u);
}

TEST(Diagnostic, ALineWithoutAColumnIsMarkedAtItsBeginning) {
  const Jobs::MarkedLine marked = Jobs::marked_line({source("a = 1"), 1, 0, 1});
  EXPECT_EQ(marked.blanks, 0u);
  EXPECT_EQ(marked.carets, 1u);
}

TEST(CommentText, LosesTheWordForItsKind) {
  EXPECT_EQ(Jobs::comment_text("Warning::Poor match"), "Poor match");
  EXPECT_EQ(Jobs::comment_text("Poor match"), "Poor match");
}

}  // namespace
