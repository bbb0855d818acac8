// The parts of a job that there can be several of: seas with their waves and changes, and points.
#ifndef KELPBOX_JOBS_READ_PARTS_H_
#define KELPBOX_JOBS_READ_PARTS_H_

#include <vector>

#include "jobs/job.h"
#include "jobs/job_form.h"

namespace Jobs {

// The member is the job's `sea`.
std::vector<Sea> read_seas(const Member& member, JobForm& form);
// The member is the job's `point`.
std::vector<PointPart> read_points(const Member& member, JobForm& form);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_READ_PARTS_H_
