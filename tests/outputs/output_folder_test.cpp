#include "outputs/output_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "outputs/folder_listing.h"
#include "outputs/refused.h"
#include "support/own_process.h"
#include "support/temp_dir.h"

namespace fs = std::filesystem;

namespace Outputs {
namespace {

using Files = std::map<std::string, std::string>;

// Results as a run leaves them: the summary lists the files.
void leave_results(const std::string& target, const std::string& contents) {
  OutputFolder folder(target);
  folder.write("a.csv", contents);
  folder.write("inputs/b.site", "site");
  folder.write("summary.json",
               R"({"kelpbox": "1", "files": [{"name": "a.csv"}, {"name": "inputs/b.site"}]})");
  folder.commit();
}

TEST(OutputFolder, ShowsNothingBeforeCommitAndEverythingAfter) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  folder.write("a.csv", "1");
  folder.write("inputs/deep/b.site", "2");
  EXPECT_FALSE(fs::exists(dir.file("x.out")));
  folder.commit();
  EXPECT_EQ(Testing::listing(dir.path()), (Files{{"x.out/", ""},
                                                 {"x.out/a.csv", "1"},
                                                 {"x.out/inputs/", ""},
                                                 {"x.out/inputs/deep/", ""},
                                                 {"x.out/inputs/deep/b.site", "2"}}));
}

TEST(OutputFolder, LeavesNothingWithoutCommit) {
  const Testing::TempDir dir;
  { OutputFolder(dir.file("made/for/x.out")).write("inputs/a.csv", "1"); }
  EXPECT_EQ(Testing::listing(dir.path()), Files{});
}

TEST(OutputFolder, LeavesTheOldResultsWithoutCommit) {
  const Testing::TempDir dir;
  leave_results(dir.file("x.out"), "old");
  const Files before = Testing::listing(dir.path());
  {
    OutputFolder folder(dir.file("x.out"));
    folder.write("a.csv", "new");
    folder.discard();
  }
  EXPECT_EQ(Testing::listing(dir.path()), before);
}

TEST(OutputFolder, ReplacesEarlierResultsAsAWhole) {
  const Testing::TempDir dir;
  leave_results(dir.file("x.out"), "old");
  OutputFolder folder(dir.file("x.out/"));
  folder.write("c.csv", "new");
  folder.commit();
  EXPECT_EQ(Testing::listing(dir.path()), (Files{{"x.out/", ""}, {"x.out/c.csv", "new"}}));
}

TEST(OutputFolder, KeepsTheRightsOfAFolderThatItReplaces) {
  const Testing::TempDir dir;
  fs::create_directory(dir.file("x.out"));
  fs::permissions(dir.file("x.out"), fs::perms(02750));
  OutputFolder folder(dir.file("x.out"));
  folder.commit();
  EXPECT_EQ(fs::status(dir.file("x.out")).permissions(), fs::perms(02750));
}

TEST(OutputFolder, NeverReplacesFilesThatNoRunWrote) {
  const Testing::TempDir dir;
  leave_results(dir.file("x.out"), "old");
  dir.write("x.out/notes.txt", "mine");
  const Files before = Testing::listing(dir.path());
  EXPECT_EQ(
      Testing::refused([&] { OutputFolder folder(dir.file("x.out")); }),
      dir.file("x.out") + ": is not replaced, because notes.txt in it is not from an earlier run");
  EXPECT_EQ(Testing::listing(dir.path()), before);
}

TEST(OutputFolder, NeverReplacesFilesThatAppearDuringTheRun) {
  const Testing::TempDir dir;
  leave_results(dir.file("x.out"), "old");
  {
    OutputFolder folder(dir.file("x.out"));
    folder.write("a.csv", "new");
    dir.write("x.out/notes.txt", "mine");
    EXPECT_EQ(Testing::refused([&] { folder.commit(); }),
              dir.file("x.out") +
                  ": is not replaced, because notes.txt in it is not from an earlier run");
  }
  EXPECT_EQ(dir.contents("x.out/a.csv"), "old");
  EXPECT_EQ(dir.contents("x.out/notes.txt"), "mine");
  EXPECT_EQ(Testing::listing(dir.path()).size(), 6u);
}

TEST(OutputFolder, RefusesATargetThatIsAFile) {
  const Testing::TempDir dir;
  const std::string file = dir.write("x.out", "mine");
  EXPECT_EQ(Testing::refused([&] { OutputFolder folder(file); }),
            file + ": is a file, not a folder");
  EXPECT_EQ(Testing::listing(dir.path()), (Files{{"x.out", "mine"}}));
}

TEST(OutputFolder, RefusesATargetBelowAFile) {
  const Testing::TempDir dir;
  const std::string target = dir.write("file", "mine") + "/x.out";
  EXPECT_EQ(Testing::refused([&] { OutputFolder folder(target); }), target + ": Not a directory");
}

TEST(OutputFolder, RefusesAnEmptyName) {
  EXPECT_EQ(Testing::refused([] { OutputFolder folder(""); }),
            "the name of the output folder is empty");
}

TEST(OutputFolder, RefusesTheCurrentFolderAndThoseAboveIt) {
  const Testing::TempDir dir;
  const fs::path before = fs::current_path();
  fs::create_directories(dir.file("a/b"));
  fs::current_path(dir.file("a/b"));
  for (const char* target : {".", "..", "../../a/b"}) {
    EXPECT_EQ(Testing::refused([&] { OutputFolder folder(target); }),
              std::string(target) + ": is the current folder or contains it");
  }
  EXPECT_EQ(Testing::refused([&] { OutputFolder folder("c"); }), "(written)");
  EXPECT_EQ(Testing::refused([&] { OutputFolder folder("../b2"); }), "(written)");
  fs::current_path(before);
}

TEST(OutputFolder, CannotBeInAFolderThatIsGone) {
  const Testing::TempDir dir;
  fs::create_directory(dir.file("gone"));
  EXPECT_TRUE(Testing::good_alone([&] {
    fs::current_path(dir.file("gone"));
    fs::remove(dir.file("gone"));
    return Testing::refused([] { OutputFolder folder("x.out"); }) ==
           "x.out: No such file or directory";
  }));
}

TEST(OutputFolder, CannotBeInAFolderThatMayNotBeEntered) {
  const Testing::TempDir dir;
  fs::create_directory(dir.file("closed"));
  const std::string target = dir.file("closed/x.out");
  fs::permissions(dir.path(), fs::perms(0755));
  fs::permissions(dir.file("closed"), fs::perms::none);
  EXPECT_TRUE(Testing::good_alone([&] {
    Testing::give_up_privileges();
    return Testing::refused([&] { OutputFolder folder(target); }) == target + ": Permission denied";
  }));
  fs::permissions(dir.file("closed"), fs::perms(0755));
}

TEST(OutputFolder, CannotBeALinkThatLeadsToItself) {
  const Testing::TempDir dir;
  fs::create_symlink("x.out", dir.file("x.out"));
  EXPECT_EQ(Testing::refused([&] { OutputFolder folder(dir.file("x.out")); }),
            dir.file("x.out") + ": Too many levels of symbolic links");
}

TEST(OutputFolder, FollowsASymbolicLinkAndKeepsIt) {
  const Testing::TempDir dir;
  fs::create_directory(dir.file("disk"));
  fs::create_directory(dir.file("disk/real"));
  fs::create_directory_symlink("disk/real", dir.file("x.out"));
  OutputFolder folder(dir.file("x.out"));
  folder.write("a.csv", "1");
  folder.commit();
  EXPECT_TRUE(fs::is_symlink(dir.file("x.out")));
  EXPECT_EQ(Testing::listing(dir.file("disk")), (Files{{"real/", ""}, {"real/a.csv", "1"}}));
}

TEST(OutputFolder, RefusesALinkThatLeadsNowhere) {
  const Testing::TempDir dir;
  fs::create_symlink("gone", dir.file("x.out"));
  EXPECT_EQ(Testing::refused([&] { OutputFolder folder(dir.file("x.out")); }),
            dir.file("x.out") + ": is a symbolic link that leads nowhere");
}

TEST(OutputFolder, RefusesNamesThatLeadOutOfIt) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  for (const std::string name : {"../a", "/a", "a/../../b", "", "a//b", "a/", "./a", "."}) {
    EXPECT_EQ(Testing::refused([&] { folder.path_of(name); }),
              dir.file("x.out/") + name + ": is not a name within the folder");
  }
}

