// What the signals that a job asks for may be, judged before anything is computed.
#ifndef KELPBOX_JOBS_REQUEST_LIMITS_H_
#define KELPBOX_JOBS_REQUEST_LIMITS_H_

#include <string>

#include "jobs/preparation.h"

namespace Jobs {

// Adds a fault unless the value is above 0.
bool require_above_0(Preparation& p, const Part& part, const char* name, double value);

// Adds a fault unless the rate in Hz is above 0 and gives 1 to 2^27 samples in the repeat time as
// fitted. Without a repeat time only the sign is judged.
bool require_samples(Preparation& p, double rate, const Span& place);

// As lies_in_tank, for a position across the tank.
bool lies_across_tank(Preparation& p, const Part& part, const std::string& key, double y);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_REQUEST_LIMITS_H_
