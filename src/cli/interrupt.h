// Ctrl-C and requests to end.
#ifndef KELPBOX_CLI_INTERRUPT_H_
#define KELPBOX_CLI_INTERRUPT_H_

#include <signal.h>

#include <array>

namespace Cli {

// While it exists, the first SIGINT, SIGTERM or SIGHUP is noted, and a second one ends the process
// at once. One at a time in a process.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  // Becomes readable when a signal comes.
  int fd() const { return pipe_[0]; }
  // The signal that came; 0 for none.
  int signal() const;

 private:
  static constexpr std::array<int, 3> watched{SIGINT, SIGTERM, SIGHUP};

  std::array<int, 2> pipe_{-1, -1};
  std::array<struct sigaction, watched.size()> before_{};
};

// The exit code by which a shell knows that a signal ended a program.
inline int exit_code_of_signal(int signal) { return 128 + signal; }

}  // namespace Cli

#endif  // KELPBOX_CLI_INTERRUPT_H_
