#include "cli/child.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "cli/console.h"

namespace Cli {

namespace {

// A report is its kind, its length and its text.
constexpr std::size_t head_size = 1 + sizeof(std::uint64_t);
constexpr std::chrono::milliseconds progress_interval{50};

void set_signals_of_child() {
  signal(SIGINT, SIG_IGN);
  signal(SIGTERM, SIG_DFL);
  signal(SIGHUP, SIG_IGN);
}

// Lines that the library prints in spite of everything must not mix with results.
void close_standard_output() {
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere == -1) return;
  dup2(nowhere, STDOUT_FILENO);
  close(nowhere);
}

[[noreturn]] void work_in_child(const Work& work, int fd, pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(EXIT_FAILURE);  // it ended before it could be watched
  set_signals_of_child();
  close_standard_output();
  ChildReport report(fd);
  const int code = work(report);
  // HDF5 crashes at the end of a process that could not complete one of its files.
  if (code == Exit::cannot_write) _exit(code);
  std::exit(code);
}

}  // namespace

void ChildReport::send(char kind, const std::string& text) {
  const auto length = static_cast<std::uint64_t>(text.size());
  std::string all(head_size, kind);
  std::memcpy(all.data() + 1, &length, sizeof length);
  all += text;
  std::size_t sent = 0;
  while (sent < all.size()) {
    const ssize_t written = write(fd_, all.data() + sent, all.size() - sent);
    if (written > 0) {
      sent += static_cast<std::size_t>(written);
    } else if (errno != EINTR) {
      return;  // the parent has ended, and so will this process
    }
  }
}

void ChildReport::progress(const std::string& step, double done) {
  const auto now = std::chrono::steady_clock::now();
  if (step == step_ && now - sent_ < progress_interval) return;
  step_ = step;
  sent_ = now;
  std::string text(sizeof done, '\0');
  std::memcpy(text.data(), &done, sizeof done);
  send('p', text + step);
}

Child::Child(const Work& work) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::string("no pipe: ") + std::strerror(errno);
  const pid_t parent = getpid();
  pid_ = fork();
  if (pid_ == 0) {
    close(ends[0]);
    work_in_child(work, ends[1], parent);
  }
  const int error = errno;
  close(ends[1]);
  fd_ = ends[0];
  if (pid_ == -1) {
    close(fd_);
    throw std::string("no process: ") + std::strerror(error);
  }
  step_.begin = std::chrono::steady_clock::now();
}

Child::~Child() {
  end();
  outcome();
}

bool Child::take_reports() {
  std::array<char, 65536> block;
  const ssize_t count = read(fd_, block.data(), block.size());
  if (count == 0 || (count == -1 && errno != EINTR)) return false;
  if (count == -1) return true;
  unread_.append(block.data(), static_cast<std::size_t>(count));
  std::size_t at = 0;
  while (unread_.size() - at >= head_size) {
    std::uint64_t length = 0;
    std::memcpy(&length, unread_.data() + at + 1, sizeof length);
    if (unread_.size() - at - head_size < length) break;
    take(unread_[at], unread_.substr(at + head_size, length));
    at += head_size + length;
  }
  unread_.erase(0, at);
  return true;
}

void Child::take(char kind, std::string text) {
  if (kind == 'o') outcome_.out += text;
  if (kind == 'e') outcome_.err += text;
  if (kind != 'p') return;
  std::memcpy(&step_.done, text.data(), sizeof step_.done);
  text.erase(0, sizeof step_.done);
  if (text == step_.name) return;
  step_.name = std::move(text);
  step_.begin = std::chrono::steady_clock::now();
}

void Child::end() {
  if (pid_ != -1) kill(pid_, SIGKILL);
}

Outcome Child::outcome() {
  if (fd_ != -1) close(fd_);
  fd_ = -1;
  int status = 0;
  while (pid_ != -1 && waitpid(pid_, &status, 0) == -1 && errno == EINTR) {
  }
  if (pid_ != -1 && WIFSIGNALED(status)) outcome_.signal = WTERMSIG(status);
  if (pid_ != -1 && WIFEXITED(status)) outcome_.exit_code = WEXITSTATUS(status);
  pid_ = -1;
  return outcome_;
}

}  // namespace Cli
