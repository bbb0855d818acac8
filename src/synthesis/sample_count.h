// How many samples a signal of one repeat time has.
#ifndef KELPBOX_SYNTHESIS_SAMPLE_COUNT_H_
#define KELPBOX_SYNTHESIS_SAMPLE_COUNT_H_

#include <cmath>
#include <cstdint>

#include "synthesis/compose.h"

namespace Synthesis {

// The repeat time in s at the rate in Hz, rounded; 0 for a rate too low to have any. Throws
// std::string "rate::<value> Hz gives no usable number of samples in a repeat time of <value> s"
// for a rate that is negative or no number, and for more samples than 2^27, which take 1 GiB.
inline std::uint32_t sample_count(double repeat, double rate) {
  constexpr double max_samples = 1 << 27;
  const double count = std::floor(repeat * rate + 0.5);
  if (count >= 0.0 && count <= max_samples) return static_cast<std::uint32_t>(count);
  throw compose("rate::", rate, " Hz gives no usable number of samples in a repeat time of ",
                repeat, " s");
}

}  // namespace Synthesis

#endif  // KELPBOX_SYNTHESIS_SAMPLE_COUNT_H_
