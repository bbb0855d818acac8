// Random generators with a chosen first number.
#ifndef KELPBOX_TESTS_MATHS_DRAWN_H_
#define KELPBOX_TESTS_MATHS_DRAWN_H_

#include <cmath>
#include <cstdint>

#include "maths/random.h"

inline Maths::PureRandom generator(std::uint32_t seed) {
  Maths::PureRandom made(seed);
  made.init();
  return made;
}

inline std::uint32_t first_number(std::uint32_t seed) {
  return static_cast<std::uint32_t>(std::llround(generator(seed).unit() * 4294967295.0));
}

// The first number is linear in the seed modulo 2^32, because seeding and recurrence are. Its slope
// is odd, so exactly one seed gives the wanted number.
inline Maths::PureRandom generator_of(std::uint32_t wanted) {
  const std::uint32_t offset = first_number(0);
  const std::uint32_t slope = first_number(1) - offset;
  // Newton's iteration for the inverse of an odd number doubles the exact bits in each pass.
  std::uint32_t inverse = slope;
  for (int pass = 0; pass < 5; ++pass) inverse *= 2u - slope * inverse;
  return generator(inverse * (wanted - offset));
}

#endif  // KELPBOX_TESTS_MATHS_DRAWN_H_
