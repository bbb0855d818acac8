#include "outputs/hidden_folders.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "support/temp_dir.h"

namespace fs = std::filesystem;

namespace Outputs {
namespace {

TEST(HiddenFolders, AreNoLinksAndNoFilesOfTheUser) {
  const Testing::TempDir dir;
  const std::string name = hidden_name(dir.file("x.out"), 0);
  fs::create_directory(dir.file("notes"));
  fs::create_directory_symlink("notes", name);
  EXPECT_EQ(lock_hidden(name), -1);
  remove_left_over(dir.file("x.out"));
  EXPECT_TRUE(fs::is_symlink(name));
  EXPECT_TRUE(fs::exists(dir.file("notes")));
}

// A run that waits for the lock of a folder while another one removes it, or removes it and makes
// one of the same name. A signal arrives meanwhile.
TEST(HiddenFolders, ThatAreGoneWhenTheyAreLockedAreNotUsed) {
  struct sigaction quiet {};
  struct sigaction before {};
  quiet.sa_handler = [](int) {};
  sigaction(SIGUSR1, &quiet, &before);
  const auto pause = [] { std::this_thread::sleep_for(std::chrono::milliseconds(100)); };
  for (const bool again : {false, true}) {
    const Testing::TempDir dir;
    const std::string name = dir.file("hidden");
    fs::create_directory(name);
    const int other = open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    int got = 0;
    std::thread waiting([&] { got = lock_hidden(name); });
    pause();
    pthread_kill(waiting.native_handle(), SIGUSR1);
    pause();
    fs::rename(name, dir.file("removed"));
    if (again) fs::create_directory(name);
    close(other);
    waiting.join();
    EXPECT_EQ(got, -1);
  }
  sigaction(SIGUSR1, &before, nullptr);
}

}  // namespace
}  // namespace Outputs
