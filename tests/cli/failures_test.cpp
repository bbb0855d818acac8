// How failures are reported, and the calls of the system that fail before any work.
#include <gtest/gtest.h>
#include <pty.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "cli/child.h"
#include "cli/error_line.h"
#include "cli/failure_report.h"
#include "cli/fd_stream.h"
#include "cli/interrupt.h"
#include "cli/new_file.h"
#include "cli/options.h"
#include "outputs/refused.h"
#include "support/own_process.h"
#include "support/temp_dir.h"
#include "text_console.h"

namespace {

class Failures : public testing::Test, public Testing::TextConsole {};

TEST_F(Failures, OfALongJobAreNotAllShown) {
  Cli::Failure failure{2, "storm.toml: 130 errors", {}};
  failure.faults.assign(130, {"bad", {}, ""});
  const std::string text = shown(failure, false);
  EXPECT_NE(text.find("error: bad\nand 30 more errors\nstorm.toml: 130 errors\n"),
            std::string::npos);
}

TEST_F(Failures, OfTheLibraryBeginWithTheFile) {
  const auto failure = [](auto thrown) {
    try {
      throw thrown;
    } catch (...) {
      return Cli::failure_of_current("storm.toml");
    }
  };
  EXPECT_EQ(failure(std::string("no depth")).message, "storm.toml: no depth");
  EXPECT_EQ(failure(std::runtime_error("no depth")).message, "storm.toml: no depth");
  EXPECT_EQ(failure(Outputs::CannotWrite{"x: full"}).message, "cannot write x: full");
}

TEST_F(Failures, AreDocumentsWithJson) {
  console.json = true;
  Cli::error_line(console, "bad units", "");
  EXPECT_EQ(nlohmann::json::parse(out())["error"]["message"], "bad units");
  out_stream.str("");
  Cli::error_line(console, "bad units", "write m");
  EXPECT_EQ(nlohmann::json::parse(out())["error"]["message"], "bad units (write m)");
  EXPECT_EQ(err(), "");
}

TEST_F(Failures, AreNoNotes) {
  console.err_colour = true;
  Cli::note_line(console, "few waves");
  EXPECT_EQ(err(), "\033[1mnote\033[0m: few waves\n");
}

TEST_F(Failures, ToStartAProcessAreReported) {
  EXPECT_TRUE(Testing::good_alone([] {
    // The limit is not for root.
    if (geteuid() == 0 && setuid(65534) != 0) return false;
    const rlimit none{0, 0};
    setrlimit(RLIMIT_NPROC, &none);
    try {
      const Cli::Child child([](Cli::ChildReport&) { return 0; });
    } catch (const std::string& failure) {
      return failure == "no process: Resource temporarily unavailable";
    }
    return false;
  }));
}

TEST_F(Failures, ToReportToAProgramThatEndedAreIgnored) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  close(ends[0]);
  const auto before = signal(SIGPIPE, SIG_IGN);
  errno = 0;
  Cli::ChildReport(ends[1]).out("done");
  EXPECT_EQ(errno, EPIPE);
  signal(SIGPIPE, before);
  close(ends[1]);
}

TEST_F(Failures, ToMakeAPipeDoNotHideSignals) {
  EXPECT_TRUE(Testing::good_alone([] {
    const rlimit none{0, 0};
    setrlimit(RLIMIT_NOFILE, &none);
    const Cli::InterruptWatch watch;
    raise(SIGTERM);
    return watch.fd() == -1 && watch.signal() == SIGTERM;
  }));
}

TEST_F(Failures, ToFillANewFileLeaveNone) {
  const Testing::TempDir dir;
  const std::string path = dir.file("x.toml");
  // Written at the end, or at once if it is longer than the buffer.
  for (const std::size_t size : {100, 100'000}) {
    EXPECT_TRUE(Testing::good_alone([&] {
      signal(SIGXFSZ, SIG_IGN);
      const rlimit few{50, 50};
      setrlimit(RLIMIT_FSIZE, &few);
      return Testing::refused([&] { Cli::write_new_file(path, std::string(size, 'x'), false); }) ==
             path + ": File too large";
    }));
    EXPECT_FALSE(std::filesystem::exists(path));
  }
}

TEST_F(Failures, ToReplaceAFileLeaveItAsItIs) {
  const Testing::TempDir dir;
  const auto replaced = [&](const std::string& name) {
    return Testing::refused([&] { Cli::write_new_file(dir.file(name), "new", true); });
  };
  std::filesystem::create_directory(dir.file("folder"));
  EXPECT_EQ(replaced("folder"), dir.file("folder") + ": Is a directory");
  EXPECT_FALSE(std::filesystem::exists(dir.file("folder.part")));
  dir.write("file", "old");
  std::filesystem::create_directory(dir.file("file.part"));
  EXPECT_EQ(replaced("file"), dir.file("file") + ": Is a directory");
  EXPECT_EQ(dir.contents("file"), "old");
}

TEST(FdStream, WritesLongWordsInParts) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const std::string word(20'000, 'x');
  Cli::FdStream stream(ends[1]);
  stream << word << "\033[1m";
  EXPECT_EQ(stream.close(), 0);
  close(ends[1]);
  std::string read_back(30'000, '\0');
  std::size_t size = 0;
  for (ssize_t count = 1; count > 0;) {
    count = read(ends[0], read_back.data() + size, read_back.size() - size);
    if (count > 0) size += static_cast<std::size_t>(count);
  }
  close(ends[0]);
  EXPECT_EQ(read_back.substr(0, size), word + "\033[1m");
}

TEST(Console, KnowsTerminalsWithoutAKindOrAWidth) {
  int main = -1;
  int terminal = -1;
  winsize size{};
  ASSERT_EQ(openpty(&main, &terminal, nullptr, nullptr, &size), 0);
  EXPECT_TRUE(Testing::good_alone([terminal] {
    unsetenv("TERM");
    return Cli::is_live(terminal);
  }));
  EXPECT_EQ(Cli::columns_of(terminal, 77), 77U);
  close(terminal);
  close(main);
}

TEST(WorkerCount, IsThatOfTheProcessorsForNone) {
  EXPECT_EQ(Cli::worker_count("0", nullptr), Cli::worker_count("auto", nullptr));
  EXPECT_EQ(Cli::worker_count("3", nullptr), 3U);
}

}  // namespace
