// `kelpbox new` and what it writes, as a user runs it.
#include <filesystem>
#include <string>

#include "cli/program_run.h"
#include "support/temp_dir.h"

using Testing::Ran;
using Testing::run_program;

namespace {

namespace fs = std::filesystem;

class NewJob : public testing::TestWithParam<std::string> {};

}  // namespace

// The record has too few waves for statistics, as its comment says.
TEST_P(NewJob, RunsAndIsFoundGood) {
  const std::string name = GetParam();
  const Testing::TempDir folder;
  const Testing::Setting setting{.folder = folder.path()};
  const Ran made = run_program({"new", name}, setting);
  EXPECT_EQ(made.code, 0) << made.err;
  const Ran ran = run_program({"run", name + ".toml", "--strict"}, setting);
  EXPECT_EQ(ran.code, name == "record" ? 1 : 0) << ran.out << ran.err;
  for (const std::string file : {"summary.json", "drive_1.csv", "drive.nc", "point_1.csv"}) {
    EXPECT_TRUE(fs::exists(folder.file(name + ".out/" + file))) << file;
  }
}

INSTANTIATE_TEST_SUITE_P(EachTemplate, NewJob,
                         testing::Values("regular", "oblique", "jonswap", "short_crested",
                                         "focused", "record", "bichromatic"),
                         [](const auto& job) { return job.param; });

TEST(NewCommand, WritesSitesThatCanBeShown) {
  const Testing::TempDir folder;
  const Testing::Setting setting{.folder = folder.path()};
  for (const std::string kind : {"flume", "basin", "l_basin"}) {
    EXPECT_EQ(run_program({"new", "site", kind}, setting).code, 0);
    EXPECT_EQ(run_program({"site", kind + ".site"}, setting).code, 0);
  }
}

TEST(NewCommand, SaysWhatToDoNext) {
  const Testing::TempDir folder;
  const Ran made = run_program({"new", "regular"}, {.folder = folder.path()});
  EXPECT_EQ(made.out,
            "wrote regular.toml\nwrote flume.site\n\n"
            "Next: kelpbox check regular.toml    what would be made, beside what is asked for\n"
            "      kelpbox run regular.toml      writes the drive signals to regular.out\n");
  EXPECT_EQ(made.err, "");
}
