// Values of a site that the library accepts, although a run can hardly use them.
#ifndef KELPBOX_JOBS_JUDGE_SITE_H_
#define KELPBOX_JOBS_JUDGE_SITE_H_

#include "jobs/preparation.h"

namespace Jobs {

// Adds a fault for each value of the job's site that no run can use. The job has no site then,
// since its parts would report what only follows. Adds a remark for a bank that makes no sense.
void judge_site(Preparation& p);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_JUDGE_SITE_H_
