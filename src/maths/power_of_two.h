// The next power of two, for searches that halve their step.
#ifndef KELPBOX_MATHS_POWER_OF_TWO_H_
#define KELPBOX_MATHS_POWER_OF_TWO_H_

#include <cstdint>

namespace Maths {

// The smallest power of two that is at least n; 0 for n = 0 and for n above 2^63.
inline std::uint64_t next_pow2(std::uint64_t n) {
  --n;
  for (unsigned shift = 1; shift < 64; shift *= 2) n |= n >> shift;
  return n + 1;
}

}  // namespace Maths

#endif  // KELPBOX_MATHS_POWER_OF_TWO_H_
