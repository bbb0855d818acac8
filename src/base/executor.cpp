#include "base/executor.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace Base {

// The items and the failure of one call.
class SharedWork {
 public:
  explicit SharedWork(std::size_t items) : items_(items) {}

  // The number of a worker that begins.
  unsigned enter() { return entered_.fetch_add(1, std::memory_order_relaxed); }

  bool take(std::size_t& item) {
    if (failed_.load(std::memory_order_relaxed)) return false;
    std::size_t next = next_.load(std::memory_order_relaxed);
    while (next < items_) {
      if (next_.compare_exchange_weak(next, next + 1, std::memory_order_relaxed)) {
        item = next;
        return true;
      }
    }
    return false;
  }

  // Keeps the failure of the lowest item. All items below a failing one have been taken before it
  // and are finished, so that the lowest one to fail is always among them.
  void fail(std::size_t item, std::exception_ptr failure) {
    const std::lock_guard lock(mutex_);
    if (!failure_ || item < failed_item_) {
      failure_ = std::move(failure);
      failed_item_ = item;
    }
    failed_.store(true, std::memory_order_relaxed);
  }

  // For after the end of all workers.
  void throw_failure() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  const std::size_t items_;
  std::atomic<unsigned> entered_{0};
  std::atomic<std::size_t> next_{0};
  std::atomic<bool> failed_{false};
  std::mutex mutex_;
  std::exception_ptr failure_;
  std::size_t failed_item_ = 0;
};

bool WorkItems::next(std::size_t& item) {
  if (!work_.take(item)) return false;
  last_ = item;
  return true;
}

namespace {

class Threads {
 public:
  ~Threads() {
    for (std::thread& thread : threads_) thread.join();
  }
  Threads() = default;
  Threads(const Threads&) = delete;
  Threads& operator=(const Threads&) = delete;

  void start(unsigned count, const std::function<void()>& work) {
    try {
      threads_.reserve(count);
      for (unsigned i = 0; i < count; ++i) threads_.emplace_back(work);
    } catch (const std::exception&) {
      // No more threads, or no memory for them: the workers that there are do all of the work.
    }
  }

 private:
  std::vector<std::thread> threads_;
};

}  // namespace

unsigned Executor::workers(std::size_t items) const {
  return static_cast<unsigned>(std::clamp<std::size_t>(items, 1, workers_));
}

void Executor::share(std::size_t items, const std::function<void(WorkItems& items)>& work) const {
  if (items == 0) return;
  SharedWork shared(items);
  const auto run = [&] {
    WorkItems own(shared, shared.enter());
    try {
      work(own);
    } catch (...) {
      // A failure before the first item counts as that of item 0.
      shared.fail(own.last(), std::current_exception());
    }
  };
  {
    Threads others;
    others.start(workers(items) - 1, run);
    run();
  }
  shared.throw_failure();
}

void Executor::each(std::size_t items, const std::function<void(std::size_t item)>& work) const {
  share(items, [&](WorkItems& own) {
    for (std::size_t item = 0; own.next(item);) work(item);
  });
}

}  // namespace Base
