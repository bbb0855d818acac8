#include "cli/interrupt.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace Cli {

namespace {

volatile sig_atomic_t came = 0;
volatile sig_atomic_t wake_fd = -1;

void note(int signal) {
  const int kept = errno;
  came = signal;
  const char mark = 1;
  const ssize_t ignored = write(wake_fd, &mark, 1);
  static_cast<void>(ignored);
  errno = kept;
}

}  // namespace

InterruptWatch::InterruptWatch() {
  came = 0;
  // Without a pipe, signals are noted and found at the next event.
  if (pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) pipe_ = {-1, -1};
  wake_fd = pipe_[1];
  struct sigaction once {};
  once.sa_handler = note;
  once.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&once.sa_mask);
  for (std::size_t i = 0; i < watched.size(); ++i) {
    sigaction(watched[i], nullptr, &before_[i]);
    // "nohup kelpbox ..." is to go on after the terminal closes, and a script's job in the
    // background after Ctrl-C.
    if (before_[i].sa_handler == SIG_IGN) continue;
    sigaction(watched[i], &once, nullptr);
  }
}

InterruptWatch::~InterruptWatch() {
  for (std::size_t i = 0; i < watched.size(); ++i) sigaction(watched[i], &before_[i], nullptr);
  wake_fd = -1;
  for (const int fd : pipe_) {
    if (fd != -1) close(fd);
  }
}

int InterruptWatch::signal() const { return came; }

}  // namespace Cli