TEST(OutputFolder, MakesTheHiddenNameOfALongTargetFit) {
  const Testing::TempDir dir;
  const std::string target = dir.file(std::string(255, 'x'));
  OutputFolder folder(target);
  folder.write("a.csv", "1");
  folder.commit();
  EXPECT_TRUE(fs::exists(target + "/a.csv"));
}

TEST(OutputFolder, RecordsSizeAndChecksum) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  folder.write("a.txt", "abc");
  const FileRecord record = folder.record("a.txt");
  EXPECT_EQ(record.bytes, 3u);
  // FIPS 180-2, appendix B.1.
  EXPECT_EQ(record.sha256, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(Testing::refused([&] { folder.record("b.txt"); }),
            dir.file("x.out/b.txt") + ": No such file or directory");
}

TEST(OutputFolder, ReadsAFileOnceForItsRecord) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  folder.write("a.txt", "abc");
  const std::string first = folder.record("a.txt").sha256;
  fs::remove(folder.path_of("a.txt"));
  EXPECT_EQ(folder.record("a.txt").sha256, first);
}

TEST(OutputFolder, NamesAFileThatWasRemoved) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  folder.write("a.txt", "1");
  folder.write("b.txt", "2");
  EXPECT_EQ(Testing::refused([&] { folder.require_files(); }), "(written)");
  fs::remove(folder.path_of("b.txt"));
  EXPECT_EQ(Testing::refused([&] { folder.require_files(); }),
            dir.file("x.out/b.txt") + ": No such file or directory");
}

TEST(OutputFolder, HasItsFilesInTheTargetAfterCommit) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  folder.write("a.txt", "abc");
  EXPECT_NE(folder.path_of("a.txt"), dir.file("x.out/a.txt"));
  folder.commit();
  EXPECT_EQ(folder.path_of("a.txt"), dir.file("x.out/a.txt"));
}

TEST(OutputFolder, ListsItsNamesInOrder) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  folder.write("b", "");
  folder.path_of("a");
  folder.write("b", "");
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"a", "b"}));
}

}  // namespace
}  // namespace Outputs
