// The amplitudes of a series that lasts one repeat time.
#ifndef KELPBOX_OUTPUTS_HARMONICS_H_
#define KELPBOX_OUTPUTS_HARMONICS_H_

#include <cstddef>
#include <vector>

namespace Outputs {

// One for each harmonic from 0 to `last`, or to half the number of samples.
std::vector<double> amplitudes(const std::vector<double>& samples, std::size_t last);

// The last harmonic that a page shows: some more than the run has.
std::size_t last_shown(std::size_t highest_harmonic);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_HARMONICS_H_
