#include "outputs/earlier_results.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "outputs/refused.h"
#include "support/own_process.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

std::string because(const std::string& name) {
  return "x: is not replaced, because " + name + " in it is not from an earlier run";
}

class EarlierResults : public testing::Test {
 protected:
  std::string check() {
    return Testing::refused([&] { require_replaceable(dir.path(), "x"); });
  }
  void summary(const std::string& files) {
    dir.write("summary.json", R"({"kelpbox": "1", "files": )" + files + "}");
  }

  Testing::TempDir dir;
};

TEST_F(EarlierResults, AreNotNeededInAnEmptyFolder) { EXPECT_EQ(check(), "(written)"); }

TEST_F(EarlierResults, AreKnownByTheSummary) {
  dir.write("a.csv", "1");
  summary(R"([{"name": "a.csv"}, {"name": "gone.csv"}])");
  EXPECT_EQ(check(), "(written)");
}

TEST_F(EarlierResults, AreNotKnownWithoutASummary) {
  dir.write("a.csv", "1");
  EXPECT_EQ(check(), because("a.csv"));
}

TEST_F(EarlierResults, AreNotKnownByTheSummaryOfAnotherProgram) {
  dir.write("summary.json", R"({"files": []})");
  EXPECT_EQ(check(), because("summary.json"));
}

TEST_F(EarlierResults, AreNotKnownByABrokenSummary) {
  for (const char* text :
       {"", "{", "[]", "\xff", R"({"kelpbox": "1"})", R"({"kelpbox": 1, "files": 3})"}) {
    dir.write("summary.json", text);
    EXPECT_EQ(check(), because("summary.json")) << text;
  }
}

TEST_F(EarlierResults, DoNotCoverFilesOfTheSameNameInOtherFolders) {
  summary(R"([{"name": "inputs/a.site"}, {"name": 3}, {}, 4])");
  std::filesystem::create_directories(dir.file("inputs/deep"));
  dir.write("inputs/a.site", "1");
  EXPECT_EQ(check(), because("inputs/deep"));
  std::filesystem::remove(dir.file("inputs/deep"));
  EXPECT_EQ(check(), "(written)");
  dir.write("a.site", "1");
  EXPECT_EQ(check(), because("a.site"));
}

TEST_F(EarlierResults, DoNotCoverAFolderInPlaceOfAFile) {
  summary(R"([{"name": "a.csv"}])");
  std::filesystem::create_directory(dir.file("a.csv"));
  EXPECT_EQ(check(), because("a.csv"));
}

TEST_F(EarlierResults, AreNotAFile) {
  const std::string file = dir.write("a.csv", "1");
  EXPECT_EQ(Testing::refused([&] { require_replaceable(file, "x"); }),
            "x: is a file, not a folder");
}

TEST_F(EarlierResults, AreNotNeededWhereNothingIs) {
  EXPECT_EQ(Testing::refused([&] { require_replaceable(dir.file("none"), "x"); }), "(written)");
}

TEST_F(EarlierResults, AreReportedIfTheFolderCannotBeListed) {
  std::filesystem::permissions(dir.path(), std::filesystem::perms(0111));
  EXPECT_TRUE(Testing::good_alone([&] {
    Testing::give_up_privileges();
    return check() == "x: Permission denied";
  }));
  std::filesystem::permissions(dir.path(), std::filesystem::perms(0755));
}

TEST_F(EarlierResults, AreNotLookedForBehindLinks) {
  const Testing::TempDir elsewhere;
  elsewhere.write("summary.json", R"({"kelpbox": "1", "files": []})");
  std::filesystem::create_symlink(elsewhere.file("summary.json"), dir.file("summary.json"));
  EXPECT_EQ(check(), because("summary.json"));
}

}  // namespace
}  // namespace Outputs
