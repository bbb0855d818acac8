#include "maths/tank_run.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "maths/dispersion.h"
#include "support/thrown.h"
#include "varied_tank.h"

namespace {

using Maths::knum;
using Maths::TankConfig;
using Maths::TankRun;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

double group_velocity(double depth, double k) {
  const double kd = k * depth;
  return 2 * pi / k * 0.5 * (1 + 2 * kd / std::sinh(2 * kd));
}

TEST(TankRun, OmegaIsTheAngularRateOfAHarmonic) {
  EXPECT_DOUBLE_EQ(varied_run().omega(7), 0.7 * 2 * pi);
  EXPECT_EQ(thrown([] { varied_run().omega(41); }), "Harmonic out of range");
}

// Whatever wave number was taken before.
TEST(TankRun, WaveNumbersAreThoseOfTheFrequencyAndTheDepth) {
  TankConfig tank;
  tank.g = 9.81;
  tank.paddle_depth = 1.0;
  tank.profile = {{1.0, 0.0}, {1.0, 5.0}, {0.5, 10.0}, {1.0, 15.0}};
  tank.x_high = 15.0;
  const TankRun run(tank, grid());
  for (const std::uint64_t harmonic : {7, 7, 9, 7}) {
    for (const auto& [x, depth] : std::vector<std::pair<double, double>>{
             {0.0, 1.0}, {4.0, 1.0}, {10.0, 0.5}, {15.0, 1.0}, {10.0, 0.5}}) {
      EXPECT_EQ(run.wave_num_at(harmonic, x), knum(run.omega(harmonic), depth, 9.81))
          << harmonic << " " << x;
    }
  }
  TankRun ladder = run;
  for (const std::uint64_t harmonic : {7, 9}) {
    ladder.build_ladder(harmonic, 15.0);
    const double w = run.omega(harmonic);
    const std::vector<double> depths = {1.0, 1.0, 0.75, 0.75, 1.0};
    ASSERT_EQ(ladder.ladder().size(), depths.size());
    for (std::size_t i = 0; i < depths.size(); ++i) {
      EXPECT_EQ(ladder.ladder()[i].k, knum(w, depths[i], 9.81)) << harmonic << " " << i;
    }
  }
}

TEST(TankRun, SegmentsAgreeWithALinearSearch) {
  for (std::size_t count = 2; count <= 40; ++count) {
    TankConfig tank;
    tank.x_low = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
      // Every third point has the x of the point before it.
      const double x = static_cast<double>(i - i % 3 / 2);
      tank.profile.push_back({1.0, x});
    }
    tank.x_high = tank.profile.back().x;
    const TankRun run(tank, grid());
    for (double x = 0.0; x <= tank.x_high; x += 0.25) {
      std::size_t expected = 0;
      while (expected + 2 < count && x > tank.profile[expected + 1].x) ++expected;
      EXPECT_EQ(run.segment_of(x), expected) << count << " " << x;
    }
  }
}

TEST(TankRun, PositionsOutsideTheTankAreRefused) {
  const TankRun run = varied_run();
  EXPECT_EQ(run.segment_of(-5.0), 0u);
  EXPECT_EQ(run.segment_of(20.0), 6u);
  EXPECT_EQ(thrown([&] { run.segment_of(20.5); }), outside("20.5"));
  EXPECT_EQ(thrown([&] { run.segment_of(-5.01); }), outside("-5.01"));
  EXPECT_EQ(thrown([&] { run.segment_of(nan); }), outside("nan"));
  EXPECT_EQ(thrown([&] { run.depth_at(1e20); }), outside("1e+20"));
}

TEST(TankRun, TheLastSegmentIncludesPositionsBeyondTheProfile) {
  for (std::size_t count = 3; count <= 9; ++count) {
    TankConfig tank;
    for (std::size_t i = 0; i < count; ++i) tank.profile.push_back({1.0, static_cast<double>(i)});
    tank.x_high = 99.0;
    EXPECT_EQ(TankRun(tank, grid()).segment_of(50.0), count - 2);
  }
}

