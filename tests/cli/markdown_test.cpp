// What `kelpbox explain` takes from pages.
#include "cli/markdown.h"

#include <gtest/gtest.h>

#include "cli/message_pattern.h"

namespace {

using Cli::MessagePattern;
using Cli::PageBlock;
using Words = std::vector<std::string>;

TEST(MarkdownBlocks, HaveTheCellsOfATable) {
  const auto blocks = Cli::blocks_of("| a | b |\n|---|:-:|\n| x\\|y | \\z |\n| q\\\n");
  ASSERT_EQ(blocks.size(), 2U);
  EXPECT_EQ(blocks[0].kind, PageBlock::Kind::row);
  EXPECT_EQ(blocks[0].heads, (Words{"a", "b"}));
  EXPECT_EQ(blocks[0].cells, (Words{"x|y", "\\z"}));
}

TEST(MarkdownBlocks, ContinueAParagraphWithIndentedLines) {
  const auto blocks = Cli::blocks_of("one\n    two\n\n    code\n    more\nthree\n- item\n  four\n");
  ASSERT_EQ(blocks.size(), 4U);
  EXPECT_EQ(blocks[0].text, "one two");
  EXPECT_EQ(blocks[1].kind, PageBlock::Kind::code);
  EXPECT_EQ(blocks[1].text, "code\nmore");
  EXPECT_EQ(blocks[2].text, "three");
  EXPECT_EQ(blocks[3].kind, PageBlock::Kind::item);
  EXPECT_EQ(blocks[3].text, "item four");
}

TEST(MarkdownText, KeepsMarksThatAreNotClosed) {
  for (const char* text : {"a `b", "[a (b](c", "[a] (b](c)", "[a](b", "2 * 3", "2 *"}) {
    EXPECT_EQ(Cli::plain_text(text), text);
  }
  EXPECT_EQ(Cli::quoted_parts("a `b"), Words{});
  EXPECT_EQ(Cli::quoted_parts("a pipe of 5\" and `c`"), Words{"c"});
  EXPECT_EQ(Cli::quoted_parts("a \"b"), Words{});
}

TEST(MarkdownText, KeepsABlankOnOneSideOfCode) {
  EXPECT_EQ(Cli::plain_text("` ab`"), " ab");
  EXPECT_EQ(Cli::plain_text("`a `"), "a ");
  EXPECT_EQ(Cli::plain_text("` a `"), "a");
}

TEST(MessagePattern, TakesNumbersInAnyForm) {
  const MessagePattern pattern("takes 3 of");
  for (const char* number : {"7", "+7", "-7", "0.25", "1e5", "1e+5", "1.5E-7", "nan", "-inf"}) {
    EXPECT_TRUE(pattern.fit("takes " + std::string(number) + " of")) << number;
  }
  for (const char* number : {"", "+", "e5", "1e", "1e+", "1ex", "1.", "x"}) {
    EXPECT_FALSE(pattern.fit("takes " + std::string(number) + " of")) << number;
  }
  EXPECT_TRUE(MessagePattern("takes 3").fit("takes 1e5"));
  EXPECT_FALSE(MessagePattern("takes 3").fit("takes 1e"));
  EXPECT_FALSE(MessagePattern("takes 3").fit("takes 1e+"));
  EXPECT_FALSE(MessagePattern("takes 3").fit("takes "));
  EXPECT_FALSE(MessagePattern("3").fit(""));
}

TEST(MessagePattern, VariesOnlyAtWholeLetters) {
  EXPECT_TRUE(MessagePattern("N items").fit("17 items"));
  for (const char* written : {"N1 items", "N_ items", "Nx items"}) {
    EXPECT_FALSE(MessagePattern(written).fit("17 items")) << written;
    EXPECT_TRUE(MessagePattern(written).fit(written)) << written;
  }
}

TEST(MessagePattern, VariesOnlyInShortQuotesAndBrackets) {
  const std::string name(50, 'x');
  EXPECT_TRUE(MessagePattern("a <b> c").fit("a 7 c"));
  EXPECT_FALSE(MessagePattern("a <" + name + "> c").fit("a 7 c"));
  EXPECT_TRUE(MessagePattern("a \"b\" c").fit("a \"7\" c"));
  EXPECT_FALSE(MessagePattern("a \"" + name + "\" c").fit("a \"7\" c"));
}

TEST(MessagePattern, TakesAnyBlanksForOne) {
  EXPECT_TRUE(MessagePattern("one\ntwo  three").fit("one two three"));
  EXPECT_TRUE(MessagePattern("one two three").fit(" one\r\n two\tthree\n"));
  EXPECT_FALSE(MessagePattern("one two").fit("onetwo"));
}

}  // namespace
