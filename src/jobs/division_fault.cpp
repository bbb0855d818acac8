#include "jobs/division_fault.h"

#include <csetjmp>
#include <csignal>

namespace Jobs {
namespace {

sigjmp_buf return_point;

void leave(int) { siglongjmp(return_point, 1); }

// The handler, for as long as the operation runs.
class Handler {
 public:
  Handler() {
    struct sigaction action {};
    action.sa_handler = leave;
    sigemptyset(&action.sa_mask);
    sigaction(SIGFPE, &action, &old_);
  }
  ~Handler() { sigaction(SIGFPE, &old_, nullptr); }
  Handler(const Handler&) = delete;
  Handler& operator=(const Handler&) = delete;

 private:
  struct sigaction old_ {};
};

}  // namespace

bool without_division_fault(const std::function<void()>& operation) {
  const Handler handler;
  constexpr int restore_mask = 1;
  if (sigsetjmp(return_point, restore_mask) != 0) return false;
  operation();
  return true;
}

}  // namespace Jobs
