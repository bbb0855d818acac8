// Hands the changes of a job to the library, as modifiers.
#ifndef KELPBOX_JOBS_ADD_CHANGE_H_
#define KELPBOX_JOBS_ADD_CHANGE_H_

#include <vector>

#include "jobs/job.h"
#include "jobs/preparation.h"
#include "jobs/run.h"

namespace Jobs {

// Checks the changes of a sea, adds them to its specification if there is one, and keeps the gain.
// Faults are added.
void add_changes(Preparation& p, const std::vector<Part>& changes, BuiltSea& sea);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_ADD_CHANGE_H_