TEST(TankRun, NeedsAProfileOfTwoPoints) {
  TankConfig tank = varied();
  tank.profile.resize(1);
  const TankRun run(tank, grid());
  EXPECT_EQ(thrown([&] { run.segment_of(1.0); }), "TankConfig not built");
  EXPECT_EQ(thrown([&] { run.depth_at(1.0); }), "TankConfig not built");
  EXPECT_EQ(thrown([&] { run.depth_at(0.0); }), "TankConfig not built");
  std::vector<double> out;
  EXPECT_EQ(thrown([&] { run.depth_samples(out, 1.0); }), "TankConfig not built");
  EXPECT_EQ(thrown([&] { run.segment_of(99.0); }), outside("99"));
}

TEST(TankRun, TwoPointsAreOneSegment) {
  TankConfig tank;
  tank.x_low = -1.0;
  tank.x_high = 3.0;
  tank.profile = {{2.0, -1.0}, {1.0, 3.0}};
  const TankRun run(tank, grid());
  EXPECT_EQ(run.segment_of(-1.0), 0u);
  EXPECT_EQ(run.segment_of(3.0), 0u);
  EXPECT_NEAR(run.depth_at(1.0), 1.5, 1e-15);
}

TEST(TankRun, DepthIsInterpolated) {
  const TankRun run = varied_run();
  EXPECT_NEAR(run.depth_at(-2.5), 0.7, 1e-15);
  EXPECT_NEAR(run.depth_at(2.0), 1.0, 1e-15);
  EXPECT_NEAR(run.depth_at(7.0), 0.75, 1e-15);
  EXPECT_NEAR(run.depth_at(10.0), 0.5, 1e-15);  // the near side of the step
  EXPECT_NEAR(run.depth_at(10.001), 0.8, 1e-15);
  EXPECT_NEAR(run.depth_at(20.0), 0.8, 1e-15);
}

TEST(TankRun, DepthAtZeroIsThatOfTheFirstPoint) {
  EXPECT_EQ(varied_run().depth_at(0.0), 0.4);
  EXPECT_NEAR(varied_run().depth_at(1e-9), 1.0, 1e-9);
}

TEST(TankRun, AFirstSegmentOfZeroLengthHasNaNDepth) {
  TankConfig tank = varied();
  tank.profile.insert(tank.profile.begin(), {0.3, -5.0});
  const TankRun run(tank, grid());
  EXPECT_TRUE(std::isnan(run.depth_at(-5.0)));
  EXPECT_NEAR(run.depth_at(-4.999999), 0.4, 1e-6);
}

TEST(TankRun, DepthSamplesAreThoseOfTheProfile) {
  std::vector<double> samples;
  std::vector<double> expected;
  varied_run().depth_samples(samples, 0.75);
  varied().profile_samples(0.75, expected);
  EXPECT_EQ(samples.size(), 34u);
  EXPECT_EQ(samples, expected);
}

TEST(WaveNumAt, UsesTheLadderAtItsEndsAndTheDepthElsewhere) {
  TankRun run = varied_run();
  // Without a ladder, the depth at 0 is that of the first point.
  EXPECT_NEAR(run.wave_num_at(10, 0.0), k_of(0.4), 1e-12);
  run.build_ladder(10, 7.0);
  EXPECT_EQ(run.wave_num_at(10, 0.0), run.ladder().front().k);
  EXPECT_EQ(run.wave_num_at(10, -0.9e-6), run.ladder().front().k);
  EXPECT_EQ(run.wave_num_at(10, 7.0 + 0.9e-6), run.ladder().back().k);
  // Further away the depth differs.
  EXPECT_NE(run.wave_num_at(10, -1.1e-6), run.ladder().front().k);
  EXPECT_NE(run.wave_num_at(10, 7.0 + 1.1e-6), run.ladder().back().k);
  EXPECT_NEAR(run.wave_num_at(10, 15.0), k_of(0.8), 1e-12);
  EXPECT_NEAR(run.wave_num_at(20, 0.0), knum(4 * pi, 0.4, g), 1e-12);
  EXPECT_EQ(run.ladder().size(), 4u);
  EXPECT_EQ(thrown([&] { run.wave_num_at(10, 21.0); }), outside("21"));
  EXPECT_EQ(thrown([&] { run.wave_num_at(41, 1.0); }), "Harmonic out of range");
}

TEST(WaveNumAt, HarmonicZeroIsRefusedByANewRun) {
  const std::string message = thrown([] { varied_run().wave_num_at(0, 0.0); });
  EXPECT_TRUE(
      message.starts_with("Knum calculation failed for omega=0 and depth = 0.4 with return value "))
      << message;
}

