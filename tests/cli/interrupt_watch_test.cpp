// Signals that a command notes.
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>

#include "cli/interrupt.h"

namespace {

bool is_readable(int fd) {
  pollfd asked{fd, POLLIN, 0};
  return poll(&asked, 1, 0) == 1;
}

// A command that waits for its workers sleeps until then.
TEST(InterruptWatch, BecomesReadableWhenASignalComes) {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    const auto before = signal(number, SIG_DFL);  // a job in the background may ignore it
    {
      const Cli::InterruptWatch watch;
      EXPECT_EQ(watch.signal(), 0);
      EXPECT_FALSE(is_readable(watch.fd()));
      ASSERT_EQ(raise(number), 0);
      EXPECT_EQ(watch.signal(), number);
      EXPECT_TRUE(is_readable(watch.fd()));
    }
    signal(number, before);
  }
}

TEST(InterruptWatch, LeavesASignalIgnoredThatWasIgnored) {
  const auto before = signal(SIGHUP, SIG_IGN);
  {
    const Cli::InterruptWatch watch;
    ASSERT_EQ(raise(SIGHUP), 0);
    EXPECT_EQ(watch.signal(), 0);
    EXPECT_FALSE(is_readable(watch.fd()));
  }
  EXPECT_EQ(signal(SIGHUP, before), SIG_IGN);
}

}  // namespace
