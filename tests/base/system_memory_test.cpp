#include "base/system_memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "support/temp_dir.h"

namespace {

using Base::system_memory;

constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

// A directory with the files of a system.
class SystemMemory : public testing::Test {
 protected:
  void write(const std::string& path, const std::string& contents) const {
    const std::filesystem::path file = root_.path() + path;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << contents;
  }
  // 1000 kB free, 3000 kB available, 500 kB of swap.
  void write_machine() const {
    write("/proc/meminfo",
          "MemTotal:        9000 kB\nMemFree:         1000 kB\nMemAvailable:    3000 kB\n"
          "SwapTotal:        800 kB\nSwapFree:         500 kB\n"
          "CommitLimit:     5000 kB\nCommitted_AS:    4200 kB\nHugePages_Total:       0\n");
  }
  std::uint64_t room() const { return system_memory(root_.path()); }

 private:
  Testing::TempDir root_;
};

TEST_F(SystemMemory, IsTheAvailableMemoryAndTheFreeSwap) {
  write_machine();
  EXPECT_EQ(room(), (3000U + 500U) * 1024U);
}

TEST_F(SystemMemory, IsUnlimitedIfTheSystemReportsNothing) {
  EXPECT_EQ(room(), unlimited);
  write("/proc/meminfo", "MemTotal: 9000 kB\n");
  EXPECT_EQ(room(), unlimited);
}

TEST_F(SystemMemory, TheCachesOfAControlGroupCountAsFree) {
  write_machine();
  write("/proc/self/cgroup", "0::/jobs/one\n");
  write("/sys/fs/cgroup/jobs/one/memory.max", "1048576\n");
  write("/sys/fs/cgroup/jobs/one/memory.current", "1000000\n");
  EXPECT_EQ(room(), 48576U + 500U * 1024U);
  write("/sys/fs/cgroup/jobs/one/memory.stat", "anon 1\ninactive_file 1000\nactive_file 200\n");
  EXPECT_EQ(room(), 49776U + 500U * 1024U);
  write("/sys/fs/cgroup/jobs/one/memory.current", "1100000\n");
  EXPECT_EQ(room(), 500U * 1024U);
}

TEST_F(SystemMemory, OuterControlGroupsAlsoLimitTheMemory) {
  write_machine();
  write("/proc/self/cgroup", "0::/jobs/one\n");
  write("/sys/fs/cgroup/jobs/one/memory.max", "max\n");
  write("/sys/fs/cgroup/jobs/one/memory.current", "1000\n");
  EXPECT_EQ(room(), 3500U * 1024U);
  write("/sys/fs/cgroup/jobs/memory.max", "5000\n");
  write("/sys/fs/cgroup/jobs/memory.current", "2000\n");
  EXPECT_EQ(room(), 3000U + 500U * 1024U);
}

TEST_F(SystemMemory, TheLimitOfAContainerIsFoundAtTheMount) {
  write_machine();
  write("/proc/self/cgroup", "0::/out/of/sight\n");
  write("/sys/fs/cgroup/memory.max", "7000\n");
  write("/sys/fs/cgroup/memory.current", "6000\n");
  EXPECT_EQ(room(), 1000U + 500U * 1024U);
}

TEST_F(SystemMemory, TheFirstVersionOfControlGroupsIsSupported) {
  write_machine();
  write("/proc/self/cgroup", "5:cpu,cpuacct:/a\n4:hugetlb,memory:/a\n");
  write("/sys/fs/cgroup/memory/a/memory.limit_in_bytes", "9000\n");
  write("/sys/fs/cgroup/memory/a/memory.usage_in_bytes", "8000\n");
  write("/sys/fs/cgroup/memory/a/memory.stat", "inactive_file 1\ntotal_inactive_file 30\n");
  EXPECT_EQ(room(), 1030U + 500U * 1024U);
}

TEST_F(SystemMemory, AControlGroupLimitsTheSwap) {
  write_machine();
  write("/proc/self/cgroup", "0::/jobs/one\n");
  write("/sys/fs/cgroup/jobs/one/memory.max", "9000\n");
  write("/sys/fs/cgroup/jobs/one/memory.current", "8000\n");
  write("/sys/fs/cgroup/jobs/one/memory.swap.max", "max\n");
  write("/sys/fs/cgroup/jobs/one/memory.swap.current", "20\n");
  EXPECT_EQ(room(), 1000U + 500U * 1024U);
  write("/sys/fs/cgroup/jobs/one/memory.swap.max", "70\n");
  EXPECT_EQ(room(), 1050U);
  // More than the machine has.
  write("/sys/fs/cgroup/jobs/one/memory.swap.max", "9000000\n");
  EXPECT_EQ(room(), 1000U + 500U * 1024U);
  write("/sys/fs/cgroup/jobs/memory.swap.max", "0\n");
  EXPECT_EQ(room(), 1000U);
}

TEST_F(SystemMemory, AControlGroupWithoutSwapLeavesTheMemoryOfTheMachine) {
  write_machine();
  write("/proc/self/cgroup", "0::/jobs\n");
  write("/sys/fs/cgroup/jobs/memory.max", "max\n");
  write("/sys/fs/cgroup/jobs/memory.swap.max", "0\n");
  EXPECT_EQ(room(), 3000U * 1024U);
}

TEST_F(SystemMemory, TheFirstVersionOfControlGroupsLimitsMemoryAndSwapTogether) {
  write_machine();
  write("/proc/self/cgroup", "4:memory:/a\n");
  write("/sys/fs/cgroup/memory/a/memory.limit_in_bytes", "9000\n");
  write("/sys/fs/cgroup/memory/a/memory.usage_in_bytes", "8000\n");
  write("/sys/fs/cgroup/memory/a/memory.memsw.limit_in_bytes", "9223372036854771712\n");
  write("/sys/fs/cgroup/memory/a/memory.memsw.usage_in_bytes", "8500\n");
  EXPECT_EQ(room(), 1000U + 500U * 1024U);
  write("/sys/fs/cgroup/memory/a/memory.memsw.limit_in_bytes", "9100\n");
  EXPECT_EQ(room(), 600U);
  write("/sys/fs/cgroup/memory/a/memory.stat", "total_inactive_file 30\n");
  EXPECT_EQ(room(), 630U);
  // The limit of the memory alone still applies.
  write("/sys/fs/cgroup/memory/a/memory.memsw.limit_in_bytes", "11000\n");
  EXPECT_EQ(room(), 2530U);
}

TEST_F(SystemMemory, StrictOvercommitLimitsTheMemory) {
  write_machine();
  write("/proc/sys/vm/overcommit_memory", "1\n");
  EXPECT_EQ(room(), 3500U * 1024U);
  write("/proc/sys/vm/overcommit_memory", "2\n");
  EXPECT_EQ(room(), 800U * 1024U);
}

TEST_F(SystemMemory, LinesOfAnotherFormAreIgnored) {
  write("/proc/meminfo",
        "\nMemAvailable: many kB\nMemAvailable:\nMemAvailable: 30 kB\nSwapFree: 5 pages\n");
  write("/proc/self/cgroup", "\nmemory\n4:memory\n0::jobs\n");
  write("/sys/fs/cgroup/memory.max", "20000\n");
  EXPECT_EQ(room(), 20000U + 5U);
}

TEST_F(SystemMemory, SwapAddsNothingToUnlimitedMemory) {
  write("/proc/meminfo", "SwapFree: 500 kB\n");
  EXPECT_EQ(room(), unlimited);
}

TEST_F(SystemMemory, OfThisMachineIsBelowItsTotal) {
  std::uint64_t total_kb = 0;
  std::ifstream meminfo("/proc/meminfo");
  for (std::string name, rest; meminfo >> name;) {
    std::uint64_t kb = 0;
    meminfo >> kb;
    std::getline(meminfo, rest);
    if (name == "MemTotal:" || name == "SwapTotal:") total_kb += kb;
  }
  ASSERT_GT(total_kb, 0U);
  EXPECT_GT(system_memory(), 0U);
  EXPECT_LT(system_memory(), total_kb * 1024);
}

}  // namespace
