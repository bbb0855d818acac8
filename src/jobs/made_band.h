// The harmonics at which waves are made.
#ifndef KELPBOX_JOBS_MADE_BAND_H_
#define KELPBOX_JOBS_MADE_BAND_H_

#include <cstdint>
#include <optional>
#include <vector>

namespace Jobs {

struct MadeBand {
  std::uint64_t lowest = 0;
  std::uint64_t highest = 0;
};

// From the variance of each harmonic from 0. Leaves out a millionth of the variance at either end
// at most: densities fall far below what can be seen without ever being 0. Empty for still water,
// and for a variance that is not finite.
std::optional<MadeBand> made_band(const std::vector<double>& variance);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_MADE_BAND_H_
