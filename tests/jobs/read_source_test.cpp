#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "jobs/diagnostic.h"
#include "jobs/read_toml.h"

namespace {

using Jobs::Diagnostic;

// A folder of its own for each test.
class ReadSource : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = testing::TempDir() + "read_source_XXXXXX";
    ASSERT_NE(::mkdtemp(name.data()), nullptr);
    folder_ = name;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string path(const std::string& name) const { return folder_ + "/" + name; }

  std::string file(const std::string& text) const {
    std::ofstream(path("job.toml"), std::ios::binary) << text;
    return path("job.toml");
  }

  static Diagnostic fault_of(const std::string& path) {
    try {
      Jobs::read_source(path);
    } catch (const Jobs::BadJob& bad) {
      EXPECT_EQ(bad.faults.size(), 1U);
      return bad.faults.at(0);
    }
    return {"no fault", {}, ""};
  }

 private:
  std::string folder_;
};

TEST_F(ReadSource, TheTextIsThatOfTheFile) {
  const std::string text =
      "\xEF\xBB\xBF"
      "a = \"\xC3\xA9\"\r\n\n";
  const std::string name = file(text);
  EXPECT_EQ(Jobs::read_source(name)->text, text);
  EXPECT_EQ(Jobs::read_source(name)->name, name);
  EXPECT_EQ(Jobs::read_source(file(""))->text, "");
}

TEST_F(ReadSource, AMissingFileIsNamed) {
  EXPECT_EQ(fault_of(path("no.toml")).fault, path("no.toml") + ": No such file or directory");
  EXPECT_EQ(fault_of(path("no.toml")).span.source, nullptr);
}

TEST_F(ReadSource, AFileThatCannotBeReadIsRefused) {
  // It opens as a regular file, but nothing is mapped at address 0.
  EXPECT_EQ(fault_of("/proc/self/mem").fault, "/proc/self/mem: Input/output error");
}

TEST_F(ReadSource, OnlyRegularFilesAreRead) {
  EXPECT_EQ(fault_of(path("")).fault, path("") + ": Is a directory");
  EXPECT_EQ(fault_of("/dev/null").fault, "/dev/null: not a regular file");
  EXPECT_EQ(fault_of("/dev/zero").fault, "/dev/zero: not a regular file");
  ASSERT_EQ(::mkfifo(path("fifo").c_str(), 0600), 0);
  EXPECT_EQ(fault_of(path("fifo")).fault, path("fifo") + ": not a regular file");
}

TEST_F(ReadSource, AnEmptyPathIsNamedAsSuch) {
  EXPECT_EQ(fault_of("").fault, "the path of the job is empty");
}

TEST_F(ReadSource, FilesAbove16MiBAreRefused) {
  EXPECT_EQ(Jobs::read_source(file(std::string(16 << 20, '\n')))->text.size(), 16U << 20);
  const std::string name = file(std::string((16 << 20) + 1, '\n'));
  EXPECT_EQ(fault_of(name).fault, name + ": larger than 16 MiB");
}

TEST_F(ReadSource, BinaryFilesAreRefused) {
  std::string name = file(std::string("a = 1\n\0b", 8));
  EXPECT_EQ(fault_of(name).fault, name + ": not a text file");
  name =
      file(std::string("\xFF\xFE"
                       "a\0=\0",
                       6));
  EXPECT_EQ(fault_of(name).fault, name + ": written as UTF-16; save it as UTF-8");
  file("\xFE\xFF" + std::string("\0a\0=", 4));
  EXPECT_EQ(fault_of(name).fault, name + ": written as UTF-16; save it as UTF-8");
}

TEST_F(ReadSource, TextInAnotherEncodingIsShown) {
  const Diagnostic fault =
      fault_of(file("a = 1\nb = 2 # f\xFC"
                    "nf\n"));
  EXPECT_EQ(fault.fault, "the text is not UTF-8");
  EXPECT_EQ(fault.span.line, 2U);
  EXPECT_EQ(fault.span.column, 10U);
  EXPECT_EQ(fault.label, "save the file as UTF-8");
}

// What read_source gives for a standard input that is a pipe with that many bytes.
std::string from_pipe(std::size_t bytes) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const int before = ::dup(STDIN_FILENO);
  ::dup2(ends[0], STDIN_FILENO);
  ::close(ends[0]);
  std::thread writer([&] {
    const std::string block(1 << 16, '#');
    for (std::size_t written = 0; written < bytes;) {
      const std::size_t size = std::min(block.size(), bytes - written);
      if (::write(ends[1], block.data(), size) != static_cast<ssize_t>(size)) break;
      written += size;
    }
    ::close(ends[1]);
  });
  std::string result;
  try {
    const auto source = Jobs::read_source("-");
    result = source->name + ": " + std::to_string(source->text.size());
  } catch (const Jobs::BadJob& bad) {
    result = bad.faults[0].fault;
  }
  // The writer may still wait for somebody to read.
  std::string rest(1 << 16, ' ');
  while (::read(STDIN_FILENO, rest.data(), rest.size()) > 0) continue;
  writer.join();
  ::dup2(before, STDIN_FILENO);
  ::close(before);
  return result;
}

TEST_F(ReadSource, StandardInputMayBeAPipeOfAtMost16MiB) {
  EXPECT_EQ(from_pipe(3), "standard input: 3");
  EXPECT_EQ(from_pipe(16 << 20), "standard input: 16777216");
  EXPECT_EQ(from_pipe((16 << 20) + 1), "-: larger than 16 MiB");
}

}  // namespace
