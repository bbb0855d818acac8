// What remains of runs that ended without a chance to clean up.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "outputs/folder_listing.h"
#include "outputs/output_folder.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

// A process that has begun to write results, and does nothing more.
class BegunRun {
 public:
  explicit BegunRun(const std::string& target) {
    int ends[2];
    if (pipe(ends) != 0) throw std::string("no pipe");
    child_ = fork();
    if (child_ == 0) {
      OutputFolder folder(target);
      folder.write("a.csv", "half");
      static_cast<void>(!::write(ends[1], "x", 1));
      for (;;) pause();
    }
    close(ends[1]);
    char begun = 0;
    EXPECT_EQ(read(ends[0], &begun, 1), 1);
    close(ends[0]);
  }
  ~BegunRun() { end(); }
  BegunRun(const BegunRun&) = delete;
  BegunRun& operator=(const BegunRun&) = delete;

  void end() {
    if (child_ == 0) return;
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
    child_ = 0;
  }

 private:
  pid_t child_;
};

TEST(KilledRun, IsClearedAwayByTheNextRunOfTheSameTarget) {
  const Testing::TempDir dir;
  BegunRun(dir.file("x.out")).end();
  EXPECT_EQ(Testing::listing(dir.path()).size(), 2u);
  OutputFolder(dir.file("x.out")).discard();
  EXPECT_EQ(Testing::listing(dir.path()).size(), 0u);
}

TEST(KilledRun, OfAnotherTargetIsLeftAlone) {
  const Testing::TempDir dir;
  BegunRun(dir.file("x.out")).end();
  OutputFolder(dir.file("x")).discard();
  OutputFolder(dir.file("ax.out")).discard();
  EXPECT_EQ(Testing::listing(dir.path()).size(), 2u);
}

TEST(KilledRun, IsToldFromALiveOne) {
  const Testing::TempDir dir;
  const BegunRun live(dir.file("x.out"));
  OutputFolder folder(dir.file("x.out"));
  folder.commit();
  // The finished folder, and the hidden one with its half of a file.
  EXPECT_EQ(Testing::listing(dir.path()).size(), 3u);
}

TEST(LiveRuns, OfOneProcessHaveFoldersOfTheirOwn) {
  const Testing::TempDir dir;
  OutputFolder first(dir.file("x.out"));
  first.write("a.csv", "1");
  OutputFolder second(dir.file("x.out"));
  second.write("b.csv", "2");
  first.discard();
  second.commit();
  EXPECT_EQ(dir.contents("x.out/b.csv"), "2");
  EXPECT_EQ(Testing::listing(dir.path()).size(), 2u);
}

}  // namespace
}  // namespace Outputs
