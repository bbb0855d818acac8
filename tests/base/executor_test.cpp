#include "base/executor.h"

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using Base::Executor;
using Base::WorkItems;

constexpr unsigned worker_counts[] = {1, 2, 3, 8};

void wait_for(const std::atomic<bool>& flag) {
  while (!flag) std::this_thread::yield();
}

TEST(Executor, DoesEachItemOnce) {
  for (const unsigned workers : worker_counts) {
    for (const std::size_t items : {0, 1, 5, 1000}) {
      std::vector<int> done(items);
      Executor(workers).each(items, [&](std::size_t item) { ++done[item]; });
      EXPECT_EQ(done, std::vector<int>(items, 1)) << workers;
    }
  }
}

TEST(Executor, OneWorkerIsTheCallingThreadAndKeepsTheOrder) {
  std::vector<std::size_t> order;
  const std::thread::id caller = std::this_thread::get_id();
  Executor().each(4, [&](std::size_t item) {
    EXPECT_EQ(std::this_thread::get_id(), caller);
    order.push_back(item);
  });
  EXPECT_EQ(order, (std::vector<std::size_t>{0, 1, 2, 3}));
}

TEST(Executor, TwoWorkersWorkAtTheSameTime) {
  std::atomic<bool> begun[2] = {false, false};
  Executor(2).each(2, [&](std::size_t item) {
    begun[item] = true;
    wait_for(begun[1 - item]);
  });
  EXPECT_TRUE(begun[0] && begun[1]);
}

TEST(Executor, HasAtMostAsManyWorkersAsItems) {
  EXPECT_EQ(Executor(0).workers(10), 1u);
  EXPECT_EQ(Executor(3).workers(0), 1u);
  EXPECT_EQ(Executor(3).workers(2), 2u);
  EXPECT_EQ(Executor(3).workers(10), 3u);

  std::atomic<int> calls[3] = {0, 0, 0};
  Executor(7).share(3, [&](WorkItems& items) {
    ++calls[items.worker()];
    for (std::size_t item = 0; items.next(item);) {
    }
  });
  for (const std::atomic<int>& of_worker : calls) EXPECT_EQ(of_worker, 1);
}

TEST(Executor, TheFailureOfTheLowestItemIsThrown) {
  for (const unsigned workers : worker_counts) {
    std::atomic<bool> later_failed{workers == 1};
    std::string failure;
    try {
      Executor(workers).each(100, [&](std::size_t item) {
        if (item == 4) {
          // Items 3 and 4 are with two workers, and this one fails first.
          later_failed = true;
          throw std::string("4");
        }
        if (item != 3) return;
        wait_for(later_failed);
        throw std::string("3");
      });
    } catch (const std::string& thrown) {
      failure = thrown;
    }
    EXPECT_EQ(failure, "3") << workers;
  }
}

TEST(Executor, AFailureKeepsItsType) {
  for (const unsigned workers : worker_counts) {
    EXPECT_THROW(Executor(workers).each(9, [](std::size_t) { throw std::length_error("long"); }),
                 std::length_error);
  }
}

TEST(Executor, NoItemIsHandedOutAfterAFailure) {
  for (const unsigned workers : worker_counts) {
    constexpr std::size_t items = 1'000'000'000'000;
    std::atomic<std::size_t> done{0};
    EXPECT_THROW(Executor(workers).each(items,
                                        [&](std::size_t item) {
                                          if (item == 10) throw 1;
                                          ++done;
                                        }),
                 int);
    EXPECT_GE(done, 10u);
    EXPECT_LT(done, items);
  }
}

// Each item of the outer work shares out work of its own.
TEST(Executor, NestsInItself) {
  for (const unsigned outer : worker_counts) {
    for (const unsigned inner : worker_counts) {
      std::vector<int> done(20);
      Executor(outer).each(4, [&](std::size_t i) {
        Executor(inner).each(5, [&](std::size_t j) { ++done[5 * i + j]; });
      });
      EXPECT_EQ(done, std::vector<int>(20, 1)) << outer << " and " << inner;
    }
  }
}

TEST(Executor, AFailureOfNestedWorkLeavesBoth) {
  for (const unsigned workers : worker_counts) {
    std::string failure;
    try {
      Executor(workers).each(4, [&](std::size_t i) {
        Executor(workers).each(5, [&](std::size_t j) {
          if (j == 2) throw std::to_string(i);
        });
      });
    } catch (const std::string& thrown) {
      failure = thrown;
    }
    EXPECT_EQ(failure, "0") << workers;
  }
}

TEST(Executor, EveryWorkerMayFailAtTheSameTime) {
  for (const unsigned workers : worker_counts) {
    std::atomic<unsigned> begun{0};
    std::size_t failure = workers;
    try {
      Executor(workers).each(workers, [&](std::size_t item) {
        for (++begun; workers > 1 && begun < workers;) std::this_thread::yield();
        throw item;
      });
    } catch (const std::size_t item) {
      failure = item;
    }
    EXPECT_EQ(failure, 0U) << workers;
  }
}

// A stop that another thread sets is seen by all workers.
TEST(Executor, AStopEndsAllWorkers) {
  for (const unsigned workers : worker_counts) {
    std::atomic<bool> stop{false};
    std::atomic<std::size_t> done{0};
    std::thread stopper([&] {
      while (done < 10) std::this_thread::yield();
      stop = true;
    });
    Executor(workers).share(1'000'000'000'000, [&](WorkItems& items) {
      for (std::size_t item = 0; !stop && items.next(item);) ++done;
    });
    stopper.join();
    EXPECT_GE(done, 10U);
  }
}

TEST(Executor, AWorkerMayLeaveItsItemsToTheOthers) {
  std::atomic<bool> left{false};
  std::atomic<std::size_t> done{0};
  Executor(2).share(50, [&](WorkItems& items) {
    std::size_t item = 0;
    while (items.next(item)) {
      ++done;
      if (item == 0) {
        left = true;
        return;
      }
      wait_for(left);
    }
  });
  EXPECT_EQ(done, 50u);
}

}  // namespace
