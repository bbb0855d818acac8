// Each call of a run that changes files fails, one after the other; or the program is killed there.
// Nothing half written is left, and the message names the file and the reason.
#include <signal.h>

#include <cerrno>
#include <cstring>

#include "cli/faults/fault_plan.h"
#include "cli/program_run.h"
#include "cli/result_folders.h"
#include "support/own_process.h"

namespace {

using Testing::FaultPlan;
using Testing::Files;
using Testing::Ran;
using Testing::Setting;

class FailingDisk : public testing::Test {
 protected:
  FailingDisk() {
    setting_.folder = folder_.path();
    job("first");
    run_undisturbed();
    first_ = files();
    job("second");
  }
  void SetUp() override {
    // A sanitizer has to be loaded before any other library.
    if (Testing::sanitized) GTEST_SKIP() << "no library can be preloaded";
  }

  void job(const std::string& title) { folder_.write("job.toml", Testing::whole_job(title)); }
  Files files() const { return Testing::files_below(folder_.file("job.out")); }
  bool is_tidy() const {
    return Testing::names_in(folder_.path()) == std::set<std::string>{"job.out", "job.toml"};
  }
  void run_undisturbed() {
    const Ran ran = Testing::run_program(words_, setting_);
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.err, "");
    EXPECT_TRUE(is_tidy());
  }

  struct Result {
    Ran ran;
    FaultPlan plan;
  };
  // Error 0 kills all processes of the program.
  Result run_failing(long call, int error, bool stays = false) {
    FaultPlan plan{};
    std::strncpy(plan.folder, folder_.path().c_str(), sizeof plan.folder - 1);
    plan.failing = call;
    plan.error = error;
    plan.stays = stays;
    const Testing::TempDir shared;
    shared.write("plan", std::string(reinterpret_cast<const char*>(&plan), sizeof plan));
    Setting setting = setting_;
    setting.environment = {{"LD_PRELOAD", FAILING_CALLS},
                           {"KELPBOX_FAULT_PLAN", shared.file("plan")}};
    const Ran ran = Testing::run_program(words_, setting);
    const std::string bytes = shared.contents("plan");
    std::memcpy(&plan, bytes.data(), std::min(sizeof plan, bytes.size()));
    return {ran, plan};
  }

  // The first letters of the calls of a run in which none fails. The earlier results are back.
  std::string calls_of_a_run(int error) {
    const Result all = run_failing(0, error);
    EXPECT_EQ(all.ran.code, 0);
    second_ = files();
    EXPECT_NE(first_, second_);
    bring_back_first();
    return std::string(all.plan.kinds + 1, static_cast<std::size_t>(all.plan.calls));
  }
  void bring_back_first() {
    job("first");
    run_undisturbed();
    job("second");
  }

  // Whether a NetCDF file, whose contents are on the disk, is being closed by this call.
  static bool closes_netcdf(const std::string& calls, std::size_t call) {
    const std::size_t before = calls.find_last_not_of("pt", call - 2);
    const std::size_t after = calls.find_first_not_of("pt", call - 1);
    return calls[before] == 's' && after != std::string::npos && calls[after] == 'c';
  }

  void expect_message(const Ran& ran, int error, bool library_may_crash) const {
    // NetCDF 4.9.0 looks at an object that is gone if HDF5 cannot close a file.
    if (library_may_crash && ran.code == 2) {
      EXPECT_NE(ran.err.find("its process was ended by a fault of the library"), std::string::npos);
      return;
    }
    EXPECT_EQ(ran.code, 3);
    EXPECT_TRUE(ran.err.starts_with("error: cannot write job.out"));
    EXPECT_NE(ran.err.find(std::strerror(error)), std::string::npos);
  }

  Testing::TempDir folder_;
  Setting setting_;
  Testing::Words words_ = {"run", "job.toml", "--quiet"};
  Files first_, second_;
};

TEST_F(FailingDisk, ThatFillsUpAtAnyMomentKeepsTheEarlierResults) {
  const std::string calls = calls_of_a_run(ENOSPC);
  ASSERT_GT(calls.size(), 100U);
  for (std::size_t call = 1; call <= calls.size(); ++call) {
    const Result failed = run_failing(static_cast<long>(call), ENOSPC, true);
    SCOPED_TRACE(std::to_string(call) + ", " + failed.plan.name + ": " + failed.ran.err);
    expect_message(failed.ran, ENOSPC, closes_netcdf(calls, call));
    EXPECT_TRUE(is_tidy());
    // The last one follows the exchange, which cannot be undone if all calls fail from there on.
    EXPECT_TRUE(files() == (call < calls.size() ? first_ : second_));
  }
}

