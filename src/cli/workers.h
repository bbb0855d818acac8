// Several pieces of work, each in a process of its own, a number of them at a time.
#ifndef KELPBOX_CLI_WORKERS_H_
#define KELPBOX_CLI_WORKERS_H_

#include <functional>
#include <string>
#include <vector>

#include "cli/child.h"
#include "cli/progress_bar.h"

namespace Cli {

struct Task {
  std::string name;              // for the progress bar
  std::function<void()> before;  // called in this process, right before the start
  Work work;                     // called in the child
  // Called in this process after the end of the child, or when there can be none.
  std::function<void(Outcome outcome)> after;
};

// Starts the tasks in order. After a signal, or when `stop` returns true after a task, all children
// are ended at once, and their `after` is not called. Returns the signal that left tasks
// unfinished, or 0.
int run_tasks(const std::vector<Task>& tasks, unsigned workers, ProgressBar& bar,
              const std::function<bool()>& stop);

}  // namespace Cli

#endif  // KELPBOX_CLI_WORKERS_H_
