// The shape of JONSWAP, and what the seas with this shape share.
#ifndef KELPBOX_JOBS_READY_PEAKED_H_
#define KELPBOX_JOBS_READY_PEAKED_H_

#include <string>
#include <vector>

#include "jobs/ready_parts.h"

namespace Jobs::Ready {

// The text of a density in s, of the parameters tp, gamma, sigma_a and sigma_b.
std::string peaked_shape();
// These parameters, after the given ones.
std::vector<ReadyParameter> peaked_parameters(std::vector<ReadyParameter> before);
// The integral of a sea's text over all frequencies, or between two, with a `norm` of 1.
double peaked_integral(const std::string& formula, Base::Params parameters);
double peaked_integral(const std::string& formula, Base::Params parameters,
                       const FrequencyRange& limits);
double peak_of_tp(const Base::Params& parameters);

}  // namespace Jobs::Ready

#endif  // KELPBOX_JOBS_READY_PEAKED_H_
