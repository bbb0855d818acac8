// Why a drive signal is not finite.
#ifndef KELPBOX_JOBS_SIGNAL_FAULT_H_
#define KELPBOX_JOBS_SIGNAL_FAULT_H_

#include <cstdint>
#include <string>

#include "jobs/run.h"

namespace Jobs {

// "paddle 3 of bank `main` gets no finite signal from harmonic 51 (0.79688 Hz)", with the reason
// where it is known. `bank` and `paddle` count from 0; the run has been built.
std::string signal_fault(Run& run, std::uint32_t bank, std::uint32_t paddle);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SIGNAL_FAULT_H_
