#include "outputs/job_copy.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace Outputs {
namespace {

class JobCopy : public testing::Test {
 protected:
  JobCopy() {
    std::filesystem::create_directories(dir.file("lab/data"));
    std::filesystem::create_directory(dir.file("else"));
    for (const char* name : {"lab/basin.site", "lab/data/x.csv", "else/x.csv"}) dir.write(name, "");
  }

  // The copy of a job in the folder "lab" that has read these files.
  std::string copy(const std::string& text, const std::vector<std::string>& options = {}) {
    Jobs::Run run;
    run.job.source = std::make_shared<const Jobs::SourceText>(Jobs::SourceText{"storm.toml", text});
    run.job.options = options;
    run.job.folder = dir.file("lab");
    run.job.title = "storm";
    run.inputs = {{dir.file("lab/basin.site"), "basin.site", ""},
                  {dir.file("lab/data/x.csv"), "records/x.csv", ""},
                  {other, "records/x-2.csv", ""}};
    return job_copy(run);
  }

  const Testing::TempDir dir;
  const std::string other = dir.file("else/x.csv");
};

TEST_F(JobCopy, KeepsEverythingButPaths) {
  EXPECT_EQ(
      copy("# A storm\r\ntitle='Storm'#1\r\n\r\n  site  = 'basin.site' # here\r\nx=[1,\n2]"),
      "# A storm\r\ntitle='Storm'#1\r\n\r\n  site  = \"inputs/basin.site\" # here\r\nx=[1,\n2]");
}

TEST_F(JobCopy, NamesAJobWithoutTitle) {
  EXPECT_EQ(copy("# A storm\nsite = \"basin.site\"\n"),
            "# A storm\ntitle = \"storm\"\nsite = \"inputs/basin.site\"\n");
  EXPECT_EQ(copy("[run]\nrepeat = 1\n"), "title = \"storm\"\n[run]\nrepeat = 1\n");
  EXPECT_EQ(copy(""), "title = \"storm\"\n");
}

TEST_F(JobCopy, FindsFilesUnderAnyPath) {
  EXPECT_EQ(copy("title=''\n[[sea]]\n[[sea.wave]]\nfile='../lab/./data/x.csv'\n"
                 "[[sea.wave]]\nfile=\"" +
                 other +
                 "\"\n[[sea.wave]]\nfile=\"\"\"data/x.csv\"\"\"\n"
                 "[[sea.wave]]\nfile = 'none.csv'\n"),
            "title=''\n[[sea]]\n[[sea.wave]]\nfile=\"inputs/records/x.csv\"\n"
            "[[sea.wave]]\nfile=\"inputs/records/x-2.csv\"\n"
            "[[sea.wave]]\nfile=\"inputs/records/x.csv\"\n[[sea.wave]]\nfile = 'none.csv'\n");
  EXPECT_EQ(copy("title=''\nsea=[{wave=[{file='data/x.csv',a=1},{file=\"" + other + "\"}]}]\n"),
            "title=''\nsea=[{wave=[{file=\"inputs/records/x.csv\",a=1},"
            "{file=\"inputs/records/x-2.csv\"}]}]\n");
}

TEST_F(JobCopy, AppendsTheOptions) {
  EXPECT_EQ(
      copy("title=''\nsite='basin.site'\n", {"sea.hs=60 mm", "sea.wave.1.file=data/x.csv",
                                             "sea.\"a.b\".wave.file = '" + other + "'"}),
      "title=''\nsite=\"inputs/basin.site\"\n"
      "\n[[set]]\nkey = \"sea.hs\"\nvalue = \"60 mm\"\n"
      "\n[[set]]\nkey = \"sea.wave.1.file\"\nvalue = \"inputs/records/x.csv\"\n"
      "\n[[set]]\nkey = \"sea.\\\"a.b\\\".wave.file \"\nvalue = \"inputs/records/x-2.csv\"\n");
}

TEST_F(JobCopy, FindsFilesWithinTheTomlOfAnOption) {
  EXPECT_EQ(copy("title=''\n", {"sea.wave=[{kind='record', file='data/x.csv'}]"}),
            "title=''\n\n[[set]]\nkey = \"sea.wave\"\n"
            "value = \"[{kind='record', file=\\\"inputs/records/x.csv\\\"}]\"\n");
}

TEST_F(JobCopy, LeavesOptionsThatAreNoPathsAsTheyAre) {
  const std::string text =
      "title=''\n[[set]]\nkey='sea.name'\nvalue='basin.site'\n"
      "[[set]]\nkey='a.hs'\nvalue='''80 mm'''\n[[set]]\nkey='n'\nvalue=3\n";
  EXPECT_EQ(copy(text), text);
}

TEST_F(JobCopy, LeavesWhatIsNoPathInThePlaceOfOne) {
  for (const std::string text :
       {"title=''\nsite=3\n", "title=''\n[[sea]]\n[[sea.wave]]\nfile=3\n",
        "title=''\n[[set]]\nkey='site'\n", "title=''\n[[set]]\nvalue='basin.site'\n",
        "title=''\n[[set]]\nkey='a..site'\nvalue='basin.site'\n",
        "title=''\n[[set]]\nkey='site'\nvalue='3'\n"}) {
    EXPECT_EQ(copy(text), text);
  }
}

TEST_F(JobCopy, DropsAByteOrderMark) {
  EXPECT_EQ(copy("\xEF\xBB\xBFsite='basin.site'\ntitle='x'"),
            "site=\"inputs/basin.site\"\ntitle='x'");
}

TEST_F(JobCopy, OfACopyIsTheSame) {
  const std::string first =
      copy("# A\n\nsite='basin.site'\n[[sea]]\n[[sea.wave]]\nfile='data/x.csv'", {"sea.a=1"});
  Jobs::Run run;
  run.job.source = std::make_shared<const Jobs::SourceText>(Jobs::SourceText{"job.toml", first});
  run.job.folder = "/results";
  run.job.title = "storm";
  run.inputs = {{"/results/inputs/basin.site", "basin.site", ""},
                {"/results/inputs/records/x.csv", "records/x.csv", ""}};
  EXPECT_EQ(job_copy(run), first);
}

}  // namespace
}  // namespace Outputs
