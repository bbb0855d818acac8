#include "outputs/output_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <string>

#include "outputs/refused.h"
#include "support/own_process.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

const std::string long_text(1 << 20, 'x');

TEST(OutputFile, HoldsShortAndLongPiecesInOrder) {
  const Testing::TempDir dir;
  OutputFile file(dir.file("a"), "a");
  std::string expected;
  for (const std::size_t size : {3, 1 << 18, 1, (1 << 18) - 1, 2, 1 << 19, 5}) {
    const std::string piece(size, static_cast<char>('a' + size % 7));
    file.write(piece);
    expected += piece;
    char* at = file.room(2);
    std::copy_n("-\n", 2, at);
    file.wrote(at + 2);
    expected += "-\n";
  }
  file.close();
  EXPECT_TRUE(dir.contents("a") == expected);
}

TEST(OutputFile, ReportsAFullDisk) {
  const std::string message = "storm.out/drive_1.csv: No space left on device";
  const auto write = [](const std::string& text) {
    OutputFile file("/dev/full", "storm.out/drive_1.csv");
    file.write(text);
    file.close();
  };
  EXPECT_EQ(Testing::refused([&] { write(long_text); }), message);
  EXPECT_EQ(Testing::refused([&] { write("short"); }), message);
  EXPECT_EQ(Testing::refused([&] { write(""); }), "(written)");
}

TEST(OutputFile, ReportsALimitOfTheSizeOfFiles) {
  const Testing::TempDir dir;
  const bool good = Testing::good_alone([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{300000, 300000};
    setrlimit(RLIMIT_FSIZE, &limit);
    return Testing::refused([&] {
             OutputFile file(dir.file("a"), "a");
             file.write(long_text);
             file.close();
           }) == "a: File too large";
  });
  EXPECT_TRUE(good);
}

TEST(OutputFile, ReportsAClosedPipe) {
  const Testing::TempDir dir;
  ASSERT_EQ(mkfifo(dir.file("pipe").c_str(), 0600), 0);
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  const int reader = open(dir.file("pipe").c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_NE(reader, -1);
  OutputFile file(dir.file("pipe"), "pipe");
  close(reader);
  file.write("short");
  EXPECT_EQ(Testing::refused([&] { file.close(); }), "pipe: Broken pipe");
  std::signal(SIGPIPE, before);
}

TEST(OutputFile, ReportsAFolderThatIsNotThere) {
  const Testing::TempDir dir;
  EXPECT_EQ(Testing::refused([&] { OutputFile file(dir.file("none/a"), "none/a"); }),
            "none/a: No such file or directory");
}

}  // namespace
}  // namespace Outputs
