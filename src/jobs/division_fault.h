// Integer divisions by 0 in a site script, which end the process on purpose.
#ifndef KELPBOX_JOBS_DIVISION_FAULT_H_
#define KELPBOX_JOBS_DIVISION_FAULT_H_

#include <functional>

namespace Jobs {

// Calls the operation. Returns false if it raised SIGFPE: then it was left where it was, what it
// had allocated is lost, and the objects that it worked on can only be destroyed. Exceptions pass.
// One at a time in a process.
bool without_division_fault(const std::function<void()>& operation);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_DIVISION_FAULT_H_
