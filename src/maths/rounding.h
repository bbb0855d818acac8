// Conversion of real numbers to counts, rounded as floor(x + 0.5).
//
// The result is defined for every input, and is that of the x86-64 conversion instructions: NaN and
// numbers that do not fit a signed type become its most negative value, and the unsigned type takes
// the low 32 bits of the 64-bit result.
#ifndef KELPBOX_MATHS_ROUNDING_H_
#define KELPBOX_MATHS_ROUNDING_H_

#include <cmath>
#include <cstdint>
#include <limits>

namespace Maths {

inline std::int64_t truncate_to_i64(double x) {
  constexpr double limit = 9223372036854775808.0;  // 2^63
  return x >= -limit && x < limit ? static_cast<std::int64_t>(x)
                                  : std::numeric_limits<std::int64_t>::min();
}

inline std::int32_t truncate_to_i32(double x) {
  return x > -2147483649.0 && x < 2147483648.0 ? static_cast<std::int32_t>(x)
                                               : std::numeric_limits<std::int32_t>::min();
}

inline std::uint32_t truncate_to_u32(double x) {
  return static_cast<std::uint32_t>(truncate_to_i64(x));
}

inline std::int64_t round_to_i64(double x) { return truncate_to_i64(std::floor(x + 0.5)); }
inline std::int32_t round_to_i32(double x) { return truncate_to_i32(std::floor(x + 0.5)); }
inline std::uint32_t round_to_u32(double x) { return truncate_to_u32(std::floor(x + 0.5)); }

}  // namespace Maths

#endif  // KELPBOX_MATHS_ROUNDING_H_
