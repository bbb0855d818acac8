#include "outputs/plain_text.h"

#include <gtest/gtest.h>

#include <string>

namespace Outputs {
namespace {

const std::string mark = "\xEF\xBF\xBD";

TEST(PlainText, KeepsLettersOfEveryLength) {
  const std::string text = "Becken \"1\", 15\xC2\xB0, \xE6\xB3\xA2, \xF0\x9F\x8C\x8A";
  EXPECT_EQ(plain_text(text), text);
}

TEST(PlainText, IsOneLine) {
  using std::string_literals::operator""s;
  EXPECT_EQ(plain_text("a\nb\tc\rd\0e\x7F"s), "a b c d e ");
}

TEST(PlainText, MarksBytesThatAreNotUtf8) {
  EXPECT_EQ(plain_text("Gr\xF6\xDF"
                       "e"),
            "Gr" + mark + mark + "e");                        // Latin-1
  EXPECT_EQ(plain_text("\xC0\xAF"), mark + mark);             // overlong
  EXPECT_EQ(plain_text("\xE0\x80\xAF"), mark + mark + mark);  // overlong
  EXPECT_EQ(plain_text("\xF0\x80\x80\xAF"), mark + mark + mark + mark);
  EXPECT_EQ(plain_text("\xED\xA0\x80"), mark + mark + mark);             // a surrogate
  EXPECT_EQ(plain_text("\xF4\x90\x80\x80"), mark + mark + mark + mark);  // above U+10FFFF
  EXPECT_EQ(plain_text("\xF5"), mark);
  EXPECT_EQ(plain_text("a\xE6\xB3"), "a" + mark + mark);  // cut off
  EXPECT_EQ(plain_text("\xB3z"), mark + "z");
}

}  // namespace
}  // namespace Outputs
