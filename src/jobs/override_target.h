// Finds the place in a job that a key path means, and puts a value there.
#ifndef KELPBOX_JOBS_OVERRIDE_TARGET_H_
#define KELPBOX_JOBS_OVERRIDE_TARGET_H_

#include <cstddef>
#include <string>

#include "jobs/key_path.h"
#include "jobs/value.h"

namespace Jobs {

// Thrown for a path that leads nowhere, or to several places.
struct NoTarget {
  std::size_t segment = 0;  // the first one that is wrong
  std::string fault;
  std::string label;
};

// `member` has the value, and the spans for a member that has to be added. Its key is not used.
void put(Value& job, const KeyPath& path, Member member);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_OVERRIDE_TARGET_H_
