// Fronts from a time signal that spans the repeat time.
#ifndef KELPBOX_SEA_TIME_FRONTS_H_
#define KELPBOX_SEA_TIME_FRONTS_H_

#include <cstddef>
#include <string>

#include "base/data_set.h"
#include "maths/front_set.h"
#include "maths/run_data.h"

namespace Synthesis {

// Adds a front of angle 0 for each harmonic of the run that the signal has too, except the run's
// highest. The amplitude is in the units of the signal.
void add_time_fronts(Base::DataSet signal, Maths::FrontSet& fronts, const Maths::RunData& run);

// Refuses a signal that rounds to no samples, or to more than 2^27 of them: that is a gigabyte,
// which only a mistaken rate gives. Throws std::string "<name>::N samples in the signal, not 1 to
// 134217728".
void check_sample_count(const std::string& name, double samples);

// Refuses a signal that the machine cannot hold together with its spectrum. Throws std::string
// "<name>::N samples in the signal need ... GiB of memory, ... GiB are available".
void prove_signal_memory(const std::string& name, std::size_t samples);

}  // namespace Synthesis

#endif  // KELPBOX_SEA_TIME_FRONTS_H_
