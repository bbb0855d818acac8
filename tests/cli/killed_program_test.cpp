// The program is killed at 200 random moments, from its start to after its end. Its results are
// then whole or not there, and the next run succeeds and leaves nothing else.
#include <signal.h>

#include <array>
#include <chrono>
#include <iostream>
#include <random>
#include <thread>

#include "cli/program_run.h"
#include "cli/result_folders.h"
#include "support/own_process.h"

namespace {

using Testing::Files;
using Testing::Ran;
using Testing::RunningProgram;
using Testing::Setting;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int moments = Testing::sanitized ? 10 : 50;  // of each of the four tests

enum Phase { before_writing, while_writing, complete, in_place, ended, phases };
constexpr std::array<const char*, phases> phase_names = {
    "before anything is written", "while files are written", "when all files are complete",
    "when the results are in their place", "after the end"};

class KilledProgram : public testing::Test {
 protected:
  KilledProgram() {
    setting_.folder = folder_.path();
    for (std::size_t i = 0; i < 2; ++i) {
      job(i);
      run_undisturbed();
      results_[i] = files();
    }
    EXPECT_NE(results_[0], results_[1]);
    EXPECT_EQ(results_[0].count("field.nc") + results_[0].count("report.html") +
                  results_[0].count("points.nc") + results_[0].count("drive_1.csv"),
              4U);
  }

  // Kills the run of one job, and runs it again. With earlier results, those of the other job are
  // there.
  void kill_at_random_moments(bool earlier, bool whole_group) {
    std::array<int, phases> met{};
    for (int i = 0; i < moments; ++i) {
      const std::size_t made = static_cast<std::size_t>(i) % 2;
      job(made);
      if (!earlier) std::filesystem::remove_all(folder_.file("job.out"));
      const Files before = files();
      const double share = 1.15 * (i + std::uniform_real_distribution<>()(random_)) / moments;
      ++met[kill_at(share * usual_, whole_group, before, results_[made])];
      run_undisturbed();
      EXPECT_EQ(files(), results_[made]);
      if (HasFailure()) break;
    }
    for (std::size_t i = 0; i < phases; ++i) {
      std::cout << "killed " << phase_names[i] << ": " << met[i] << "\n";
    }
    EXPECT_GE(met[while_writing], moments / 5);
  }

 private:
  void job(std::size_t number) {
    folder_.write("job.toml", Testing::whole_job(number == 0 ? "first" : "second"));
  }

  Files files() const { return Testing::files_below(folder_.file("job.out")); }

  void run_undisturbed() {
    const auto begin = Clock::now();
    const Ran ran = Testing::run_program({"run", "job.toml", "--quiet"}, setting_);
    usual_ = Seconds(Clock::now() - begin).count();
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(Testing::names_in(folder_.path()), (std::set<std::string>{"job.out", "job.toml"}));
  }

  Phase kill_at(double moment, bool whole_group, const Files& before, const Files& after) {
    RunningProgram program({"run", "job.toml", "--quiet"}, setting_);
    std::this_thread::sleep_for(Seconds(moment));
    whole_group ? program.send_to_group(SIGKILL) : program.send(SIGKILL);
    const bool has_ended = program.wait().code == 0;
    wait_for_processes(program);

    const Files found = files();
    EXPECT_TRUE(found == after || found == before);
    Files hidden;
    std::size_t folders = 0;
    for (const std::string& name : Testing::names_in(folder_.path())) {
      if (name == "job.toml" || name == "job.out") continue;
      EXPECT_TRUE(name.starts_with(".job.out.kelpbox-")) << name;
      hidden = Testing::files_below(folder_.file(name));
      ++folders;
    }
    EXPECT_LE(folders, 1U);
    EXPECT_TRUE(found == after || !has_ended);
    if (has_ended) return ended;
    if (found == after) return in_place;
    if (folders == 0) return before_writing;
    return hidden == after ? complete : while_writing;
  }

  // The processes of jobs end with the program, but not in the same moment.
  static void wait_for_processes(const RunningProgram& program) {
    const auto end = Clock::now() + std::chrono::seconds(20);
    while (program.has_processes() && Clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_FALSE(program.has_processes());
  }

  Testing::TempDir folder_;
  Setting setting_;
  std::array<Files, 2> results_;
  double usual_ = 0;  // s, of the latest undisturbed run
  std::mt19937 random_{20240611};
};

TEST_F(KilledProgram, LeavesNoHalfResults) { kill_at_random_moments(false, false); }

TEST_F(KilledProgram, LeavesNoHalfResultsIfItsJobsAreKilledToo) {
  kill_at_random_moments(false, true);
}

TEST_F(KilledProgram, LeavesEarlierResultsOrNewOnes) { kill_at_random_moments(true, false); }

TEST_F(KilledProgram, LeavesEarlierResultsOrNewOnesIfItsJobsAreKilledToo) {
  kill_at_random_moments(true, true);
}

}  // namespace
