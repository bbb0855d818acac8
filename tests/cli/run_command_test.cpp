// `kelpbox run` and `kelpbox check`: jobs, folders, exit codes.
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <set>

#include "cli/program_run.h"
#include "cli/sample_jobs.h"
#include "support/own_process.h"

using Testing::Ran;
using Testing::run_program;
using Testing::Setting;

namespace {

namespace fs = std::filesystem;

class RunCommand : public testing::Test {
 protected:
  RunCommand() {
    setting_.folder = folder_.path();
    folder_.write("a.toml", Testing::quick_job());
    folder_.write("b.toml", Testing::quick_job());
    folder_.write("bad.toml", "site = 5\n");
  }

  Ran run(Testing::Words words) {
    words.insert(words.begin(), "run");
    return run_program(words, setting_);
  }

  // Everything in the folder, hidden folders of unfinished runs included.
  std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder_.path())) {
      found.insert(entry.path().filename().string());
    }
    return found;
  }
  const std::set<std::string> before_{"a.toml", "b.toml", "bad.toml"};
  std::set<std::string> before_and(const std::set<std::string>& more) const {
    std::set<std::string> all = before_;
    all.insert(more.begin(), more.end());
    return all;
  }

  Testing::TempDir folder_;
  Setting setting_;
};

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

}  // namespace

TEST_F(RunCommand, WritesToAFolderNamedAfterTheJob) {
  const Ran ran = run({"a.toml"});
  EXPECT_EQ(ran.code, 0) << ran.err;
  EXPECT_TRUE(has(ran.out, "Written: a.out\n")) << ran.out;
  EXPECT_EQ(names(), before_and({"a.out"}));
}

TEST_F(RunCommand, WritesToTheGivenFolder) {
  EXPECT_EQ(run({"a.toml", "--out", "x/y"}).code, 0);
  EXPECT_EQ(names(), before_and({"x"}));
  EXPECT_TRUE(fs::is_directory(folder_.file("x/y")));
}

TEST_F(RunCommand, WritesOneFolderForEachOfSeveralJobs) {
  EXPECT_EQ(run({"a.toml", "b.toml", "--out", "all"}).code, 0);
  EXPECT_TRUE(fs::is_directory(folder_.file("all/a")));
  EXPECT_TRUE(fs::is_directory(folder_.file("all/b")));
  EXPECT_EQ(run({"a.toml", "b.toml"}).code, 0);
  EXPECT_EQ(names(), before_and({"all", "a.out", "b.out"}));
}

TEST_F(RunCommand, ReplacesTheResultsOfAnEarlierRun) {
  ASSERT_EQ(run({"a.toml"}).code, 0);
  const std::string first = folder_.contents("a.out/summary.json");
  ASSERT_EQ(run({"a.toml", "--set", "sea.a=\"10 mm\""}).code, 0);
  EXPECT_NE(folder_.contents("a.out/summary.json"), first);
  ASSERT_EQ(run({"a.toml"}).code, 0);
  EXPECT_EQ(folder_.contents("a.out/summary.json"), first);
  EXPECT_EQ(names(), before_and({"a.out"}));
}

TEST_F(RunCommand, LeavesFilesThatNoRunWrote) {
  fs::create_directory(folder_.file("a.out"));
  folder_.write("a.out/thesis.tex", "years of work");
  const Ran ran = run({"a.toml"});
  EXPECT_EQ(ran.code, 3);
  EXPECT_EQ(folder_.contents("a.out/thesis.tex"), "years of work");
}

TEST_F(RunCommand, ReadsAJobFromStandardInput) {
  setting_.input = Testing::quick_job();
  const Ran ran = run({"-"});
  EXPECT_EQ(ran.code, 0) << ran.err;
  EXPECT_EQ(names(), before_and({"stdin.out"}));
}

TEST_F(RunCommand, RefusesTwoJobsOfOneNameBeforeAnyRuns) {
  fs::create_directory(folder_.file("other"));
  folder_.write("other/a.toml", Testing::quick_job());
  const Ran ran = run({"b.toml", "a.toml", "other/a.toml"});
  EXPECT_EQ(ran.code, 2);
  EXPECT_TRUE(has(ran.err, "`a.toml` and `other/a.toml`")) << ran.err;
  EXPECT_EQ(names(), before_and({"other"}));
}

TEST_F(RunCommand, ReportsAMissingFile) {
  const Ran ran = run({"nix.toml"});
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.out, "");
  EXPECT_EQ(ran.err,
            "error: nix.toml: No such file or directory\n"
            "nix.toml: 1 error, nothing was built\n");
  EXPECT_EQ(names(), before_);
}

TEST_F(RunCommand, ReportsFaultsOfTheJobRatherThanOfTheFolder) {
  folder_.write("file", "");
  EXPECT_EQ(run({"bad.toml", "--out", "file"}).code, 2);
  EXPECT_EQ(run({"a.toml", "--out", "file"}).code, 3);
}

