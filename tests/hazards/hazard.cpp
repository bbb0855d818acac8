#include "hazard.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <utility>

#include "facade/failure_message.h"
#include "support/own_process.h"

namespace Testing {
namespace {

constexpr double mebibyte = 1024.0 * 1024.0;

void discard_output() {
  const int nowhere = open("/dev/null", O_WRONLY);
  dup2(nowhere, STDOUT_FILENO);
  dup2(nowhere, STDERR_FILENO);
}

std::string message_of(const std::function<std::string()>& work) {
  try {
    return work();
  } catch (...) {
    return Kelpbox::message_of_current();
  }
}

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}
double seconds(const rusage& usage) { return seconds(usage.ru_utime) + seconds(usage.ru_stime); }

void write_all(int descriptor, const void* data, std::size_t size) {
  const char* at = static_cast<const char*>(data);
  while (size > 0) {
    const ssize_t written = write(descriptor, at, size);
    if (written <= 0) _exit(1);
    at += written;
    size -= static_cast<std::size_t>(written);
  }
}

[[noreturn]] void work_alone(const std::function<std::string()>& work, int descriptor) {
  discard_output();
  alarm(static_cast<unsigned>(60.0 * most_seconds()));
  const double before = held_memory().memory;
  const std::string message = message_of(work);
  // The command starts processes of its own.
  rusage own{};
  rusage children{};
  getrusage(RUSAGE_SELF, &own);
  getrusage(RUSAGE_CHILDREN, &children);
  const double peak = std::max(peak_memory(), 1024.0 * static_cast<double>(children.ru_maxrss));
  const double figures[] = {seconds(own) + seconds(children), (peak - before) / mebibyte};
  write_all(descriptor, figures, sizeof figures);
  write_all(descriptor, message.data(), message.size());
  _exit(0);
}

std::string read_all(int descriptor) {
  std::string text;
  std::array<char, 4096> block{};
  for (ssize_t count = 0; (count = read(descriptor, block.data(), block.size())) > 0;) {
    text.append(block.data(), static_cast<std::size_t>(count));
  }
  return text;
}

bool is_number_character(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-' || c == 'e';
}

// For a message about a long text.
std::string shortened(const std::string& text) {
  constexpr std::size_t most = 600;
  return text.size() <= most ? text
                             : text.substr(0, most) + "... of " + std::to_string(text.size());
}

}  // namespace

std::function<std::string()> in_folder(std::function<std::string(const TempDir&)> work) {
  return [work = std::move(work)] {
    const TempDir folder;
    std::string message = message_of([&] { return work(folder); });
    for (std::size_t at = 0; (at = message.find(folder.path(), at)) != message.npos;) {
      message.replace(at, folder.path().size(), "<folder>");
    }
    return message;
  };
}

double most_seconds() { return sanitized ? 40.0 : 2.0; }

Ending ending_of(const std::function<std::string()>& work) {
  int ends[2] = {};
  if (pipe2(ends, O_CLOEXEC) != 0) return {"no pipe", 0.0, 0.0};
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    work_alone(work, ends[1]);
  }
  close(ends[1]);
  const std::string report = read_all(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  Ending ending;
  double figures[2] = {};
  if (WIFSIGNALED(status)) return {"ended by " + std::string(strsignal(WTERMSIG(status))), 0, 0};
  if (report.size() < sizeof figures) return {"ended without a report", 0, 0};
  std::memcpy(figures, report.data(), sizeof figures);
  return {report.substr(sizeof figures), figures[0], figures[1]};
}

bool matches(const std::string& message, const std::string& expected) {
  std::size_t at = 0;
  std::size_t begin = 0;
  const std::string mark = "<n>";
  while (true) {
    const std::size_t end = expected.find(mark, begin);
    const std::string part = expected.substr(begin, end == expected.npos ? end : end - begin);
    if (message.compare(at, part.size(), part) != 0) return false;
    at += part.size();
    if (end == expected.npos) return at == message.size();
    const std::size_t number = at;
    while (at < message.size() && is_number_character(message[at])) ++at;
    if (at == number) return false;
    begin = end + mark.size();
  }
}

void expect_harmless(const Ending& ending, const std::string& expected) {
  testing::Test::RecordProperty("seconds", std::to_string(ending.seconds));
  testing::Test::RecordProperty("mebibytes", std::to_string(ending.mebibytes));
  EXPECT_TRUE(matches(ending.message, expected))
      << "message:  " << shortened(ending.message) << "\nexpected: " << shortened(expected);
  EXPECT_LE(ending.seconds, most_seconds());
  if (!sanitized) {
    EXPECT_LE(ending.mebibytes, most_mebibytes);
  }
}

std::string repeated(const std::string& text, std::size_t times) {
  std::string all;
  all.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

TEST_P(HazardTest, EndsWithItsMessageInLittleTimeAndMemory) {
  expect_harmless(ending_of(GetParam().work), GetParam().expected);
}

}  // namespace Testing
