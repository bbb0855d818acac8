#include "maths/tank_config.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "support/thrown.h"

namespace {

using Maths::TankConfig;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

// A slope, a step, and a flat end.
TankConfig sloping() {
  TankConfig tank;
  tank.x_low = -4.0;
  tank.x_high = 6.0;
  tank.profile = {{1.0, -4.0}, {0.5, 0.0}, {0.8, 0.0}, {0.8, 6.0}};
  return tank;
}

TEST(TankConfig, SamplesTheDepthFromEndToEnd) {
  std::vector<double> out{9.0};
  sloping().profile_samples(2.0, out);
  const std::vector<double> expected{1.0, 0.75, 0.5, 0.8, 0.8, 0.8};
  ASSERT_EQ(out.size(), expected.size());
  for (std::size_t i = 0; i < out.size(); ++i) EXPECT_NEAR(out[i], expected[i], 1e-14) << i;
}

TEST(TankConfig, TheLastSampleMayBeBeforeTheEnd) {
  std::vector<double> out;
  sloping().profile_samples(3.0, out);  // -4, -1, 2, 5
  ASSERT_EQ(out.size(), 4u);
  EXPECT_NEAR(out[1], 0.625, 1e-14);
  EXPECT_NEAR(out[3], 0.8, 1e-14);
  sloping().profile_samples(11.0, out);
  EXPECT_EQ(out, std::vector<double>{1.0});
}

TEST(TankConfig, AStepAtTheStartGivesTheDepthBeforeIt) {
  TankConfig tank;
  tank.x_high = 2.0;
  tank.profile = {{1.0, 0.0}, {0.5, 0.0}, {0.7, 2.0}};
  std::vector<double> out;
  tank.profile_samples(1.0, out);
  ASSERT_EQ(out.size(), 3u);
  EXPECT_EQ(out[0], 1.0);
  EXPECT_NEAR(out[1], 0.6, 1e-14);
  EXPECT_NEAR(out[2], 0.7, 1e-14);
}

TEST(TankConfig, APieceShorterThanAMicrometreIsAStep) {
  TankConfig tank;
  tank.x_high = 2.0;
  std::vector<double> out;
  tank.profile = {{1.0, 0.0}, {1.0, 1 - 2e-7}, {0.5, 1 + 2e-7}, {0.5, 2.0}};
  tank.profile_samples(1.0, out);
  ASSERT_EQ(out.size(), 3u);
  EXPECT_EQ(out[1], 1.0);
  tank.profile = {{1.0, 0.0}, {1.0, 1 - 1e-6}, {0.5, 1 + 1e-6}, {0.5, 2.0}};
  tank.profile_samples(1.0, out);
  EXPECT_NEAR(out[1], 0.75, 1e-9);
}

TEST(TankConfig, DoesNotReadPastTheProfile) {
  TankConfig tank = sloping();
  tank.x_high = 10.0;  // beyond the last point
  std::vector<double> out;
  tank.profile_samples(1.0, out);
  ASSERT_EQ(out.size(), 15u);
  EXPECT_NEAR(out.back(), 0.8, 1e-12);
}

TEST(TankConfig, NeedsAProfile) {
  std::vector<double> out{1.0};
  EXPECT_EQ(thrown([&] { TankConfig{}.profile_samples(1.0, out); }), "TankConfig not built");
  EXPECT_TRUE(out.empty());
}

TEST(TankConfig, RefusesASpacingThatIsNotPositive) {
  const TankConfig tank = sloping();
  std::vector<double> out;
  EXPECT_EQ(thrown([&] { tank.profile_samples(0.0, out); }),
            "delta_x::Sample spacing must be above 0 but is 0");
  EXPECT_EQ(thrown([&] { tank.profile_samples(-0.5, out); }),
            "delta_x::Sample spacing must be above 0 but is -0.5");
  EXPECT_EQ(thrown([&] { tank.profile_samples(nan, out); }),
            "delta_x::Sample spacing must be above 0 but is nan");
  EXPECT_EQ(thrown([&] { tank.profile_samples(inf, out); }),
            "delta_x::Sample spacing must be above 0 but is inf");
}

TEST(TankConfig, ATankThatEndsBeforeItStartsHasNoSamples) {
  TankConfig tank = sloping();
  std::swap(tank.x_low, tank.x_high);
  std::vector<double> out{1.0};
  tank.profile_samples(2.0, out);
  EXPECT_TRUE(out.empty());
}

TEST(TankConfig, RefusesAnExcessiveNumberOfSamples) {
  const TankConfig tank = sloping();
  std::vector<double> out;
  EXPECT_EQ(thrown([&] { tank.profile_samples(1e-9, out); }),
            "delta_x::Too many depth samples for a spacing of 1e-09");
  EXPECT_EQ(thrown([&] { tank.profile_samples(1e-320, out); }),
            "delta_x::Too many depth samples for a spacing of 9.99989e-321");
}

}  // namespace
