#include "outputs/folder_swap.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "outputs/folder_listing.h"
#include "outputs/hidden_folders.h"
#include "outputs/refused.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

using Files = std::map<std::string, std::string>;

TEST(FolderSwap, InTwoStepsReturnsTheOldFolder) {
  const Testing::TempDir dir;
  std::filesystem::create_directory(dir.file("new"));
  std::filesystem::create_directory(dir.file("place"));
  dir.write("new/a", "new");
  dir.write("place/a", "old");
  EXPECT_EQ(swap_in_two_steps(dir.file("new"), dir.file("place"), "place"), dir.file("new-old"));
  EXPECT_EQ(Testing::listing(dir.path()),
            (Files{{"new-old/", ""}, {"new-old/a", "old"}, {"place/", ""}, {"place/a", "new"}}));
}

TEST(FolderSwap, InTwoStepsPutsTheOldFolderBackAfterAFailure) {
  const Testing::TempDir dir;
  std::filesystem::create_directory(dir.file("place"));
  dir.write("place/a", "old");
  EXPECT_EQ(Testing::refused([&] { swap_in_two_steps(dir.file("none"), dir.file("place"), "p"); }),
            "p: No such file or directory");
  EXPECT_EQ(Testing::listing(dir.path()), (Files{{"place/", ""}, {"place/a", "old"}}));
}

TEST(FolderSwap, ThatFailedHalfWayLeavesTheOldResultsToTheUser) {
  const Testing::TempDir dir;
  const std::string old = hidden_name(dir.file("place"), 0) + old_ending;
  std::filesystem::create_directory(old);
  remove_left_over(dir.file("place"));
  EXPECT_TRUE(std::filesystem::exists(old));
  std::filesystem::create_directory(dir.file("place"));
  remove_left_over(dir.file("place"));
  EXPECT_FALSE(std::filesystem::exists(old));
}

TEST(FolderSwap, ReplacesAnEmptyFolder) {
  const Testing::TempDir dir;
  std::filesystem::create_directory(dir.file("new"));
  std::filesystem::create_directory(dir.file("place"));
  dir.write("new/a", "new");
  EXPECT_EQ(put_in_place(dir.file("new"), dir.file("place"), "place"), dir.file("new"));
  EXPECT_EQ(Testing::listing(dir.path()),
            (Files{{"new/", ""}, {"place/", ""}, {"place/a", "new"}}));
}

TEST(FolderSwap, FlushLeavesNoFileOpen) {
  const auto open_files = [] {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
  };
  const Testing::TempDir dir;
  dir.write("a", "1");
  dir.write("b", "2");
  const auto before = open_files();
  flush_folder(dir.path(), "x.out");
  EXPECT_EQ(open_files(), before);
}

TEST(FolderSwap, FlushReportsAFolderThatIsGone) {
  const Testing::TempDir dir;
  EXPECT_EQ(Testing::refused([&] { flush_folder(dir.file("none"), "x.out"); }),
            "x.out: No such file or directory");
}

}  // namespace
}  // namespace Outputs
