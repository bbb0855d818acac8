// What a build needs beside its frames.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "test_animation.h"

namespace {

using Testing::GridText;
using Testing::Sea;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

// The most memory that the process has had so far, in bytes.
double peak_memory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

TEST(AnimateMemory, APeakIsTheFramesAndAFewBlocks) {
  if (sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  // In a process of its own, whose peak is not that of an earlier test.
  const pid_t child = fork();
  ASSERT_NE(child, -1);
  if (child == 0) {
    Sea sea({{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}, {20, {0.1, 0.1, 1.0}}});
    GridText grid;
    grid.rate = 200.0;
    grid.x_step = 10.0 / 99;
    grid.y_step = 4.0 / 199;
    const double frames = 2.0 * 100 * 200 * 2000;
    const double before = peak_memory();
    sea.build(grid);
    const double growth = peak_memory() - before;
    const bool whole = sea.frames().complete() && sea.frames().size(0) == 2000;
    _exit(whole && growth > frames && growth < frames + 4e6 ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
