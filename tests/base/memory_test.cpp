#include "base/memory.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "thrown.h"

namespace {

using namespace Base;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

template <typename Work>
bool good_alone(Work work) {
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  int status = 0;
  return child != -1 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
         WEXITSTATUS(status) == 0;
}

// The pages of the process: 0 addresses, 1 memory.
std::size_t memory_pages(int field) {
  std::ifstream statm("/proc/self/statm");
  std::size_t pages = 0;
  for (int i = 0; i <= field; ++i) statm >> pages;
  return pages;
}

// Leaves the process so many more bytes of addresses.
void leave_room(std::uint64_t bytes) {
  const auto held = memory_pages(0) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const rlimit limit{held + bytes, held + bytes};
  setrlimit(RLIMIT_AS, &limit);
}

TEST(Memory, NothingAndLittleFit) {
  EXPECT_TRUE(memory_fits(0));
  EXPECT_TRUE(memory_fits(1));
  EXPECT_TRUE(memory_fits(20_MiB));
  require_memory(20_MiB, "A few samples");
}

TEST(Memory, MoreThanAnyMachineHasDoesNotFit) {
  EXPECT_FALSE(memory_fits(~std::uint64_t{0}));
  EXPECT_FALSE(memory_fits(std::uint64_t{1} << 46));
}

TEST(Memory, ARefusalNamesWhatIsNeededAndWhatThereIs) {
  const std::string text =
      thrown([] { require_memory(std::uint64_t{3} << 45, "rate::100 Hz and 2 paddles"); });
  const std::string start = "rate::100 Hz and 2 paddles need 98304.00 GiB of memory, ";
  ASSERT_EQ(text.substr(0, start.size()), start);
  std::size_t end = 0;
  const double available = std::stod(text.substr(start.size()), &end);
  EXPECT_GT(available, 0.0);
  EXPECT_LT(available, 98304.0);
  EXPECT_EQ(text.substr(start.size() + end), " GiB are available");
}

TEST(Memory, ALimitOnAddressesCounts) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    leave_room(100_MiB);
    const std::string text = thrown([] { require_memory(256_MiB, "Samples"); });
    return text.rfind("Samples need 0.25 GiB of memory, 0.1", 0) == 0 && memory_fits(64_MiB) &&
           !memory_fits(101_MiB) && available_memory() <= 100_MiB;
  }));
}

TEST(Memory, ARequestThatDoesNotFitMakesTheHeapReturnWhatWasFreed) {
  if (sanitized) GTEST_SKIP() << "a sanitizer keeps freed memory on purpose";
  std::vector<std::unique_ptr<char[]>> pieces;
  for (int i = 0; i < 5000; ++i) pieces.push_back(std::make_unique<char[]>(10000));
  // Keeps the heap from shrinking by itself.
  const auto last = std::make_unique<char[]>(10000);
  pieces.clear();
  const std::size_t before = memory_pages(1);
  EXPECT_FALSE(memory_fits(std::uint64_t{1} << 46));
  const std::size_t returned = before - memory_pages(1);
  EXPECT_GT(returned * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)), 40'000'000U);
}

}  // namespace
