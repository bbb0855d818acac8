// What a build needs beside its frames.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <fstream>
#include <new>

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

// Whether the work says yes in a process of its own, whose peak and limits are not those of other
// tests.
template <typename Work>
bool good_alone(Work work) {
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  int status = 0;
  return child != -1 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
         WEXITSTATUS(status) == 0;
}

// Leaves the process so many bytes beside those that it has.
void leave_room(double bytes) {
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const double held = static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE));
  const auto limit = static_cast<rlim_t>(held + bytes);
  const rlimit both{limit, limit};
  setrlimit(RLIMIT_AS, &both);
}

TEST(AnimateMemory, APeakIsTheFramesAndAFewBlocks) {
  if (sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  EXPECT_TRUE(good_alone([] {
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
    return whole && growth > frames && growth < frames + 4e6;
  }));
}

TEST(AnimateMemory, ManySmallFramesAreRefusedBeforeAnyIsMade) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    Synthesis::AnimationFrames frames;
    frames.begin();
    frames.setup(2, 3, 4);
    // 2^24 samples of 2 bytes, but each in a frame of its own.
    leave_room(5e8);
    try {
      frames.setup(1, 1, 1 << 24);
    } catch (const std::bad_alloc&) {
      // A refusal halfway would have cost the frames that were there.
      return frames.ready() && frames.data(3).size() == 6;
    }
    return false;
  }));
}

TEST(AnimateMemory, LargerFramesMakeRoomForMoreSmallOnes) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    Synthesis::AnimationFrames frames;
    frames.begin();
    frames.setup(1 << 10, 1 << 10, 64);
    leave_room(2e7);
    frames.setup(1 << 10, 1, 1 << 16);
    return frames.ready() && frames.data(0).capacity() == 1 << 10;
  }));
}

}  // namespace
