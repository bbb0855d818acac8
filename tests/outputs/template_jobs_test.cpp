// What `kelpbox new` writes can be run, and not only checked.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "outputs/made_run.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

namespace fs = std::filesystem;

TEST(TemplateJobs, CanAllBeWritten) {
  const Testing::TempDir dir;
  fs::copy(TEST_ROOT "/../src/cli/new", dir.path(), fs::copy_options::recursive);
  std::set<std::string> jobs;
  for (const auto& entry : fs::directory_iterator(dir.path())) {
    if (entry.path().extension() == ".toml") jobs.insert(entry.path().stem().string());
  }
  EXPECT_EQ(jobs, (std::set<std::string>{"bichromatic", "focused", "jonswap", "oblique", "record",
                                         "regular", "short_crested"}));
  for (const std::string& job : jobs) {
    SCOPED_TRACE(job);
    ASSERT_NO_THROW(Testing::MadeRun(dir.file(job + ".toml")).write(dir.file(job + ".out")));
    EXPECT_TRUE(fs::exists(dir.file(job + ".out/summary.json")));
    const bool has_field = dir.contents(job + ".toml").find("\n[field]") != std::string::npos;
    EXPECT_EQ(fs::exists(dir.file(job + ".out/field.nc")), has_field);
  }
}

}  // namespace
}  // namespace Outputs
