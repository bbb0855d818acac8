// Results that do not fit on the disk, or may not be written there.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "outputs/folder_listing.h"
#include "outputs/made_run.h"
#include "outputs/refused.h"
#include "support/own_process.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

// The message of a run whose files may not be larger than this, and whether nothing is left.
void expect_refused(const std::string& job, rlim_t bytes, const std::string& message) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("storm.toml", job));
  const bool good = Testing::good_alone([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limit);
    const std::string refused = Testing::refused([&] { made.write(dir.file("x.out")); });
    if (refused != dir.file(message)) ADD_FAILURE() << refused;
    return refused == dir.file(message);
  });
  EXPECT_TRUE(good);
  EXPECT_EQ(Testing::listing(dir.path()).size(), 1u);
}

TEST(FullDisk, IsReportedForCsv) {
  expect_refused(Testing::basin_job(), 100000, "x.out/drive_1.csv: File too large");
}

TEST(FullDisk, IsReportedForNetcdf) {
  expect_refused(Testing::basin_job("[outputs]\ncsv = false\n"), 100000,
                 "x.out/drive.nc: NetCDF: HDF error (File too large)");
}

TEST(FullDisk, IsReportedForTheField) {
  expect_refused(Testing::regular_job("[outputs]\ncsv = false\n"
                                      "[field]\nrate = \"50 Hz\"\n"
                                      "x = { from = \"0 m\", to = \"20 m\", step = \"0.1 m\" }\n"
                                      "y = { from = \"0 m\", to = \"0.8 m\", step = \"0.1 m\" }\n"),
                 200000, "x.out/field.nc: NetCDF: HDF error (File too large)");
}

TEST(ReadOnlyFolder, IsReported) {
  const Testing::TempDir dir;
  chmod(dir.path().c_str(), 0555);
  const bool good = Testing::good_alone([&] {
    // The rights of files do not bind root.
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && seteuid(nobody) != 0) return false;
    const std::string refused = Testing::refused([&] { OutputFolder folder(dir.file("x.out")); });
    const std::string deeper =
        Testing::refused([&] { OutputFolder folder(dir.file("made/x.out")); });
    return refused == dir.file("x.out") + ": Permission denied" &&
           deeper == dir.file("made/x.out") + ": Permission denied";
  });
  chmod(dir.path().c_str(), 0755);
  EXPECT_TRUE(good);
  EXPECT_EQ(Testing::listing(dir.path()).size(), 0u);
}

}  // namespace
}  // namespace Outputs
