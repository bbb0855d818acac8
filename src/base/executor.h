// Shares independent pieces of work among threads: the paddles of a bank, the columns of an
// animation.
//
// A host says how many workers there are. The calling thread is the first of them, so that one
// worker, the default, needs no thread. The others live as long as one call. Which worker does an
// item is left open, so an item must not depend on the items before it; then the results are the
// same for every number of workers.
#ifndef KELPBOX_BASE_EXECUTOR_H_
#define KELPBOX_BASE_EXECUTOR_H_

#include <cstddef>
#include <functional>

namespace Base {

class SharedWork;

// The items of one call, as one worker takes them.
class WorkItems {
 public:
  WorkItems(SharedWork& work, unsigned worker) : work_(work), worker_(worker) {}
  // Stores the next item: they are handed out in rising order. False when there is none left, or
  // when an item has failed.
  bool next(std::size_t& item);
  // The last item that this worker took; 0 before the first.
  std::size_t last() const { return last_; }
  // The worker, from 0 to one below Executor::workers.
  unsigned worker() const { return worker_; }

 private:
  SharedWork& work_;
  unsigned worker_;
  std::size_t last_ = 0;
};

class Executor {
 public:
  // 0 workers count as 1.
  explicit Executor(unsigned workers = 1) : workers_(workers == 0 ? 1 : workers) {}

  unsigned workers() const { return workers_; }
  // The number of workers for that many items: none is without an item.
  unsigned workers(std::size_t items) const;

  // Calls `work` once in each worker, and returns after all of them have. `work` takes items until
  // there are none, and may keep memory of its own from item to item. It may also return earlier:
  // items that are left go to the other workers. If the system gives no more threads, or
  // no memory for them, there are fewer workers.
  //
  // When an item fails, no further items are handed out. Throws the failure of the lowest item that
  // failed, which does not depend on the number of workers.
  void share(std::size_t items, const std::function<void(WorkItems& items)>& work) const;

  // Calls `work` for each item from 0 to `items` - 1. Throws as `share`.
  void each(std::size_t items, const std::function<void(std::size_t item)>& work) const;

 private:
  unsigned workers_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_EXECUTOR_H_
