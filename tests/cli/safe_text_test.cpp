// What names can do to a terminal: nothing.
#include "cli/safe_text.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>

#include "cli/fd_stream.h"

using Cli::safe_text;

TEST(SafeText, ReplacesWhatATerminalWouldObey) {
  EXPECT_EQ(safe_text("a\033]0;title\007b\rc\x7F", false), "a ]0;title b c ");
  EXPECT_EQ(safe_text("a\xC2\x9B"
                      "31mb",
                      false),
            "a 31mb");
  EXPECT_EQ(safe_text("a\x9B"
                      "31mb",
                      false),
            "a?31mb");
}

TEST(SafeText, KeepsLinesTabsAndLetters) {
  const std::string text = "Wave \u00b5 \u6ce2\n\tnext line\n";
  EXPECT_EQ(safe_text(text, false), text);
}

TEST(SafeText, KeepsTheColoursOfTheProgramWhereTheyAreShown) {
  const std::string text = "\033[1;31merror\033[0m: \033[8mhidden";
  EXPECT_EQ(safe_text(text, true), "\033[1;31merror\033[0m:  [8mhidden");
  EXPECT_EQ(safe_text(text, false), " [1;31merror [0m:  [8mhidden");
}

TEST(SafeText, LetsOnlyTheProgressBarEraseALine) {
  EXPECT_EQ(safe_text("\r\033[Kstorm.toml", false), "\r\033[Kstorm.toml");
  EXPECT_EQ(safe_text("storm\r\033[K", false), "storm  [K");
}

// Characters and colours are whole wherever the buffer of the stream ends.
TEST(SafeText, LeavesAStreamWhole) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const bool no = false, yes = true;
  std::string expected;
  {
    Cli::FdStream stream(ends[1]);
    stream.make_safe(no, yes);
    for (int i = 0; i < 2000; ++i) {
      const std::string part = "\033[1m\u6ce2\033[0m" + std::string(i % 7, 'x') + " ";
      expected += part;
      stream << part;
    }
    ASSERT_LT(expected.size(), 65536U);  // the pipe holds it
    EXPECT_EQ(stream.close(), 0);
  }
  close(ends[1]);
  std::string read_back(expected.size() + 1, '\0');
  std::size_t size = 0;
  for (ssize_t count = 1; count > 0;) {
    count = read(ends[0], read_back.data() + size, read_back.size() - size);
    if (count > 0) size += static_cast<std::size_t>(count);
  }
  close(ends[0]);
  EXPECT_EQ(read_back.substr(0, size), expected);
}
