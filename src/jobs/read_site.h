// Reads the site of a job.
#ifndef KELPBOX_JOBS_READ_SITE_H_
#define KELPBOX_JOBS_READ_SITE_H_

#include "jobs/preparation.h"

namespace Jobs {

// Reads the site script into the experiment, and it and its includes into the run's inputs. Then
// sets the tunable values of [tune]. Faults are added.
void read_site(Preparation& p);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_READ_SITE_H_