TEST(Shoaling, ConservesTheEnergyFlux) {
  TankRun run = varied_run();
  for (const double x : {-5.0, -1.0, 5.0, 8.0, 10.0, 15.0}) {
    const double depth = run.depth_at(x);
    const double expected =
        std::sqrt(group_velocity(1.0, k_of(1.0)) / group_velocity(depth, k_of(depth)));
    EXPECT_NEAR(run.shoaling(10, x), expected, 1e-12) << x;
  }
}

TEST(Shoaling, AStepInTheBottomActsAtOnce) {
  TankConfig tank = varied();
  tank.profile = {{1.0, 0.0}, {1.0, 10.0}, {0.3, 10.0}, {0.3, 20.0}};
  tank.paddle_index = 0;
  TankRun run(tank, grid());
  EXPECT_EQ(run.shoaling(10, 9.9), 1.0);
  const double expected =
      std::sqrt(group_velocity(1.0, k_of(1.0)) / group_velocity(0.3, k_of(0.3)));
  EXPECT_NEAR(run.shoaling(10, 10.1), expected, 1e-12);
  EXPECT_NEAR(run.phase_lag(10, 14.0, 0.0, 0.0), 10 * k_of(1.0) + 4 * k_of(0.3), 1e-11);
}

TEST(Shoaling, IsOneAtTheDepthOfThePaddles) {
  TankRun run = varied_run();
  EXPECT_EQ(run.shoaling(10, 0.0), 1.0);
  EXPECT_EQ(run.shoaling(10, 3.0), 1.0);
  EXPECT_EQ(run.shoaling(10, 4.0), 1.0);
}

TEST(Shoaling, DeepWaterDoesNotOverflow) {
  TankConfig tank = varied();
  tank.profile = {{900.0, 0.0}, {500.0, 20.0}};
  tank.paddle_index = 0;
  tank.paddle_depth = 900.0;
  TankRun run(tank, grid());
  EXPECT_NEAR(run.shoaling(10, 15.0), 1.0, 1e-14);
}

TEST(Shoaling, HarmonicZeroAtTheOriginIsRefusedByANewRun) {
  TankRun run = varied_run();
  EXPECT_EQ(thrown([&] { run.shoaling(0, 0.0); }), "knum is empty");
  EXPECT_EQ(thrown([&] { run.phase_lag(0, 0.0, 1.0, 0.5); }), "knum is empty");
  TankConfig dry = varied();
  dry.paddle_depth = 0.0;  // equals the depth at the end of an empty ladder
  TankRun equal(dry, grid());
  EXPECT_EQ(equal.shoaling(0, 0.0), 1.0);
}

TEST(Shoaling, RefusesAHarmonicOutOfRange) {
  TankRun run = varied_run();
  EXPECT_EQ(thrown([&] { run.shoaling(41, 7.0); }), "Harmonic out of range");
}

TEST(PhaseLag, AtThePaddlesDependsOnTheCrosswisePositionOnly) {
  TankRun run = varied_run();
  for (const double theta : {-2.0, -0.4, 0.0, 0.9}) {
    EXPECT_DOUBLE_EQ(run.phase_lag(10, 0.0, 1.5, theta), 1.5 * k_of(1.0) * std::sin(theta));
  }
}

TEST(PhaseLag, FollowsSnellsLawFromPieceToPiece) {
  TankRun run = varied_run();
  const double k0 = k_of(1.0);
  for (const double theta : {-0.7, 0.0, 0.3, 0.8}) {
    // The angle on each piece, and the wave number along the tank there.
    double expected = 1.5 * k0 * std::sin(theta);
    for (const auto& [length, depth] :
         std::vector<std::pair<double, double>>{{4.0, 1.0}, {6.0, 0.75}, {5.0, 0.8}}) {
      const double k = k_of(depth);
      expected += length * k * std::cos(std::asin(k0 * std::sin(theta) / k));
    }
    EXPECT_NEAR(run.phase_lag(10, 15.0, 1.5, theta), expected, 1e-10) << theta;
    // A wave in the opposite direction along the tank has the opposite lag there.
    const double across = 1.5 * k0 * std::sin(theta);
    EXPECT_NEAR(run.phase_lag(10, 15.0, 1.5, pi - theta), 2 * across - expected, 1e-9) << theta;
  }
}