TEST_F(FailingDisk, ThatFailsOnceKeepsTheEarlierResultsOrDoesNoHarm) {
  const std::string calls = calls_of_a_run(EIO);
  std::string harmless;
  for (std::size_t call = 1; call <= calls.size(); ++call) {
    const Result failed = run_failing(static_cast<long>(call), EIO);
    SCOPED_TRACE(std::to_string(call) + ", " + failed.plan.name + ": " + failed.ran.err);
    EXPECT_TRUE(is_tidy());
    if (failed.ran.code == 0) {
      EXPECT_TRUE(files() == second_);
      harmless += calls[call - 1];
      bring_back_first();
    } else {
      expect_message(failed.ran, EIO, closes_netcdf(calls, call));
      EXPECT_TRUE(files() == first_);
    }
  }
  // The NetCDF library looks for each of its four files before it makes them.
  EXPECT_EQ(harmless, "oooo");
}

// File systems without an exchange of folders say so with any of these errors.
TEST_F(FailingDisk, ThatCannotExchangeFoldersPutsTheResultsInTheirPlaceInSteps) {
  const std::size_t exchange = calls_of_a_run(EINVAL).rfind('r') + 1;
  for (const int error : {EINVAL, ENOSYS, ENOTSUP}) {
    const Result exchanged = run_failing(static_cast<long>(exchange), error);
    EXPECT_STREQ(exchanged.plan.name, "renameat2");
    EXPECT_EQ(exchanged.ran.code, 0);
    EXPECT_TRUE(is_tidy());
    EXPECT_TRUE(files() == second_);
    std::filesystem::remove_all(folder_.file("job.out"));
    const Result moved = run_failing(static_cast<long>(exchange), error);
    EXPECT_STREQ(moved.plan.name, "renameat2");
    EXPECT_EQ(moved.ran.code, 0);
    EXPECT_TRUE(files() == second_);
    bring_back_first();
  }
  const Result failed = run_failing(static_cast<long>(exchange), EINVAL, true);
  EXPECT_EQ(failed.ran.code, 3);
  EXPECT_EQ(failed.ran.err, "error: cannot write job.out: Invalid argument\n");
  EXPECT_TRUE(is_tidy());
  EXPECT_TRUE(files() == first_);
}

// Some file systems cannot flush a folder. The last one that is flushed holds the results.
TEST_F(FailingDisk, ThatCannotFlushFoldersHasAllResults) {
  const std::size_t flush = calls_of_a_run(EINVAL).rfind('s') + 1;
  for (const int error : {EINVAL, ENOTSUP}) {
    const Result flushed = run_failing(static_cast<long>(flush), error);
    EXPECT_STREQ(flushed.plan.name, "sync");
    EXPECT_EQ(flushed.ran.code, 0);
    EXPECT_EQ(flushed.ran.err, "");
    EXPECT_TRUE(files() == second_);
    bring_back_first();
  }
}

TEST_F(FailingDisk, WhoseCallsAreInterruptedBySignalsHasAllResults) {
  const std::string calls = calls_of_a_run(EINTR);
  const std::size_t write = calls.find('w');
  for (const std::size_t call : {write, calls.find('c', write)}) {
    ASSERT_NE(call, std::string::npos);
    EXPECT_EQ(run_failing(static_cast<long>(call + 1), EINTR).ran.code, 0);
    EXPECT_TRUE(is_tidy());
    EXPECT_TRUE(files() == second_);
    bring_back_first();
  }
}

// From the first file that is flushed to the disk to the last one of the earlier results that is
// removed.
TEST_F(FailingDisk, ProgramsThatAreKilledAtAnyStepOfTheExchangeLeaveWholeResults) {
  const std::string calls = calls_of_a_run(0);
  const std::size_t flushed = calls.find("sss");
  ASSERT_NE(flushed, std::string::npos);
  std::size_t kept = 0, replaced = 0;
  for (std::size_t i = flushed; i < calls.size(); ++i) {
    const Result killed = run_failing(static_cast<long>(i + 1), 0);
    SCOPED_TRACE(std::to_string(i) + ", " + killed.plan.name);
    EXPECT_EQ(killed.ran.code, 128 + SIGKILL);
    const Files found = files();
    EXPECT_TRUE(found == first_ || found == second_);
    ++(found == second_ ? replaced : kept);
    bring_back_first();
    EXPECT_TRUE(files() == first_);
  }
  EXPECT_GT(kept, 10U);
  EXPECT_GT(replaced, 10U);
}

}  // namespace
