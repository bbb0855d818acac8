// Runs that are interrupted at random moments, on disks that are full or read-only, and in folders
// that others change meanwhile.
#include <signal.h>

#include <chrono>
#include <iostream>
#include <random>
#include <thread>

#include "cli/program_run.h"
#include "cli/result_folders.h"

namespace {

namespace fs = std::filesystem;
using Testing::Files;
using Testing::Ran;
using Testing::RunningProgram;
using Testing::Setting;
using Names = std::set<std::string>;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

class DisturbedRun : public testing::Test {
 protected:
  DisturbedRun() {
    setting_.folder = folder_.path();
    folder_.write("job.toml", Testing::whole_job("sea"));
    const auto begin = Clock::now();
    EXPECT_EQ(run().code, 0);
    usual_ = Seconds(Clock::now() - begin).count();
    results_ = files("job.out");
    fs::remove_all(folder_.file("job.out"));
  }

  Ran run() const { return Testing::run_program({"run", "job.toml"}, setting_); }
  Files files(const std::string& name) const { return Testing::files_below(folder_.file(name)); }
  Names names() const { return Testing::names_in(folder_.path()); }
  double share() { return std::uniform_real_distribution<>()(random_); }
  static void pause(double seconds) { std::this_thread::sleep_for(Seconds(seconds)); }

