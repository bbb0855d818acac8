#include "cli/workers.h"

#include <poll.h>

#include <cstddef>
#include <memory>
#include <utility>

#include "cli/interrupt.h"

namespace Cli {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int bar_interval = 200;  // ms

double seconds_since(Clock::time_point begin) {
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

class Workers {
 public:
  Workers(const std::vector<Task>& tasks, unsigned most, ProgressBar& bar,
          const std::function<bool()>& stop)
      : tasks_(tasks), most_(most), bar_(bar), stop_(stop) {}

  int run() {
    while (watch_.signal() == 0 && !stopped_ && finished_ < tasks_.size()) {
      start_more();
      wait_for_reports();
    }
    running_.clear();
    bar_.erase();
    return finished_ < tasks_.size() ? watch_.signal() : 0;
  }

 private:
  struct Running {
    std::size_t task;
    std::unique_ptr<Child> child;
  };

  void start_more() {
    while (!stopped_ && running_.size() < most_ && next_ < tasks_.size()) {
      const std::size_t task = next_++;
      tasks_[task].before();
      try {
        running_.push_back({task, std::make_unique<Child>(tasks_[task].work)});
      } catch (const std::string& failure) {
        Outcome none;
        none.start_failure = failure;
        tasks_[task].after(std::move(none));
        finish();
      }
    }
  }

  void wait_for_reports() {
    if (running_.empty()) return;
    std::vector<pollfd> ready{{watch_.fd(), POLLIN, 0}};
    for (const Running& each : running_) ready.push_back({each.child->fd(), POLLIN, 0});
    const int found = poll(ready.data(), ready.size(), bar_.live() ? bar_interval : -1);
    if (found > 0 && watch_.signal() == 0) take_reports(ready);
    show_progress();
  }

  void take_reports(const std::vector<pollfd>& ready) {
    std::vector<Running> still;
    std::vector<Running> ended;
    for (std::size_t i = 0; i < running_.size(); ++i) {
      const bool quiet = ready[i + 1].revents == 0;
      auto& list = quiet || running_[i].child->take_reports() ? still : ended;
      list.push_back(std::move(running_[i]));
    }
    running_ = std::move(still);
    for (Running& each : ended) {
      bar_.erase();
      tasks_[each.task].after(each.child->outcome());
      finish();
    }
  }

  void finish() {
    ++finished_;
    last_end_ = Clock::now();
    if (stop_()) stopped_ = true;
  }

  void show_progress() {
    if (running_.empty()) return;
    const Running& first = running_.front();
    const Step& step = first.child->step();
    const std::string& name = tasks_[first.task].name;
    if (tasks_.size() == 1) {
      // The steps to come may take any time, so that no time left is shown.
      bar_.show(name + ", " + step.name, {.done = step.done, .spent = seconds_since(step.begin)});
    } else {
      const auto count = static_cast<double>(tasks_.size());
      bar_.show(std::to_string(finished_) + " of " + std::to_string(tasks_.size()) + ", " + name,
                {.done = static_cast<double>(finished_) / count,
                 .left = seconds_left(finished_, tasks_.size(),
                                      std::chrono::duration<double>(last_end_ - begin_).count(),
                                      seconds_since(last_end_))});
    }
  }

  const std::vector<Task>& tasks_;
  unsigned most_;
  ProgressBar& bar_;
  const std::function<bool()>& stop_;
  InterruptWatch watch_;
  Clock::time_point begin_ = Clock::now();
  Clock::time_point last_end_ = begin_;
  std::vector<Running> running_;
  std::size_t next_ = 0;
  std::size_t finished_ = 0;
  bool stopped_ = false;
};

}  // namespace

int run_tasks(const std::vector<Task>& tasks, unsigned workers, ProgressBar& bar,
              const std::function<bool()>& stop) {
  return Workers(tasks, workers, bar, stop).run();
}

}  // namespace Cli
