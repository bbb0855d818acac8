#include "cli/console.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>

namespace {

// What a terminal of that many columns is taken for.
unsigned columns_shown(unsigned short columns) {
  const winsize size{24, columns, 0, 0};
  int master = -1;
  int terminal = -1;
  if (openpty(&master, &terminal, nullptr, nullptr, &size) != 0) return 0;
  const unsigned shown = Cli::columns_of(terminal, 100);
  close(terminal);
  close(master);
  return shown;
}

TEST(Console, HasTheColumnsOfItsTerminal) {
  EXPECT_EQ(columns_shown(80), 80U);
  EXPECT_EQ(columns_shown(1), 1U);
}

TEST(Console, HasTheUsualColumnsWhereTheTerminalReportsNone) { EXPECT_EQ(columns_shown(0), 100U); }

TEST(Console, HasTheUsualColumnsWhereThereIsNoTerminal) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  EXPECT_EQ(Cli::columns_of(ends[1], 100), 100U);
  for (const int end : ends) close(end);
}

}  // namespace
