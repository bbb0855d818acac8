#include "jobs/direction_stats.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

namespace {

using Jobs::DirectionStats;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double pi = std::numbers::pi;

TEST(DirectionStats, OfStillWaterHaveNoSpread) {
  const DirectionStats still;
  EXPECT_EQ(still.mean(), 0.0);
  EXPECT_EQ(still.r1(), 1.0);
  EXPECT_EQ(still.spread(), 0.0);
  EXPECT_EQ(still.effective_waves(), 0.0);
}

TEST(DirectionStats, OfTwoEqualWavesAreThoseOfTheirAngle) {
  DirectionStats two;
  two.add(0.5, 2.0);
  two.add(1.1, 2.0);
  EXPECT_NEAR(two.mean(), 0.8, 1e-15);
  EXPECT_NEAR(two.r1(), std::cos(0.3), 1e-15);
  EXPECT_NEAR(two.spread(), std::sqrt(2 * (1 - std::cos(0.3))), 1e-15);
  EXPECT_EQ(two.effective_waves(), 2.0);
}

TEST(DirectionStats, APartCountsAsItsMoment) {
  DirectionStats parts;
  parts.add(std::polar(0.5, pi / 2), 3.0);
  parts.add(std::complex<double>(0.5, 0.0), 3.0);
  EXPECT_NEAR(parts.mean(), pi / 4, 1e-15);
  EXPECT_NEAR(parts.r1(), 0.5 / std::sqrt(2.0), 1e-15);
}

TEST(DirectionStats, WhatIsNotFiniteIsIgnored) {
  DirectionStats stats;
  stats.add(0.7, 1.0);
  stats.add(nan, 1.0);
  stats.add(0.2, nan);
  stats.add(std::complex<double>(nan, 0.0), 1.0);
  stats.add(std::complex<double>(1.0, 0.0), std::numeric_limits<double>::infinity());
  EXPECT_EQ(stats.variance, 1.0);
  EXPECT_NEAR(stats.mean(), 0.7, 1e-15);
}

}  // namespace
