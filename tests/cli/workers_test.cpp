#include "cli/workers.h"

#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <map>

using Cli::ChildReport;
using Cli::Outcome;
using Cli::Task;

namespace {

class Workers : public testing::Test {
 protected:
  void add(const std::string& name, const Cli::Work& work) {
    tasks_.push_back({name, [] {}, work,
                      [this, name](Outcome outcome) {
                        outcomes_[name] = std::move(outcome);
                        ended_.push_back(name);
                      }});
  }
  int run(
      unsigned workers, const std::function<bool()>& stop = [] { return false; }) {
    std::ostringstream nowhere;
    Cli::ProgressBar bar(nowhere, false);
    return Cli::run_tasks(tasks_, workers, bar, stop);
  }

  std::vector<Task> tasks_;
  std::map<std::string, Outcome> outcomes_;
  std::vector<std::string> ended_;
};

}  // namespace

TEST_F(Workers, ReturnWhatEachTaskReports) {
  add("one", [](ChildReport& report) {
    report.out("first ");
    report.err("problem");
    report.out("second");
    return 3;
  });
  add("two", [](ChildReport&) { return 0; });
  EXPECT_EQ(run(2), 0);
  EXPECT_EQ(outcomes_["one"].exit_code, 3);
  EXPECT_EQ(outcomes_["one"].signal, 0);
  EXPECT_EQ(outcomes_["one"].out, "first second");
  EXPECT_EQ(outcomes_["one"].err, "problem");
  EXPECT_EQ(outcomes_["two"].exit_code, 0);
}

TEST_F(Workers, PassOnReportsOfAnySize) {
  const std::string large(20'000'000, 'x');
  for (const std::string name : {"one", "two"}) {
    add(name, [&large](ChildReport& report) {
      for (int i = 0; i < 1000; ++i) report.progress("step", i / 1000.0);
      report.out(large);
      report.out("end");
      return 0;
    });
  }
  EXPECT_EQ(run(2), 0);
  EXPECT_EQ(outcomes_["one"].out, large + "end");
  EXPECT_EQ(outcomes_["two"].out, large + "end");
}

TEST_F(Workers, SurviveATaskThatCrashes) {
  add("crash", [](ChildReport&) -> int {
    signal(SIGSEGV, SIG_DFL);  // a sanitizer would catch it
    raise(SIGSEGV);
    return 0;
  });
  add("good", [](ChildReport& report) {
    report.out("good");
    return 0;
  });
  for (const unsigned workers : {1U, 2U}) {
    EXPECT_EQ(run(workers), 0);
    EXPECT_EQ(outcomes_["crash"].signal, SIGSEGV);
    EXPECT_EQ(outcomes_["good"].out, "good");
  }
}

// The task with the result can only end after the others began.
TEST_F(Workers, WorkAtTheSameTime) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  add("reader", [&](ChildReport& report) {
    char letter = 0;
    const bool good = read(ends[0], &letter, 1) == 1;
    report.out(good ? std::string(1, letter) : "nothing");
    return 0;
  });
  add("writer", [&](ChildReport&) { return write(ends[1], "x", 1) == 1 ? 0 : 1; });
  EXPECT_EQ(run(2), 0);
  EXPECT_EQ(outcomes_["reader"].out, "x");
  close(ends[0]);
  close(ends[1]);
}

TEST_F(Workers, ReportATaskThatCannotBeStarted) {
  add("good", [](ChildReport&) { return 0; });
  rlimit usual{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &usual), 0);
  // Enough for the pipe of the signals, but not for that of the child.
  const int lowest = dup(STDERR_FILENO);
  close(lowest);
  const rlimit few{static_cast<rlim_t>(lowest) + 2, usual.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
  EXPECT_EQ(run(1), 0);
  setrlimit(RLIMIT_NOFILE, &usual);
  EXPECT_EQ(outcomes_["good"].start_failure, "no pipe: Too many open files");
}

TEST_F(Workers, WorkInOrderOneAtATime) {
  for (const std::string name : {"a", "b", "c", "d"}) add(name, [](ChildReport&) { return 0; });
  EXPECT_EQ(run(1), 0);
  EXPECT_EQ(ended_, (std::vector<std::string>{"a", "b", "c", "d"}));
}

TEST_F(Workers, StartNothingMoreAfterAStop) {
  for (const std::string name : {"a", "b", "c"}) add(name, [](ChildReport&) { return 0; });
  EXPECT_EQ(run(1, [this] { return ended_.size() == 2; }), 0);
  EXPECT_EQ(ended_, (std::vector<std::string>{"a", "b"}));
}

TEST_F(Workers, EndAtOnceOnASignal) {
  const pid_t parent = getpid();
  add("quick", [](ChildReport&) { return 0; });
  add("endless", [parent](ChildReport&) -> int {
    kill(parent, SIGTERM);
    while (true) pause();
  });
  EXPECT_EQ(run(1), SIGTERM);
  EXPECT_EQ(ended_, std::vector<std::string>{"quick"});
}

TEST_F(Workers, KeepTheLibrarysLinesOffStandardOutput) {
  testing::internal::CaptureStdout();
  add("loud", [](ChildReport&) {
    std::printf("line\n");
    std::fflush(stdout);
    return 0;
  });
  EXPECT_EQ(run(1), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}
