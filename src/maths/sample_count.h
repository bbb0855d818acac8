// The number of samples in a signal of one repeat time.
#ifndef KELPBOX_MATHS_SAMPLE_COUNT_H_
#define KELPBOX_MATHS_SAMPLE_COUNT_H_

#include <cmath>
#include <cstdint>

#include "base/compose.h"
#include "base/fft.h"

namespace Maths {

// Converts the count to an integer. Throws std::string "rate::<rate> Hz gives no usable number of
// samples in a repeat time of <repeat> s" for a count that is negative, NaN, or above 2^27, which
// takes 1 GiB.
inline std::uint32_t usable_count(double count, double repeat, double rate) {
  constexpr double max_samples = 1 << 27;
  if (count >= 0.0 && count <= max_samples) return static_cast<std::uint32_t>(count);
  throw Base::compose("rate::", rate, " Hz gives no usable number of samples in a repeat time of ",
                      repeat, " s");
}

// The samples of a repeat time in s at a rate in Hz, rounded; 0 for a rate that is too low. Throws
// what usable_count throws.
inline std::uint32_t sample_count(double repeat, double rate) {
  return usable_count(std::floor(repeat * rate + 0.5), repeat, rate);
}

// The bytes that a signal, its spectrum and the transform between them take at most.
inline std::uint64_t signal_memory(std::uint64_t samples) {
  return 2 * sizeof(double) * samples + Base::transform_memory(samples);
}

}  // namespace Maths

#endif  // KELPBOX_MATHS_SAMPLE_COUNT_H_
