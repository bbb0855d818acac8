#include "cli/job_batch.h"

#include <signal.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <memory>

#include "cli/failure_report.h"
#include "cli/interrupt.h"
#include "cli/job_work.h"
#include "cli/progress_bar.h"
#include "cli/workers.h"

namespace Cli {

namespace {

// Why the child of a job ended without a result.
std::string crash_text(int signal) {
  if (signal == SIGKILL) return "its process was ended, perhaps for want of memory";
  return std::string("its process was ended by a fault of the library: ") + strsignal(signal);
}

struct JobState {
  PlannedJob plan;
  std::unique_ptr<Outputs::OutputFolder> folder;
  std::string folder_failure;
  bool done = false;
  bool written = false;
  Outcome outcome;  // `err` is failure_json with --json
};

std::string page_of(const JobState& state) { return state.plan.folder + "/report.html"; }

// Only the child knows whether the job asks for the page.
bool has_page(const JobState& state) {
  std::error_code ignored;
  return std::filesystem::exists(page_of(state), ignored);
}

class Batch {
 public:
  Batch(const std::vector<PlannedJob>& jobs, const JobOptions& options, Console& console)
      : options_(options), console_(console) {
    for (const PlannedJob& job : jobs) {
      states_.emplace_back();
      states_.back().plan = job;
    }
  }

  int run() {
    std::vector<Task> tasks;
    for (JobState& state : states_) {
      tasks.push_back({state.plan.path, [&] { make_folder(state); },
                       [&](ChildReport& report) { return work(state, report); },
                       [&](Outcome outcome) { finish(state, std::move(outcome)); }});
    }
    ProgressBar bar(console_.err, console_.progress && !console_.quiet);
    const int signal = run_tasks(tasks, options_.workers, bar, [&] {
      show_finished();
      return !console_.out.good();
    });
    if (signal != 0) return interrupted(signal);
    if (console_.json) write_document();
    return highest_code();
  }

 private:
  void make_folder(JobState& state) {
    if (state.plan.folder.empty()) return;
    try {
      state.folder = std::make_unique<Outputs::OutputFolder>(state.plan.folder);
    } catch (const Outputs::CannotWrite& failure) {
      state.folder_failure = failure.message;
    }
  }

  int work(const JobState& state, ChildReport& report) const {
    // Several jobs keep all workers busy as processes.
    const unsigned threads = states_.size() == 1 ? options_.workers : 1;
    return do_job({state.plan.path, state.folder.get(), state.folder_failure, threads}, options_,
                  console_, report);
  }

  void finish(JobState& state, Outcome outcome) {
    state.done = true;
    state.outcome = std::move(outcome);
    if (!state.outcome.start_failure.empty()) {
      fail(state, {Exit::bad_input, state.plan.path + ": " + state.outcome.start_failure, {}});
    }
    if (state.outcome.signal != 0) {
      fail(state, {Exit::bad_input, state.plan.path + ": " + crash_text(state.outcome.signal), {}});
    }
    const bool built =
        state.outcome.exit_code == Exit::good || state.outcome.exit_code == Exit::check_failed;
    if (state.folder && built) commit(state);
    state.folder.reset();
  }

  void commit(JobState& state) {
    try {
      state.folder->commit();
      state.written = true;
    } catch (...) {
      fail(state, failure_of_current(state.plan.path));
    }
  }

  void fail(JobState& state, const Failure& failure) {
    state.outcome.exit_code = failure.exit_code;
    state.outcome.out.clear();
    state.outcome.err = console_.json ? failure_json(failure) : shown(failure, console_.err_colour);
  }

  // In the order of the jobs: a finished job waits for those before it.
  void show_finished() {
    if (console_.json) return;
    for (; shown_ < states_.size() && states_[shown_].done; ++shown_) show(states_[shown_]);
  }

  void show(const JobState& state) {
    console_.err << state.outcome.err << std::flush;
    if (console_.quiet) return;
    console_.out << state.outcome.out;
    if (state.written) console_.out << "Written: " << state.plan.folder << "\n";
    if (state.written && has_page(state)) console_.out << "Page: " << page_of(state) << "\n";
    console_.out << std::flush;
  }

  int interrupted(int signal) {
    const int code = exit_code_of_signal(signal);
    const std::string text = interruption_text();
    for (JobState& state : states_) {
      state.folder.reset();
      if (!state.done) fail(state, {code, text, {}});
    }
    if (console_.json) write_document();
    for (; !console_.json && shown_ < states_.size(); ++shown_) {
      if (states_[shown_].done) show(states_[shown_]);
    }
    console_.err << text << "\n";
    return code;
  }

  std::string interruption_text() const {
    std::string written, lost;
    for (const JobState& state : states_) {
      if (state.written) written += (written.empty() ? "" : ", ") + state.plan.folder;
      if (!state.done) lost += (lost.empty() ? "" : ", ") + state.plan.path;
    }
    if (states_.front().plan.folder.empty()) return "interrupted";
    if (written.empty()) return "interrupted, nothing was written";
    return "interrupted, nothing was written for " + lost + "; complete: " + written;
  }

  void write_document() {
    console_.out << "{\"jobs\": [";
    for (std::size_t i = 0; i < states_.size(); ++i) {
      console_.out << (i == 0 ? "\n" : ",\n") << element(states_[i]);
    }
    console_.out << "\n]}\n";
  }

  std::string element(const JobState& state) const {
    std::string text = "{\"job\": " + json_string(state.plan.path) +
                       ", \"exit_code\": " + std::to_string(state.outcome.exit_code);
    if (state.written) text += ", \"folder\": " + json_string(state.plan.folder);
    if (state.written && has_page(state)) text += ", \"page\": " + json_string(page_of(state));
    if (!state.outcome.out.empty()) text += ",\n\"summary\": " + state.outcome.out;
    if (!state.outcome.err.empty()) text += ",\n\"error\": " + state.outcome.err;
    return text + "}";
  }

  int highest_code() const {
    int code = Exit::good;
    for (const JobState& state : states_) code = std::max(code, state.outcome.exit_code);
    return code;
  }

  const JobOptions& options_;
  Console& console_;
  std::vector<JobState> states_;
  std::size_t shown_ = 0;
};

}  // namespace

int run_batch(const std::vector<PlannedJob>& jobs, const JobOptions& options, Console& console) {
  return Batch(jobs, options, console).run();
}

}  // namespace Cli
