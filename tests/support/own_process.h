// Work in a separate process, so that its memory and limits do not affect other tests.
#ifndef KELPBOX_TESTS_SUPPORT_OWN_PROCESS_H_
#define KELPBOX_TESTS_SUPPORT_OWN_PROCESS_H_

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <fstream>

namespace Testing {

// A sanitizer adds its own memory to that of the process, and needs more addresses than a limit
// leaves.
#ifdef KELPBOX_SANITIZED
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

// Whether the work, in a child process, returns true.
template <typename Work>
bool good_alone(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    bool good = false;
    try {
      good = work();
    } catch (...) {
    }
    _exit(good ? 0 : 1);
  }
  int status = 0;
  return child != -1 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
         WEXITSTATUS(status) == 0;
}

// Lets the rights of files hold for this process even if root started it.
inline void give_up_privileges() {
  constexpr uid_t nobody = 65534;
  if (geteuid() == 0 && seteuid(nobody) != 0) _exit(1);
}

// The peak memory of the process so far, in bytes.
inline double peak_memory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

// The present memory of the process, in bytes.
struct Held {
  double addresses = 0.0;
  double memory = 0.0;
};
inline Held held_memory() {
  std::ifstream statm("/proc/self/statm");
  Held held;
  statm >> held.addresses >> held.memory;
  const auto page = static_cast<double>(sysconf(_SC_PAGESIZE));
  return {held.addresses * page, held.memory * page};
}

// Limits the addresses of the process to this many bytes more than it has. What the heap keeps of
// freed memory goes back to the system first, or it would come on top.
inline void leave_room(double bytes) {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
  const auto limit = static_cast<rlim_t>(held_memory().addresses + bytes);
  const rlimit both{limit, limit};
  setrlimit(RLIMIT_AS, &both);
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_OWN_PROCESS_H_
