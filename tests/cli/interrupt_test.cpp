// Ctrl-C and SIGTERM leave nothing half written, and end the program soon.
#include <signal.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <thread>

#include "cli/program_run.h"
#include "cli/sample_jobs.h"

using Testing::Ran;
using Testing::RunningProgram;
using Testing::Setting;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

class Interrupt : public testing::Test {
 protected:
  Interrupt() {
    setting_.folder = folder_.path();
    folder_.write("slow.toml", Testing::slow_job());
    folder_.write("quick.toml", Testing::quick_job());
  }

  std::size_t entries() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
  }
  // Waits until a job has begun to write, which its hidden folder shows.
  bool wait_for_hidden_folder() const {
    const auto end = Clock::now() + std::chrono::seconds(60);
    while (Clock::now() < end) {
      for (const auto& entry : fs::directory_iterator(folder_.path())) {
        if (entry.path().filename().string().front() == '.') return true;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
  }
  bool wait_for(const std::string& name) const {
    const auto end = Clock::now() + std::chrono::seconds(60);
    while (Clock::now() < end && !fs::exists(folder_.file(name))) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return fs::exists(folder_.file(name));
  }

  Testing::TempDir folder_;
  Setting setting_;
};

}  // namespace

TEST_F(Interrupt, LeavesNothingBehind) {
  for (const auto& [signal, code] : {std::pair{SIGINT, 130}, std::pair{SIGTERM, 143}}) {
    RunningProgram program({"run", "slow.toml"}, setting_);
    ASSERT_TRUE(wait_for_hidden_folder());
    // In the middle of the work: the moments before are short.
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const auto begin = Clock::now();
    program.send_to_group(signal);
    const Ran ran = program.wait();
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5));
    EXPECT_EQ(ran.code, code);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "interrupted, nothing was written\n");
    EXPECT_EQ(entries(), 2U);
  }
}

TEST_F(Interrupt, KeepsWhatAnEarlierRunWrote) {
  fs::copy(folder_.file("quick.toml"), folder_.file("job.toml"));
  ASSERT_EQ(Testing::run_program({"run", "job.toml"}, setting_).code, 0);
  const std::string summary = folder_.contents("job.out/summary.json");
  folder_.write("job.toml", Testing::slow_job());
  RunningProgram program({"run", "job.toml"}, setting_);
  ASSERT_TRUE(wait_for_hidden_folder());
  program.send(SIGINT);
  EXPECT_EQ(program.wait().code, 130);
  EXPECT_EQ(folder_.contents("job.out/summary.json"), summary);
  EXPECT_EQ(entries(), 4U);
}

TEST_F(Interrupt, KeepsFinishedJobsAndNamesTheOthers) {
  folder_.write("later.toml", Testing::quick_job());
  RunningProgram program({"run", "quick.toml", "slow.toml", "later.toml"}, setting_);
  ASSERT_TRUE(wait_for("quick.out"));
  ASSERT_TRUE(wait_for_hidden_folder());
  program.send(SIGINT);
  const Ran ran = program.wait();
  EXPECT_EQ(ran.code, 130);
  EXPECT_NE(ran.out.find("Written: quick.out\n"), std::string::npos);
  EXPECT_EQ(ran.err,
            "interrupted, nothing was written for slow.toml, later.toml; complete: quick.out\n");
  EXPECT_EQ(entries(), 4U);
}

TEST_F(Interrupt, WritesACompleteDocumentWithJson) {
  RunningProgram program({"run", "quick.toml", "slow.toml", "--json"}, setting_);
  ASSERT_TRUE(wait_for("quick.out"));
  ASSERT_TRUE(wait_for_hidden_folder());
  program.send(SIGINT);
  const Ran ran = program.wait();
  EXPECT_EQ(ran.code, 130);
  const auto jobs = nlohmann::json::parse(ran.out).at("jobs");
  EXPECT_EQ(jobs.at(0).at("folder"), "quick.out");
  EXPECT_EQ(jobs.at(1).at("exit_code"), 130);
  EXPECT_EQ(jobs.at(1).at("error").at("code"), 130);
}

TEST_F(Interrupt, EndsTheProcessesOfAllWorkers) {
  for (const std::string name : {"s1.toml", "s2.toml", "s3.toml"}) {
    folder_.write(name, Testing::slow_job());
  }
  RunningProgram program({"run", "s1.toml", "s2.toml", "s3.toml", "-j", "3"}, setting_);
  ASSERT_TRUE(wait_for_hidden_folder());
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  program.send(SIGTERM);
  EXPECT_EQ(program.wait().code, 143);
  EXPECT_FALSE(program.has_processes());
  EXPECT_EQ(entries(), 5U);
}

TEST_F(Interrupt, OfACheckSaysNoMore) {
  RunningProgram program({"check", "slow.toml"}, setting_);
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  program.send(SIGINT);
  const Ran ran = program.wait();
  EXPECT_EQ(ran.code, 130);
  EXPECT_EQ(ran.err, "interrupted\n");
}

TEST_F(Interrupt, ShowsEveryFinishedJob) {
  folder_.write("second.toml", Testing::quick_job());
  RunningProgram program({"run", "slow.toml", "quick.toml", "second.toml", "-j", "2"}, setting_);
  ASSERT_TRUE(wait_for("quick.out"));
  ASSERT_TRUE(wait_for("second.out"));
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  program.send(SIGINT);
  const Ran ran = program.wait();
  EXPECT_EQ(ran.code, 130);
  EXPECT_NE(ran.out.find("Written: quick.out\n"), std::string::npos);
  EXPECT_NE(ran.out.find("Written: second.out\n"), std::string::npos);
  EXPECT_EQ(ran.err,
            "interrupted, nothing was written for slow.toml; complete: quick.out, second.out\n");
}

// Whatever ends the program, its workers do not outlive it.
TEST_F(Interrupt, EndsTheWorkersOfAKilledProgram) {
  RunningProgram program({"check", "slow.toml"}, setting_);
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  program.send(SIGKILL);
  EXPECT_EQ(program.wait().code, 128 + SIGKILL);
  const auto end = Clock::now() + std::chrono::seconds(5);
  while (program.has_processes() && Clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_FALSE(program.has_processes());
}

TEST_F(Interrupt, StaysIgnoredIfItWasIgnoredAtTheStart) {
  const std::string script = "trap '' INT; '" + Testing::program_path() +
                             "' run slow.toml & sleep 0.5; kill -INT $!; sleep 0.5; "
                             "kill -TERM $!; wait $!";
  const Ran ran = Testing::run_command({"sh", "-c", script}, setting_);
  EXPECT_EQ(ran.code, 143);
  EXPECT_EQ(ran.err, "interrupted, nothing was written\n");
}