TEST_F(RunCommand, ReportsAFolderThatCannotBeWritten) {
  if (geteuid() == 0) {
    // Not even root can write there.
    const Ran ran = run({"a.toml", "--out", "/proc/kelpbox"});
    EXPECT_EQ(ran.code, 3);
    EXPECT_EQ(ran.err.rfind("error: cannot write /proc/kelpbox: ", 0), 0U) << ran.err;
    return;
  }
  fs::permissions(folder_.path(), fs::perms::owner_read | fs::perms::owner_exec);
  const Ran ran = run({"a.toml"});
  fs::permissions(folder_.path(), fs::perms::owner_all);
  EXPECT_EQ(ran.code, 3);
  EXPECT_EQ(ran.err.rfind("error: cannot write a.out: ", 0), 0U) << ran.err;
}

TEST_F(RunCommand, GoesOnAfterAJobThatFails) {
  const Ran ran = run({"bad.toml", "a.toml"});
  EXPECT_EQ(ran.code, 2);
  EXPECT_TRUE(has(ran.out, "Written: a.out\n"));
  EXPECT_EQ(names(), before_and({"a.out"}));
}

TEST_F(RunCommand, ShowsTheSameWithAnyNumberOfWorkers) {
  Testing::Words jobs;
  for (int i = 0; i < 12; ++i) {
    const std::string name = "job" + std::to_string(i) + ".toml";
    // The first ones take longest, so that later ones finish before them.
    const std::string repeat = i < 2 ? "2048 s" : "32 s";
    folder_.write(name, Testing::quick_job(repeat));
    jobs.push_back(name);
  }
  jobs.push_back("bad.toml");
  const Ran alone = run(jobs);
  for (const std::string workers : {"2", "5", "auto"}) {
    Testing::Words words = jobs;
    words.insert(words.end(), {"-j", workers});
    const Ran ran = run(words);
    EXPECT_EQ(ran.code, 2);
    EXPECT_EQ(ran.out, alone.out) << workers;
    EXPECT_EQ(ran.err, alone.err) << workers;
  }
  EXPECT_TRUE(has(alone.out, "Written: job11.out"));
}

TEST_F(RunCommand, NamesStandardInputInItsMessages) {
  setting_.input = "site = 5\n";
  const Ran ran = Testing::run_program({"check", "-"}, setting_);
  EXPECT_EQ(ran.code, 2);
  EXPECT_NE(ran.err.find("\nstandard input: "), std::string::npos) << ran.err;
}

TEST_F(RunCommand, SaysThatItCannotStartAProcess) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs pipes of its own";
  folder_.write("small.toml", Testing::quick_job());
  // The streams and one more file: the program can be loaded, but make no pipe.
  const std::string script = "exec 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; ulimit -n 4; exec '" +
                             Testing::program_path() + "' check small.toml";
  const Ran ran = Testing::run_command({"sh", "-c", script}, setting_);
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.err, "error: small.toml: no pipe: Too many open files\n");
}

TEST_F(RunCommand, GivesNoPageWhereAJobAsksForNone) {
  folder_.write("small.toml", Testing::quick_job() + "[outputs]\nreport = false\n");
  const Ran shown = Testing::run_program({"run", "small.toml"}, setting_);
  EXPECT_EQ(shown.out.find("Page: "), std::string::npos);
  const Ran ran = Testing::run_program({"run", "small.toml", "--json"}, setting_);
  const auto job = nlohmann::json::parse(ran.out).at("jobs").at(0);
  EXPECT_EQ(job.at("folder"), "small.out");
  EXPECT_FALSE(job.contains("page"));
}

TEST_F(RunCommand, NamesTheMachinesOfAllBanks) {
  setting_.input = Testing::quick_job();
  setting_.input.replace(setting_.input.find("flume"), 5, "l_basin");
  const Ran ran = run_program({"check", "-"}, setting_);
  EXPECT_TRUE(has(ran.out, "24 pistons and 16 pistons")) << ran.out << ran.err;
}

TEST_F(RunCommand, ChecksWithoutWriting) {
  const Ran ran = run_program({"check", "a.toml", "b.toml"}, setting_);
  EXPECT_EQ(ran.code, 0) << ran.err;
  EXPECT_NE(ran.out, "");
  EXPECT_EQ(names(), before_);
}

// A wave 0.8 m high in 0.7 m of water breaks.
TEST_F(RunCommand, EndsWithOneIfAFindingFailsAndStrictIsGiven) {
  const Testing::Words steep{"check", "a.toml", "--set", "sea.a=\"400 mm\""};
  EXPECT_EQ(run_program(steep, setting_).code, 0);
  Testing::Words strict = steep;
  strict.push_back("--strict");
  const Ran ran = run_program(strict, setting_);
  EXPECT_EQ(ran.code, 1);
  EXPECT_EQ(ran.err.rfind("a.toml: failed by --strict: ", 0), 0U) << ran.err;
}

TEST_F(RunCommand, NamesTheFindingsThatFailEvenWhenQuiet) {
  const Ran ran =
      run_program({"check", "a.toml", "--set", "sea.a=\"400 mm\"", "--strict", "-q"}, setting_);
  EXPECT_EQ(ran.code, 1);
  EXPECT_EQ(ran.out, "");
  EXPECT_EQ(ran.err.rfind("a.toml: failed by --strict: ", 0), 0U) << ran.err;
}
