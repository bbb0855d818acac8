#include "base/memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/own_process.h"
#include "support/thrown.h"

namespace {

using namespace Base;
using Testing::good_alone;
using Testing::held_memory;
using Testing::leave_room;
using Testing::sanitized;
using Testing::thrown;

TEST(Memory, SmallRequestsFit) {
  EXPECT_TRUE(memory_fits(0));
  EXPECT_TRUE(memory_fits(1));
  EXPECT_TRUE(memory_fits(20_MiB));
  require_memory(20_MiB, "A few samples");
}

TEST(Memory, MoreThanAnyMachineHasIsRefused) {
  EXPECT_FALSE(memory_fits(~std::uint64_t{0}));
  EXPECT_FALSE(memory_fits(std::uint64_t{1} << 46));
}

TEST(Memory, ARefusalReportsTheNeededAndTheAvailableMemory) {
  const std::string message =
      thrown([] { require_memory(std::uint64_t{3} << 45, "rate::100 Hz and 2 paddles"); });
  const std::string start = "rate::100 Hz and 2 paddles need 98304.00 GiB of memory, ";
  ASSERT_EQ(message.substr(0, start.size()), start);
  std::size_t end = 0;
  const double available = std::stod(message.substr(start.size()), &end);
  EXPECT_GT(available, 0.0);
  EXPECT_LT(available, 98304.0);
  EXPECT_EQ(message.substr(start.size() + end), " GiB are available");
}

TEST(Memory, TheLimitOnAddressesIsRespected) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    leave_room(120.0 * (1 << 20));  // the heap may take some of it on the way
    const std::string message = thrown([] { require_memory(256_MiB, "Samples"); });
    return message.starts_with("Samples need 0.25 GiB of memory, 0.1") && memory_fits(64_MiB) &&
           !memory_fits(121_MiB) && available_memory() <= 120_MiB;
  }));
}

TEST(Memory, ALargeRequestMakesTheHeapReturnFreedMemory) {
  if (sanitized) GTEST_SKIP() << "a sanitizer keeps freed memory on purpose";
  std::vector<std::unique_ptr<char[]>> pieces;
  for (int i = 0; i < 5000; ++i) pieces.push_back(std::make_unique<char[]>(10000));
  // Prevents the heap from shrinking by itself.
  const auto last = std::make_unique<char[]>(10000);
  pieces.clear();
  const double before = held_memory().memory;
  EXPECT_FALSE(memory_fits(std::uint64_t{1} << 46));
  EXPECT_GT(before - held_memory().memory, 40e6);
}

}  // namespace
