#include "jobs/input_files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "jobs/job_folder.h"
#include "support/thrown.h"

namespace {

using Testing::JobFolder;

Jobs::Job job_in(const std::string& folder) {
  Jobs::Job job;
  job.folder = folder;
  return job;
}

TEST(InputFiles, AreLookedForInTheFolderOfTheJob) {
  EXPECT_EQ(Jobs::opened_path(job_in(""), "a.site"), "a.site");
  EXPECT_EQ(Jobs::opened_path(job_in("."), "a.site"), "a.site");
  EXPECT_EQ(Jobs::opened_path(job_in("jobs"), "a.site"), "jobs/a.site");
  EXPECT_EQ(Jobs::opened_path(job_in("jobs"), "/tmp/a.site"), "/tmp/a.site");
  EXPECT_EQ(Jobs::searched_folder(job_in("."), "a.site"), "looked for in the current folder");
  EXPECT_EQ(Jobs::searched_folder(job_in("jobs"), "a.site"), "looked for in the folder jobs");
}

TEST(InputFiles, ThatAreTooLargeAreRefused) {
  const JobFolder folder;
  folder.write("large.csv", "");
  std::filesystem::resize_file(folder.file("large.csv"), (1 << 20) + 1);
  EXPECT_EQ(Jobs::read_file(folder.file("large.csv"), 2).size(), (1u << 20) + 1);
  EXPECT_EQ(Testing::thrown([&] { Jobs::read_file(folder.file("large.csv"), 1); }),
            "is larger than 1 MiB");
}

// The system makes such files up as they are read, and states no size.
TEST(InputFiles, ThatStateNoSizeAreReadUpToTheLimit) {
  EXPECT_NE(Jobs::read_file("/proc/self/status", 1), "");
  EXPECT_EQ(Testing::thrown([] { Jobs::read_file("/proc/self/status", 0); }),
            "is larger than 0 MiB");
}

TEST(InputFiles, PathsInMessagesLoseTheirQuotationMarks) {
  EXPECT_EQ(Jobs::unquoted_path("\"a.site\""), "a.site");
  EXPECT_EQ(Jobs::unquoted_path("\"a&\"b&&c\" at"), "a\"b&c");
  // A message that was cut.
  EXPECT_EQ(Jobs::unquoted_path("\"a.si"), "a.si");
  EXPECT_EQ(Jobs::unquoted_path("\"a&"), "a&");
}

// Through a link, "link/../a" is a file beside the folder that the link leads to.
TEST(InputFiles, TwoFilesWhosePathsLookAlikeDiffer) {
  const JobFolder folder;
  folder.write("a.csv", "1");
  folder.write("far/a.csv", "2");
  folder.write("far/near/b.csv", "3");
  std::filesystem::create_directory_symlink(folder.file("far/near"), folder.file("link"));
  const std::vector<Jobs::InputFile> inputs = {{folder.file("a.csv"), "", "1"}};
  EXPECT_EQ(Jobs::find_input(inputs, folder.file("./a.csv")), 0u);
  EXPECT_EQ(Jobs::find_input(inputs, folder.file("link/../a.csv")), std::nullopt);
}

TEST(InputFiles, RecordsWithoutASiteHaveTheirFolder) {
  std::vector<Jobs::InputFile> inputs = {{"data/a.csv", "", ""}, {"more/a.csv", "", ""}};
  Jobs::name_inputs(inputs, 0);
  EXPECT_EQ(inputs[0].name, "records/a.csv");
  EXPECT_EQ(inputs[1].name, "records/a-2.csv");
}

}  // namespace