  // The hidden folder of a run that writes.
  std::string hidden_folder() const {
    const auto end = Clock::now() + std::chrono::seconds(60);
    while (Clock::now() < end) {
      for (const std::string& name : names()) {
        if (name.starts_with(".")) return folder_.file(name);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ADD_FAILURE() << "no hidden folder";
    return "";
  }

  // With a private mount of a small disk at `disk`. The script writes the lines that are returned.
  Ran run_on_disk(const std::string& options, const std::string& script) const {
    fs::create_directories(folder_.file("disk"));
    return Testing::run_command(
        {"unshare", "--map-root-user", "--mount", "sh", "-c",
         "mount -t tmpfs -o " + options + " none disk || exit 99\n" + "program='" +
             Testing::program_path() + "'\n" + "cp job.toml disk && cd disk && " + script},
        setting_);
  }
  bool has_disks() const { return run_on_disk("size=100k", "true").code == 0; }

  Testing::TempDir folder_;
  Setting setting_;
  Files results_;
  double usual_ = 0;  // s
  std::mt19937 random_{20240611};
};

TEST_F(DisturbedRun, InterruptedAtRandomMomentsLeavesNothingOrAllResults) {
  int early = 0;
  for (int i = 0; i < 40; ++i) {
    const bool from_terminal = i % 2 == 0;
    fs::remove_all(folder_.file("job.out"));
    RunningProgram program({"run", "job.toml"}, setting_);
    pause(usual_ * 1.1 * (i + share()) / 40);
    from_terminal ? program.send_to_group(SIGINT) : program.send(SIGTERM);
    const Ran ran = program.wait();
    SCOPED_TRACE(std::to_string(i) + ": " + ran.err);
    if (ran.out.find("Written: job.out") != std::string::npos) {
      EXPECT_TRUE(files("job.out") == results_);
      EXPECT_EQ(names(), (Names{"job.out", "job.toml"}));
    } else {
      EXPECT_EQ(ran.code, from_terminal ? 130 : 143);
      EXPECT_EQ(names(), Names{"job.toml"});
      ++early;
    }
  }
  std::cout << "interrupted before the end: " << early << " of 40\n";
  EXPECT_GE(early, 10);
}

TEST_F(DisturbedRun, SeveralJobsThatAreKilledLeaveWholeResultsOrNone) {
  const Testing::Words words = {"run", "a.toml",  "b.toml", "c.toml", "--jobs",
                                "2",   "--quiet", "--out",  "all"};
  const Names jobs = {"a", "b", "c"};
  std::map<std::string, Files> whole;
  for (const std::string& job : jobs) folder_.write(job + ".toml", Testing::whole_job(job));
  const auto begin = Clock::now();
  EXPECT_EQ(Testing::run_program(words, setting_).code, 0);
  const double all = Seconds(Clock::now() - begin).count();
  for (const std::string& job : jobs) whole[job] = files("all/" + job);
  int some = 0;
  for (int i = 0; i < 20; ++i) {
    fs::remove_all(folder_.file("all"));
    RunningProgram program(words, setting_);
    pause(all * (i + share()) / 20);
    i % 2 == 0 ? program.send(SIGKILL) : program.send_to_group(SIGKILL);
    program.wait();
    for (int ms = 0; ms < 20000 && program.has_processes(); ++ms) pause(0.001);
    std::size_t there = 0;
    for (const std::string& job : jobs) {
      const Files found = files("all/" + job);
      EXPECT_TRUE(found.empty() || found == whole[job]) << job;
      there += found.empty() ? 0 : 1;
    }
    some += there == 1 || there == 2 ? 1 : 0;
    EXPECT_EQ(Testing::run_program(words, setting_).code, 0);
    EXPECT_EQ(Testing::names_in(folder_.file("all")), jobs);
    for (const std::string& job : jobs) EXPECT_TRUE(files("all/" + job) == whole[job]);
  }
  std::cout << "killed when some of the jobs were complete: " << some << " of 20\n";
}

TEST_F(DisturbedRun, APageThatIsBeingMadeWhenTheProgramIsKilledIsTheOldOrTheNewOne) {
  ASSERT_EQ(run().code, 0);
  int kept = 0;
  for (int i = 0; i < 15; ++i) {
    folder_.write("job.out/report.html", "old");
    RunningProgram program({"report", "job.out", "--quiet"}, setting_);
    pause(usual_ * (i + share()) / 15);
    program.send(SIGKILL);
    program.wait();
    const std::string page = folder_.contents("job.out/report.html");
    EXPECT_TRUE(page == "old" || page == results_["report.html"]);
    kept += page == "old" ? 1 : 0;
  }
  EXPECT_GE(kept, 1);
  // An unfinished page may be left, which the next run removes.
  EXPECT_EQ(run().code, 0);
  EXPECT_TRUE(files("job.out") == results_);
  EXPECT_EQ(names(), (Names{"job.out", "job.toml"}));
}

// One byte less than each of the files needs.
TEST_F(DisturbedRun, ThatMeetsALimitOfFileSizesNamesTheFile) {
  for (const auto& [name, contents] : results_) {
    const std::string limit = "--fsize=" + std::to_string(contents.size() - 1);
    const Ran ran = Testing::run_command(
        {"prlimit", limit, Testing::program_path(), "run", "job.toml", "--quiet"}, setting_);
    SCOPED_TRACE(name + ": " + ran.err);
    EXPECT_EQ(ran.code, 3);
    const std::string begin = "error: cannot write job.out/";
    ASSERT_TRUE(ran.err.starts_with(begin));
    EXPECT_EQ(results_.count(
                  ran.err.substr(begin.size(), ran.err.find(':', begin.size()) - begin.size())),
              1U);
    EXPECT_NE(ran.err.find("File too large"), std::string::npos);
    EXPECT_EQ(names(), Names{"job.toml"});
  }
}

TEST_F(DisturbedRun, OnAFullDiskLeavesNothingAndNamesTheFile) {
  if (!has_disks()) GTEST_SKIP() << "no mount without rights: tmpfs is not tested";
  // Sizes up to what all results need, and numbers of files.
  std::vector<std::string> disks;
  for (int kib = 24; kib <= 480; kib += 24) disks.push_back("size=" + std::to_string(kib) + "k");
  for (int files = 4; files <= 24; files += 2) {
    disks.push_back("nr_inodes=" + std::to_string(files));
  }
  int full = 0;
  for (const std::string& disk : disks) {
    const Ran ran =
        run_on_disk(disk, "\"$program\" run job.toml --quiet; code=$?; ls -A; exit $code");
    SCOPED_TRACE(disk + ": " + ran.err);
    if (ran.code == 0) {
      EXPECT_EQ(ran.out, "job.out\njob.toml\n");
      continue;
    }
    ++full;
    EXPECT_EQ(ran.code, 3);
    EXPECT_EQ(ran.out, "job.toml\n");
    EXPECT_TRUE(ran.err.starts_with("error: cannot write job.out"));
    EXPECT_NE(ran.err.find("No space left on device"), std::string::npos);
  }
  EXPECT_GE(full, 20);
}

TEST_F(DisturbedRun, OnAReadOnlyDiskSaysSo) {
  if (!has_disks()) GTEST_SKIP() << "no mount without rights: a read-only disk is not tested";
  const Ran ran =
      run_on_disk("size=1m", "mount -o remount,ro none . && \"$program\" run job.toml --quiet");
  EXPECT_EQ(ran.code, 3);
  EXPECT_EQ(ran.err, "error: cannot write job.out: Read-only file system\n");
}

TEST_F(DisturbedRun, WhoseHiddenFolderIsRemovedLeavesNothingOrAllResults) {
  int failed = 0;
  for (int i = 0; i < 10; ++i) {
    fs::remove_all(folder_.file("job.out"));
    RunningProgram program({"run", "job.toml", "--quiet"}, setting_);
    const std::string hidden = hidden_folder();
    pause(usual_ * share() / 2);
    // At one moment: while file after file is removed, the rest may still get its place.
    std::error_code ignored;
    const std::string removed = folder_.file("removed");
    fs::rename(hidden, removed, ignored);
    fs::remove_all(removed);
    const Ran ran = program.wait();
    SCOPED_TRACE(ran.err);
    if (ran.code == 0) {
      EXPECT_TRUE(files("job.out") == results_);
      continue;
    }
    ++failed;
    // 2 if the page or the checksums cannot be made from the files.
    EXPECT_TRUE(ran.code == 2 || ran.code == 3) << ran.code;
    EXPECT_NE(ran.err.find("job.out"), std::string::npos);
    EXPECT_NE(ran.err.find("No such file or directory"), std::string::npos);
    EXPECT_EQ(names(), Names{"job.toml"});
  }
  EXPECT_GE(failed, 1);
}

TEST_F(DisturbedRun, WhoseEarlierResultsAreRemovedMakesNewOnes) {
  ASSERT_EQ(run().code, 0);
  RunningProgram program({"run", "job.toml", "--quiet"}, setting_);
  hidden_folder();
  fs::remove_all(folder_.file("job.out"));
  EXPECT_EQ(program.wait().code, 0);
  EXPECT_TRUE(files("job.out") == results_);
  EXPECT_EQ(names(), (Names{"job.out", "job.toml"}));
}

TEST_F(DisturbedRun, WhoseEarlierResultsReceiveAFileOfTheUserKeepsIt) {
  ASSERT_EQ(run().code, 0);
  RunningProgram program({"run", "job.toml", "--quiet"}, setting_);
  hidden_folder();
  folder_.write("job.out/notes.txt", "by hand");
  const Ran ran = program.wait();
  EXPECT_EQ(ran.code, 3);
  EXPECT_EQ(ran.err,
            "error: cannot write job.out: is not replaced, because notes.txt in it is not from an "
            "earlier run\n");
  EXPECT_EQ(folder_.contents("job.out/notes.txt"), "by hand");
  EXPECT_EQ(names(), (Names{"job.out", "job.toml"}));
}

TEST_F(DisturbedRun, WhosePlaceBecomesAFileKeepsTheFile) {
  RunningProgram program({"run", "job.toml", "--quiet"}, setting_);
  hidden_folder();
  folder_.write("job.out", "by hand");
  const Ran ran = program.wait();
  EXPECT_EQ(ran.code, 3);
  EXPECT_EQ(ran.err, "error: cannot write job.out: is a file, not a folder\n");
  EXPECT_EQ(folder_.contents("job.out"), "by hand");
  EXPECT_EQ(names(), (Names{"job.out", "job.toml"}));
}

}  // namespace
