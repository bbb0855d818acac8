// The name of a job and of its site.
#include <gtest/gtest.h>

#include "jobs/job_folder.h"

namespace Jobs {
namespace {

// Results go to folders with that name, which must not be the one above.
TEST(JobNames, AreNoFolderAbove) {
  EXPECT_EQ(job_stem("...toml"), "job");
  EXPECT_EQ(job_stem("..toml"), "job");
  EXPECT_EQ(job_stem("a/"), "job");
  EXPECT_EQ(job_stem(".."), "job");
  EXPECT_EQ(job_stem("a/storm.toml"), "storm");
}

TEST(JobNames, ASiteIsOnOneLine) {
  const Testing::JobFolder folder;
  const std::string rest =
      "\n[run]\nrepeat = \"64 s\"\n"
      "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"1 mm\"\n";
  const std::string site = Testing::example("flume.site");
  for (const std::string quotes : {"\"\"\"", "'''"}) {
    const std::string several = "site = " + quotes + "\n" + site + quotes + rest;
    EXPECT_EQ(folder.refusal(several), "1: `site` must be a text on one line\n");
    EXPECT_EQ(folder.refusal("site = " + quotes + site + quotes + rest), "");
  }
}

}  // namespace
}  // namespace Jobs
