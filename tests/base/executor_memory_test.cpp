// Workers that the system refuses.
#include <atomic>
#include <vector>

#include "base/executor.h"
#include "support/failing_memory.h"
#include "support/own_process.h"

namespace {

using Base::Executor;
using Testing::Fails;

TEST(ExecutorMemory, WorkIsDoneByTheThreadsThatTheSystemGives) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer starts threads itself";
  for (const long threads : {0, 1, 2}) {
    std::vector<int> done(100);
    std::atomic<int> workers{0};
    {
      const Testing::FailingThreads few(threads);
      Executor(8).share(done.size(), [&](Base::WorkItems& items) {
        ++workers;
        for (std::size_t item = 0; items.next(item);) ++done[item];
      });
    }
    EXPECT_EQ(done, std::vector<int>(100, 1));
    EXPECT_EQ(workers, threads + 1);
  }
}

TEST(ExecutorMemory, WorkIsDoneWithoutMemoryForThreads) {
  for (const Fails kind : {Fails::once, Fails::from_there_on}) {
    bool has_failed = true;
    for (long allocations = 0; has_failed; ++allocations) {
      ASSERT_LT(allocations, 100);
      std::vector<int> done(100);
      {
        const Testing::FailingMemory memory(allocations, kind);
        Executor(4).each(done.size(), [&](std::size_t item) { ++done[item]; });
        has_failed = memory.has_failed();
      }
      EXPECT_EQ(done, std::vector<int>(100, 1)) << allocations;
    }
  }
}

}  // namespace
