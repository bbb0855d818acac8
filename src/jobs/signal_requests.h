// What a job asks for besides the sea: drive signals, points, a field.
#ifndef KELPBOX_JOBS_SIGNAL_REQUESTS_H_
#define KELPBOX_JOBS_SIGNAL_REQUESTS_H_

#include "jobs/preparation.h"

namespace Jobs {

// Reads [drive], each [[point]] and [field] into the run. Faults are added.
void read_requests(Preparation& p);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SIGNAL_REQUESTS_H_
