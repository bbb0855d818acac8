#include "maths/rounding.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using namespace Maths;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

TEST(Rounding, HalvesAreRoundedUp) {
  EXPECT_EQ(round_to_i64(2.5), 3);
  EXPECT_EQ(round_to_i64(-2.5), -2);
  EXPECT_EQ(round_to_i32(-2.51), -3);
  EXPECT_EQ(round_to_i32(0.49), 0);
  EXPECT_EQ(round_to_u32(1000.5), 1001u);
}

TEST(Rounding, TruncationIsTowardsZero) {
  EXPECT_EQ(truncate_to_i64(2.99), 2);
  EXPECT_EQ(truncate_to_i64(-2.99), -2);
  EXPECT_EQ(truncate_to_i32(-2.99), -2);
  EXPECT_EQ(truncate_to_u32(2.99), 2u);
}

TEST(Rounding, EveryRepresentableIntegerIsExact) {
  EXPECT_EQ(round_to_u32(4294967295.0), 4294967295u);
  EXPECT_EQ(round_to_i32(2147483647.0), 2147483647);
  EXPECT_EQ(round_to_i32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(round_to_i64(4611686018427387904.0), std::int64_t{1} << 62);
  EXPECT_EQ(truncate_to_i64(-9223372036854775808.0), least);
}

TEST(Rounding, ConversionToUnsignedKeepsTheLowBits) {
  EXPECT_EQ(round_to_u32(4294967296.0 + 5.0), 5u);
  EXPECT_EQ(round_to_u32(-1.0), 4294967295u);
}

TEST(Rounding, AnOverflowToSignedGivesTheLeastNumber) {
  EXPECT_EQ(round_to_i32(2147483648.0), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(round_to_i32(4294967296.0 - 7.0), std::numeric_limits<std::int32_t>::min());
}

TEST(Rounding, NumbersOutOfRangeHaveADefinedResult) {
  for (const double x : {nan, inf, -inf, 1e300, -1e300, 9223372036854775808.0}) {
    EXPECT_EQ(round_to_i64(x), least) << x;
    EXPECT_EQ(round_to_i32(x), std::numeric_limits<std::int32_t>::min()) << x;
    EXPECT_EQ(round_to_u32(x), 0u) << x;
  }
}

}  // namespace
