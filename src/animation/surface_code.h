// Encodes surface heights as the frames of an animation store them.
#ifndef KELPBOX_ANIMATION_SURFACE_CODE_H_
#define KELPBOX_ANIMATION_SURFACE_CODE_H_

#include <cstddef>
#include <cstdint>

#include "maths/rounding.h"

namespace Synthesis {

// Counts of 4 m / 32767, rounded half away from zero. A height beyond 4 m wraps: the low 16 bits of
// the count are kept. NaN becomes 0.
inline std::int16_t surface_code(double height) {
  const double scaled = height * 32767.0 * 0.25;
  // Truncation rounds towards zero: down for a positive number, up for a negative one.
  return static_cast<std::int16_t>(
      Maths::truncate_to_i64(scaled >= 0 ? scaled + 0.5 : scaled - 0.5));
}

// The same for a series, several heights at a time.
void surface_codes(const double* heights, std::size_t count, std::int16_t* out);

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_SURFACE_CODE_H_
