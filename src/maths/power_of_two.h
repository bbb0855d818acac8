// The next power of two, for binary searches.
#ifndef KELPBOX_MATHS_POWER_OF_TWO_H_
#define KELPBOX_MATHS_POWER_OF_TWO_H_

#include <cstdint>

namespace Maths {

// The smallest power of two that is at least n; 0 for n = 0 and for n above 2^63. The shifts copy
// the highest bit of n - 1 to all lower bits (Warren 2003, "Hacker's Delight", chapter 3).
inline std::uint64_t next_pow2(std::uint64_t n) {
  --n;
  for (unsigned shift = 1; shift < 64; shift *= 2) n |= n >> shift;
  return n + 1;
}

}  // namespace Maths

#endif  // KELPBOX_MATHS_POWER_OF_TWO_H_
