#include "base/system_memory.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

namespace {

using Base::system_memory;
namespace fs = std::filesystem;

constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

// The files of a system, put together by hand.
class SystemMemory : public testing::Test {
 protected:
  SystemMemory()
      : root_(fs::path(testing::TempDir()) /
              ("kelpbox_system_" + std::to_string(getpid()) + "_" +
               testing::UnitTest::GetInstance()->current_test_info()->name())) {}
  ~SystemMemory() override { fs::remove_all(root_); }

  void write(const std::string& path, const std::string& text) const {
    const fs::path file = root_.string() + path;
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
  }
  // 1000 kB free, 3000 kB available, 500 kB of swap.
  void write_machine() const {
    write("/proc/meminfo",
          "MemTotal:        9000 kB\nMemFree:         1000 kB\nMemAvailable:    3000 kB\n"
          "SwapTotal:        800 kB\nSwapFree:         500 kB\n"
          "CommitLimit:     5000 kB\nCommitted_AS:    4200 kB\nHugePages_Total:       0\n");
  }
  std::uint64_t room() const { return system_memory(root_.string()); }

 private:
  fs::path root_;
};

TEST_F(SystemMemory, IsWhatTheMachineHasAvailableAndItsSwap) {
  write_machine();
  EXPECT_EQ(room(), (3000U + 500U) * 1024U);
}

TEST_F(SystemMemory, IsWithoutLimitWhereNothingIsReported) {
  EXPECT_EQ(room(), unlimited);
  write("/proc/meminfo", "MemTotal: 9000 kB\n");
  EXPECT_EQ(room(), unlimited);
}

TEST_F(SystemMemory, ControlGroupsCountTheirCachesAsFree) {
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

TEST_F(SystemMemory, OuterControlGroupsLimitToo) {
  write_machine();
  write("/proc/self/cgroup", "0::/jobs/one\n");
  write("/sys/fs/cgroup/jobs/one/memory.max", "max\n");
  write("/sys/fs/cgroup/jobs/one/memory.current", "1000\n");
  EXPECT_EQ(room(), 3500U * 1024U);
  write("/sys/fs/cgroup/jobs/memory.max", "5000\n");
  write("/sys/fs/cgroup/jobs/memory.current", "2000\n");
  EXPECT_EQ(room(), 3000U + 500U * 1024U);
}

TEST_F(SystemMemory, AContainerShowsItsLimitAtTheMount) {
  write_machine();
  write("/proc/self/cgroup", "0::/out/of/sight\n");
  write("/sys/fs/cgroup/memory.max", "7000\n");
  write("/sys/fs/cgroup/memory.current", "6000\n");
  EXPECT_EQ(room(), 1000U + 500U * 1024U);
}

TEST_F(SystemMemory, KnowsTheFirstVersionOfControlGroups) {
  write_machine();
  write("/proc/self/cgroup", "5:cpu,cpuacct:/a\n4:hugetlb,memory:/a\n");
  write("/sys/fs/cgroup/memory/a/memory.limit_in_bytes", "9000\n");
  write("/sys/fs/cgroup/memory/a/memory.usage_in_bytes", "8000\n");
  write("/sys/fs/cgroup/memory/a/memory.stat", "inactive_file 1\ntotal_inactive_file 30\n");
  EXPECT_EQ(room(), 1030U + 500U * 1024U);
}

TEST_F(SystemMemory, StrictOvercommitLimitsWhatMayBePromised) {
  write_machine();
  write("/proc/sys/vm/overcommit_memory", "1\n");
  EXPECT_EQ(room(), 3500U * 1024U);
  write("/proc/sys/vm/overcommit_memory", "2\n");
  EXPECT_EQ(room(), 800U * 1024U);
}

TEST_F(SystemMemory, OfThisMachineIsLessThanItHas) {
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
