// How many samples a signal of one repeat time has.
#ifndef KELPBOX_MATHS_SAMPLE_COUNT_H_
#define KELPBOX_MATHS_SAMPLE_COUNT_H_

#include <cmath>
#include <cstdint>

#include "base/compose.h"
#include "base/fft.h"

namespace Maths {

// A count of samples of a repeat time in s at a rate in Hz. Throws std::string "rate::<value> Hz
// gives no usable number of samples in a repeat time of <value> s" for one that is negative or no
// number, and for more samples than 2^27, which take 1 GiB.
inline std::uint32_t usable_count(double count, double repeat, double rate) {
  constexpr double max_samples = 1 << 27;
  if (count >= 0.0 && count <= max_samples) return static_cast<std::uint32_t>(count);
  throw Base::compose("rate::", rate, " Hz gives no usable number of samples in a repeat time of ",
                      repeat, " s");
}

// The repeat time at the rate, rounded; 0 for a rate too low to have any. Throws as usable_count.
inline std::uint32_t sample_count(double repeat, double rate) {
  return usable_count(std::floor(repeat * rate + 0.5), repeat, rate);
}

// The least number of bytes for a signal of that many samples, its spectrum and the transform
// between them.
inline std::uint64_t signal_memory(std::uint64_t samples) {
  return 2 * sizeof(double) * samples + Base::transform_memory(samples);
}

}  // namespace Maths

#endif  // KELPBOX_MATHS_SAMPLE_COUNT_H_
