// Values of a site that the library accepts, although no run can use them.
#ifndef KELPBOX_JOBS_JUDGE_SITE_H_
#define KELPBOX_JOBS_JUDGE_SITE_H_

#include "jobs/preparation.h"

namespace Jobs {

// Adds a fault for each such value of the job's site. The job has no site then, since its parts
// would report what only follows.
void judge_site(Preparation& p);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_JUDGE_SITE_H_
