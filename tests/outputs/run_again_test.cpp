// A run of the copied job gives the same bytes.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "outputs/folder_listing.h"
#include "outputs/made_run.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

class RunAgain : public testing::Test {
 protected:
  // Runs the job, and then its copy from another folder, and expects the same files.
  void expect_same(const std::string& job, const std::vector<std::string>& options = {}) {
    fs::create_directory(dir.file("jobs"));
    Testing::MadeRun(dir.write("jobs/storm.toml", job), options).write(dir.file("first"));
    const Files first = Testing::listing(dir.file("first"));
    // The copy has to be enough.
    fs::create_directory(dir.file("elsewhere"));
    fs::rename(dir.file("first"), dir.file("elsewhere/moved"));
    fs::remove_all(dir.file("jobs"));
    const fs::path before = fs::current_path();
    fs::current_path(dir.file("elsewhere"));
    Testing::MadeRun("moved/job.toml").write("second");
    fs::current_path(before);
    const Files second = Testing::listing(dir.file("elsewhere/second"));
    ASSERT_EQ(first.size(), second.size());
    for (const auto& [name, contents] : first) {
      ASSERT_EQ(second.count(name), 1u) << name;
      EXPECT_TRUE(second.at(name) == contents) << name;
      EXPECT_EQ(contents.find(dir.path()), std::string::npos) << name;
      EXPECT_EQ(contents.find(Testing::examples), std::string::npos) << name;
    }
  }

  Testing::TempDir dir;
};

TEST_F(RunAgain, GivesTheSameBytesOfEveryFile) { expect_same(Testing::basin_job()); }

TEST_F(RunAgain, GivesTheSameBytesWithOptions) {
  expect_same(Testing::basin_job(),
              {"sea.hs=60 mm", "title=Smaller", "drive.ramp=\"3 s\"", "point.1.rate = 10 Hz"});
}

TEST_F(RunAgain, GivesTheSameBytesWithASiteFromTheOptions) {
  expect_same("site = \"none.site\"\n" +
                  Testing::regular_job().substr(Testing::regular_job().find("[run]")),
              {"site=" + Testing::examples + "flume.site"});
}

TEST_F(RunAgain, GivesTheSameBytesWithRecordsFrontsAndTables) {
  fs::create_directories(dir.file("jobs/data"));
  std::string record = "time [s],\"eta [mm]\"\n";
  for (int i = 0; i < 600; ++i) {
    record += std::to_string(i / 20.0) + "," + std::to_string(20 * std::sin(0.25 * i)) + "\n";
  }
  dir.write("jobs/data/probe.csv", record);
  dir.write("jobs/data/waves.csv",
            "f [Hz],a [mm],angle [deg],phase [deg]\n0.5,10,0,30\n0.9,5,0,0\n");
  dir.write("jobs/waves.csv", "f [Hz],S [m2/Hz]\n0.4,0\n0.6,0.001\n1,0\n");
  expect_same("site = \"" + Testing::examples +
                  "flume.site\"\n[run]\nrepeat = \"30 s\"\n[[sea]]\n"
                  "[[sea.wave]]\nkind = \"record\"\nfile = \"data/probe.csv\"\ncolumn = \"eta\"\n"
                  "[[sea.wave]]\nkind = 'fronts'\nfile = 'data/waves.csv'  # two of one name\n"
                  "[[sea.wave]]\nkind = \"table\"\nfile = \"none.csv\"\n",
              {"sea.wave.3.file=waves.csv"});
}

TEST_F(RunAgain, GivesTheSameBytesOfNetcdfAndCsvAlone) {
  expect_same(Testing::regular_job("[outputs]\ncsv = false\n"));
}

}  // namespace
}  // namespace Outputs
