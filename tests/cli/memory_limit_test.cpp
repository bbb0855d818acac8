// The command on a machine without enough memory.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "program_run.h"
#include "sample_jobs.h"
#include "support/own_process.h"

namespace {

using Testing::Ran;

// Runs the program with so much room for addresses.
Ran run_in(long kib, const std::string& words, const std::string& folder) {
  const std::string command = "ulimit -c 0; ulimit -v " + std::to_string(kib) + "; exec '" +
                              Testing::program_path() + "' " + words;
  return Testing::run_command({"sh", "-c", command}, {.folder = folder});
}

// The least room in which the program starts.
long least_room(const std::string& folder) {
  long kib = 16 << 10;
  while (run_in(kib, "--version", folder).code != 0) kib += 2 << 10;
  return kib;
}

// From a room in which the program starts to one that suffices. The step is small against what a
// run needs, so that memory runs out in many places: in the job, in the waves, in the files and in
// the libraries that end the process then.
TEST(MemoryLimit, ARunIsCompleteOrReportedWithoutATrace) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  const Testing::TempDir folder;
  folder.write("small.toml", Testing::quick_job());
  int reported = 0;
  for (long kib = least_room(folder.path());; kib += 512) {
    ASSERT_LT(kib, 1 << 20) << "the job never fits";
    const Ran ran = run_in(kib, "run small.toml", folder.path());
    if (ran.code == 0) break;
    ++reported;
    EXPECT_TRUE(ran.code == 2 || ran.code == 3) << kib << " KiB: " << ran.code << ran.err;
    EXPECT_NE(ran.err, "") << kib;
    // The hidden folder is gone too.
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
      EXPECT_EQ(entry.path().filename(), "small.toml") << kib;
    }
  }
  EXPECT_GT(reported, 0);
  for (const char* file : {"summary.json", "report.html", "drive.nc"}) {
    EXPECT_TRUE(std::filesystem::exists(folder.file(std::string("small.out/") + file))) << file;
  }
}

}  // namespace
