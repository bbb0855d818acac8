// `kelpbox new`: what it writes, and that all of it works.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/templates.h"
#include "facade/facade.h"
#include "jobs/drive_signals.h"
#include "jobs/judgement.h"
#include "jobs/run.h"
#include "support/output.h"
#include "support/temp_dir.h"
#include "text_console.h"

namespace {

namespace fs = std::filesystem;

class New : public testing::Test, public Testing::TextConsole {
 protected:
  // Writes into the temporary folder.
  int make(const std::string& name, const std::string& kind = "", bool force = false) {
    out_stream.str("");
    err_stream.str("");
    return Cli::make_new({name, kind, dir.path(), force}, console);
  }
  int make_at(const std::string& name, const std::string& to) {
    return Cli::make_new({name, "", to, false}, console);
  }

  Testing::TempDir dir;
};

std::string checksum_of(const std::string& site) {
  Kelpbox::Facade facade;
  Testing::printed([&] { facade.initialise(site); });
  return facade.context_string();
}

TEST_F(New, ListsJobsAndSitesWithTheirTitles) {
  EXPECT_EQ(Cli::make_new({}, console), 0);
  for (const std::string name :
       {"regular", "oblique", "jonswap", "short_crested", "focused", "record", "bichromatic",
        "site flume", "site basin", "site l_basin"}) {
    const std::string list = out();
    const std::size_t line = list.find("\n  " + name + " ");
    ASSERT_NE(line, list.npos) << name;
    const std::size_t title = list.find_first_not_of(' ', line + 3 + name.size());
    EXPECT_TRUE(list[title] >= 'A' && list[title] <= 'Z') << list.substr(title);
    EXPECT_GT(list.find('\n', title) - title, 20U) << name;
  }
}

TEST_F(New, WritesAJobAndTheFilesThatItNames) {
  EXPECT_EQ(make("record"), 0);
  for (const char* name : {"record.toml", "record.csv", "flume.site"}) {
    EXPECT_TRUE(fs::exists(dir.file(name))) << name;
    EXPECT_NE(out().find("wrote " + dir.file(name) + "\n"), std::string::npos) << name;
  }
  EXPECT_NE(out().find("kelpbox run " + dir.file("record.toml")), std::string::npos);
}

TEST_F(New, KeepsASiteThatIsThere) {
  dir.write("flume.site", "my own");
  EXPECT_EQ(make("regular", "", true), 0);
  EXPECT_EQ(dir.contents("flume.site"), "my own");
  EXPECT_NE(out().find("flume.site is there already and stays as it is"), std::string::npos);
}

TEST_F(New, ListsJobsAndSitesAsJson) {
  console.json = true;
  EXPECT_EQ(Cli::make_new({}, console), 0);
  const auto list = nlohmann::json::parse(out());
  EXPECT_EQ(list["jobs"].size(), Cli::job_templates().size());
  EXPECT_EQ(list["sites"].size(), Cli::site_templates().size());
  EXPECT_EQ(list["sites"][0]["title"], Cli::site_templates()[0].title);
}

TEST_F(New, WritesNothingButTheFileIfItIsQuiet) {
  console.quiet = true;
  EXPECT_EQ(make("regular"), 0);
  EXPECT_EQ(out(), "");
  EXPECT_TRUE(fs::exists(dir.file("regular.toml")));
}

TEST_F(New, ReplacesNothingWithoutForce) {
  dir.write("regular.toml", "my own");
  EXPECT_EQ(make("regular"), 3);
  EXPECT_EQ(dir.contents("regular.toml"), "my own");
  EXPECT_FALSE(fs::exists(dir.file("flume.site")));
  EXPECT_NE(err().find("it is there already; --force replaces it"), std::string::npos);
  EXPECT_EQ(make("regular", "", true), 0);
  EXPECT_NE(dir.contents("regular.toml"), "my own");
}

TEST_F(New, FailsWithCodeThreeWhereItCannotWrite) {
  EXPECT_EQ(make_at("regular", dir.file("no/such/folder.toml")), 3);
  EXPECT_EQ(out(), "");
}

TEST_F(New, WritesToAGivenFileOrToStandardOutput) {
  EXPECT_EQ(make_at("jonswap", dir.file("mine.toml")), 0);
  EXPECT_TRUE(fs::exists(dir.file("mine.toml")));
  EXPECT_NE(out().find("to mine.out"), std::string::npos);
  const std::string written = dir.contents("mine.toml");
  out_stream.str("");
  EXPECT_EQ(make_at("jonswap", "-"), 0);
  EXPECT_EQ(out(), written);
}

TEST_F(New, NamesTheNearestTemplate) {
  EXPECT_EQ(make("jonswop"), 2);
  EXPECT_NE(err().find("did you mean `jonswap`?"), std::string::npos);
  EXPECT_EQ(make("flume"), 2);
  EXPECT_NE(err().find("write `kelpbox new site flume`"), std::string::npos);
  EXPECT_EQ(make("site"), 2);
  EXPECT_NE(err().find("there are basin, flume, l_basin"), std::string::npos);
  EXPECT_EQ(make("site", "pool"), 2);
  EXPECT_EQ(make("regular", "flume"), 2);
  EXPECT_TRUE(fs::is_empty(dir.path()));
}

TEST_F(New, WritesJson) {
  console.json = true;
  EXPECT_EQ(make("oblique"), 0);
  const auto json = nlohmann::json::parse(out());
  EXPECT_EQ(json["written"].size(), 2U);
}

// The checksum covers every key, so the templates cannot drift from the examples.
TEST_F(New, WritesTheSitesOfTheExamplesWithoutIncludes) {
  for (const std::string kind : {"flume", "basin", "l_basin"}) {
    ASSERT_EQ(make("site", kind), 0);
    const std::string path = dir.file(kind + ".site");
    EXPECT_EQ(checksum_of(path), checksum_of(TEST_ROOT "/../examples/" + kind + ".site"));
    EXPECT_EQ(dir.contents(kind + ".site").find("include"), std::string::npos);
  }
}

// The findings of a job that need a look.
std::vector<std::string> looks_of(const std::string& job) {
  Jobs::Diagnostics faults;
  const auto run = Jobs::prepare(Jobs::read_job(job, {}, faults), faults);
  Jobs::build(*run);
  const Jobs::DriveSignals drive(*run);
  std::vector<std::string> looks;
  for (const Jobs::Finding& finding : Jobs::judge(*run, &drive).findings) {
    if (finding.verdict == Jobs::Verdict::look) looks.push_back(finding.key);
  }
  return looks;
}

// The comment of the record says that it has too few waves for statistics.
TEST_F(New, WritesJobsThatACheckFindsGood) {
  for (const Cli::Template& job : Cli::job_templates()) {
    ASSERT_EQ(make(job.name), 0);
    const std::vector<std::string> expected = job.name == "record"
                                                  ? std::vector<std::string>{"waves_per_run"}
                                                  : std::vector<std::string>{};
    EXPECT_EQ(looks_of(dir.file(job.name + ".toml")), expected) << job.name;
  }
}

TEST(ExampleJobs, AreFoundGoodByACheck) {
  std::size_t jobs = 0;
  for (const auto& entry : fs::directory_iterator(TEST_ROOT "/../examples/jobs")) {
    EXPECT_EQ(looks_of(entry.path().string()), std::vector<std::string>()) << entry.path();
    ++jobs;
  }
  EXPECT_EQ(jobs, 4U);
}

TEST(NewTemplates, FitATerminal) {
  for (const auto& templates : {Cli::job_templates(), Cli::site_templates()}) {
    for (const Cli::Template& entry : templates) {
      std::istringstream lines{std::string(entry.file.text)};
      for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 100U) << entry.name << ": " << line;
      }
    }
  }
}

}  // namespace
