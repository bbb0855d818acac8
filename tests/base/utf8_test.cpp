#include "base/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using Base::find_invalid_utf8;
using Base::is_control;
using Base::utf8_length;

TEST(Utf8, LengthsOfCharacters) {
  EXPECT_EQ(utf8_length("a", 0), 1U);
  EXPECT_EQ(utf8_length("\xC3\xA9", 0), 2U);          // e acute
  EXPECT_EQ(utf8_length("\xE2\x82\xAC", 0), 3U);      // euro
  EXPECT_EQ(utf8_length("\xF0\x9F\x98\x80", 0), 4U);  // U+1F600
  EXPECT_EQ(utf8_length("a\xC3\xA9", 1), 2U);
}

TEST(Utf8, TheLimitsOfEachLengthAreValid) {
  for (const std::string_view character :
       {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
        "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(utf8_length(character, 0), character.size());
  }
}

TEST(Utf8, OverlongSurrogateCutAndTooLargeFormsAreInvalid) {
  for (const std::string_view bytes :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE0\x9F\xBF", "\xE2\x82",
        "\xE2(\x82", "\xE2\x82(", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80", "\xFF", ""}) {
    EXPECT_EQ(utf8_length(bytes, 0), 0U) << testing::PrintToString(std::string(bytes));
  }
}

TEST(Utf8, FindsTheFirstInvalidByte) {
  EXPECT_EQ(find_invalid_utf8(""), std::string_view::npos);
  EXPECT_EQ(find_invalid_utf8("12 m, \xC3\xA9\n"), std::string_view::npos);
  EXPECT_EQ(find_invalid_utf8("\xC3\xA9x\xE9y\xFF"), 3U);
  EXPECT_EQ(find_invalid_utf8("ab\xC3"), 2U);
}

TEST(Utf8, ControlCharactersAreThoseThatATerminalObeys) {
  EXPECT_TRUE(is_control("\x1B", 0, 1));
  EXPECT_TRUE(is_control("\t", 0, 1));
  EXPECT_TRUE(is_control("\x7F", 0, 1));
  EXPECT_TRUE(is_control("\xC2\x9B", 0, 2));  // CSI
  EXPECT_FALSE(is_control(" ", 0, 1));
  EXPECT_FALSE(is_control("\xC2\xA0", 0, 2));
  EXPECT_FALSE(is_control("\xC3\x80", 0, 2));
  EXPECT_FALSE(is_control("\xE2\x82\xAC", 0, 3));
}

}  // namespace