TEST(PhaseLag, IsNegativeBehindThePaddles) {
  TankRun run = varied_run();
  EXPECT_NEAR(run.phase_lag(10, -2.5, 0.0, 0.0), -2.5 * k_of(0.85), 1e-12);
}

TEST(PhaseLag, AWaveThatCannotPassHasANaNPhase) {
  TankConfig tank = varied();
  tank.profile = {{0.2, 0.0}, {0.2, 5.0}, {2.0, 5.0}, {2.0, 20.0}};
  tank.paddle_index = 0;
  tank.paddle_depth = 0.2;
  TankRun run(tank, grid());
  EXPECT_TRUE(std::isnan(run.phase_lag(10, 10.0, 0.0, 1.5)));
}

TEST(PhaseLag, OnlyTheMeanDepthOfAPieceCounts) {
  // The wave passes at the mean depth of the slope and could not pass at the depth of its end.
  TankConfig tank = varied();
  tank.profile = {{0.2, 0.0}, {2.0, 20.0}};
  tank.paddle_index = 0;
  tank.paddle_depth = 0.2;
  TankRun run(tank, grid());
  const double omega = 2 * pi * 0.3;
  const double across = 0.5 * (knum(omega, 1.1, g) + knum(omega, 2.0, g));
  const double theta = std::asin(across / knum(omega, 0.2, g));
  const double along = std::sqrt(std::pow(knum(omega, 1.1, g), 2) - across * across);
  EXPECT_NEAR(run.phase_lag(3, 20.0, 0.0, theta), 20.0 * along, 1e-9);
}

TEST(PhaseLag, FollowsTheHarmonicAndThePosition) {
  TankRun run = varied_run();
  const double here = run.phase_lag(10, 3.0, 0.0, 0.0);
  EXPECT_NEAR(run.phase_lag(20, 3.0, 0.0, 0.0), 3.0 * knum(4 * pi, 1.0, g), 1e-11);
  EXPECT_EQ(run.phase_lag(10, 3.0, 0.0, 0.0), here);
  EXPECT_EQ(run.phase_lag(10, 3.0 + 0.9e-6, 0.0, 0.0), here);  // the same position
  EXPECT_GT(run.phase_lag(10, 3.0 + 2e-6, 0.0, 0.0), here);
}

TEST(AngleInRange, IsTrueBetweenTheLimits) {
  TankConfig tank = varied();
  tank.min_angle = -0.5;
  tank.max_angle = 1.0;
  const TankRun run(tank, grid());
  EXPECT_TRUE(run.angle_in_range(-0.5));
  EXPECT_TRUE(run.angle_in_range(1.0));
  EXPECT_TRUE(run.angle_in_range(0.2 + 4 * pi));
  EXPECT_FALSE(run.angle_in_range(-0.51));
  EXPECT_FALSE(run.angle_in_range(1.01));
  EXPECT_FALSE(run.angle_in_range(pi));
  EXPECT_FALSE(run.angle_in_range(nan));
}

TEST(AngleInRange, MayPassThroughPi) {
  TankConfig tank = varied();
  tank.min_angle = 2.0;
  tank.max_angle = -2.5;
  const TankRun run(tank, grid());
  EXPECT_TRUE(run.angle_in_range(2.0));
  EXPECT_TRUE(run.angle_in_range(pi));
  EXPECT_TRUE(run.angle_in_range(-pi));
  EXPECT_TRUE(run.angle_in_range(-2.5));
  EXPECT_FALSE(run.angle_in_range(1.9));
  EXPECT_FALSE(run.angle_in_range(0.0));
  EXPECT_FALSE(run.angle_in_range(-2.4));
}

TEST(AngleInRange, EqualLimitsAllowEveryAngle) {
  TankConfig tank = varied();
  tank.min_angle = 0.5;
  tank.max_angle = 0.5;
  const TankRun run(tank, grid());
  EXPECT_TRUE(run.angle_in_range(0.0));
  EXPECT_TRUE(run.angle_in_range(3.0));
  EXPECT_TRUE(run.angle_in_range(-100.0));
}

}  // namespace
