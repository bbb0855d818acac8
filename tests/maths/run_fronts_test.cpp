// Referring fronts to the paddle line.
#include "maths/run_fronts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <vector>

#include "maths/dispersion.h"
#include "maths/refer_to_paddles.h"
#include "support/thrown.h"

namespace {

using Maths::FrontSet;
using Maths::HarmonicFront;
using Maths::knum;
using Maths::RunFronts;
using Maths::TankConfig;
using Maths::TankRun;
using Testing::thrown;

constexpr double pi = std::numbers::pi;
constexpr double g = 9.81;

// 1 m of water from x = 0 to 30, with walls at -2 and 4.
TankConfig flat() {
  TankConfig tank;
  tank.g = g;
  tank.x_high = 30.0;
  tank.paddle_depth = 1.0;
  tank.profile = {{1.0, 0.0}, {1.0, 30.0}};
  tank.has_walls = true;
  tank.width = 6.0;
  tank.y_ref = 1.0;
  return tank;
}

// A step from `near` to `far` at x = 10.
TankConfig stepped(double near, double far) {
  TankConfig tank = flat();
  tank.paddle_depth = near;
  tank.profile = {{near, 0.0}, {near, 10.0}, {far, 10.0}, {far, 30.0}};
  return tank;
}

RunFronts with_sets(std::size_t count, bool dalrymple = false) {
  RunFronts fronts;
  fronts.run.init(10.0, 100.0, 0.1, 4.0, dalrymple);
  fronts.resize(count);
  return fronts;
}

double omega_of(std::size_t slot) { return 2 * pi * static_cast<double>(slot) / 10.0; }

// The phase at a point and time of a front that is given at the origin, in water of constant depth.
double phase_at(const HarmonicFront& front, std::size_t slot, double x, double y, double t) {
  const double k = knum(omega_of(slot), 1.0, g);
  return front.phase + omega_of(slot) * t -
         k * (x * std::cos(front.angle) + y * std::sin(front.angle));
}

double turn_between(double a, double b) { return std::remainder(a - b, 2 * pi); }

TEST(BuildMerged, AWaveHasItsPhaseAtTheRequestedPositionAndTime) {
  for (const double theta : {-2.8, -0.6, 0.0, 0.4, 1.2, 2.0}) {
    RunFronts fronts = with_sets(1);
    fronts.sets[0].position = {12.0, 2.5, 3.7};
    fronts.sets[0].add_front(10, {0.2, theta, 0.9});
    fronts.sets[0].add_front(17, {-0.1, theta, -1.5});
    fronts.build_merged(flat());
    const HarmonicFront& first = fronts.merged.slots[10].at(0);
    EXPECT_NEAR(first.amp, 0.2, 1e-15);
    EXPECT_NEAR(first.angle, theta, 1e-12);
    EXPECT_NEAR(turn_between(phase_at(first, 10, 12.0, 2.5, 3.7), 0.9), 0.0, 1e-9) << theta;
    const HarmonicFront& second = fronts.merged.slots[17].at(0);
    EXPECT_NEAR(second.amp, -0.1, 1e-15);
    EXPECT_NEAR(turn_between(phase_at(second, 17, 12.0, 2.5, 3.7), -1.5), 0.0, 1e-9) << theta;
    EXPECT_LT(std::fabs(first.phase), 2 * pi);
  }
}

TEST(BuildMerged, AmplitudeAndAngleAreReferredBackOverAStep) {
  RunFronts fronts = with_sets(1);
  fronts.sets[0].position = {15.0, 0.0, 0.0};
  fronts.sets[0].add_front(5, {0.1, 0.5, 0.0});
  fronts.build_merged(stepped(1.0, 0.4));
  const HarmonicFront& front = fronts.merged.slots[5].at(0);
  const double k0 = knum(omega_of(5), 1.0, g);
  const double k1 = knum(omega_of(5), 0.4, g);
  const double ky = k1 * std::sin(0.5);
  EXPECT_NEAR(front.angle, std::asin(ky / k0), 1e-12);
  const auto group = [](double k, double d) { return (1 + 2 * k * d / std::sinh(2 * k * d)) / k; };
  EXPECT_NEAR(front.amp, 0.1 / std::sqrt(group(k0, 1.0) / group(k1, 0.4)), 1e-12);
  const double along = 10 * std::sqrt(k0 * k0 - ky * ky) + 5 * k1 * std::cos(0.5);
  EXPECT_NEAR(turn_between(front.phase, along), 0.0, 1e-10);
}

TEST(BuildMerged, SetsAreSummedAndNotChanged) {
  RunFronts fronts = with_sets(3);
  fronts.sets[0].add_front(10, {0.2, 0.3, 0.5});
  fronts.sets[1].position = {2.0, 1.0, 4.0};
  fronts.sets[1].add_front(10, {0.1, 0.7, 0.25});
  fronts.sets[2].add_front(10, {0.1, 0.3, 1.5});
  fronts.sets[2].add_front(11, {0.4, 0.1, 0.1});
  fronts.build_merged(flat());
  EXPECT_EQ(fronts.merged.position.x, 0.0);
  EXPECT_EQ(fronts.merged.position.y, 0.0);
  EXPECT_EQ(fronts.merged.position.t, 0.0);
  ASSERT_EQ(fronts.merged.slots[10].size(), 2u);
  const std::complex<double> sum = std::polar(0.2, 0.5) + std::polar(0.1, 1.5);
  EXPECT_NEAR(fronts.merged.slots[10][0].amp, std::abs(sum), 1e-12);
  EXPECT_NEAR(turn_between(fronts.merged.slots[10][0].phase, std::arg(sum)), 0.0, 1e-10);
  EXPECT_NEAR(fronts.merged.slots[10][1].angle, 0.7, 1e-12);
  EXPECT_EQ(fronts.merged.slots[11].size(), 1u);

  EXPECT_EQ(fronts.sets[1].position.t, 4.0);
  EXPECT_EQ(fronts.sets[1].slots[10][0].phase, 0.25);
  EXPECT_EQ(fronts.sets[2].slots[11][0].amp, 0.4);
}

// The phase at the paddles would be infinite, and the drive signals NaN.
TEST(BuildMerged, ATimeOrPlaceWithoutAFinitePhaseIsRefused) {
  const auto built = [](double y, double t, double amp, double angle = 0.4,
                        const TankConfig& tank = flat()) {
    RunFronts fronts = with_sets(1);
    fronts.sets[0].position = {12.0, y, t};
    fronts.sets[0].add_front(20, {amp, angle, 0.0});
    fronts.build_merged(tank);
    return fronts.merged.slots[20];
  };
  const std::string refused = " m is too large: the phase at the paddles is not finite";
  ASSERT_GT(omega_of(20) * 1e308, std::numeric_limits<double>::max());
  EXPECT_EQ(thrown([&] { built(0.0, 1e308, 0.1); }), "Front set::t = 1e+308 s or y = 0" + refused);
  EXPECT_EQ(thrown([&] { built(0.0, -1e308, 0.1); }),
            "Front set::t = -1e+308 s or y = 0" + refused);
  EXPECT_EQ(thrown([&] { built(1e308, 0.0, 0.1); }), "Front set::t = 0 s or y = 1e+308" + refused);
  EXPECT_TRUE(std::isfinite(built(0.0, 1e306, 0.1).at(0).phase));
  // A wave of height 0 moves no paddle, and a time that is not finite is passed on.
  EXPECT_EQ(thrown([&] { built(0.0, 1e308, 0.0); }), Testing::nothing_thrown);
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::isnan(built(0.0, infinity, 0.1).at(0).phase));
  EXPECT_TRUE(std::isnan(built(infinity, 0.0, 0.1).at(0).phase));
  EXPECT_EQ(thrown([&] { built(0.0, 0.0, 0.1, infinity); }), Testing::nothing_thrown);
  TankConfig wide = flat();
  wide.y_ref = infinity;
  EXPECT_TRUE(std::isnan(built(0.0, 0.0, 0.1, 0.4, wide).at(0).phase));
}

TEST(BuildMerged, WithoutSetsTheMergedSetIsUnchanged) {
  RunFronts fronts;
  fronts.merged.reset(3);
  fronts.merged.add_front(1, {1.0, 0.0, 0.0});
  fronts.build_merged(flat());
  EXPECT_EQ(fronts.merged.slots[1].size(), 1u);
}

TEST(BuildMerged, DalrympleNeedsWallsAndTheFlag) {
  const auto fronts_in_slot = [](bool walls, bool flag) {
    TankConfig tank = flat();
    tank.has_walls = walls;
    RunFronts fronts = with_sets(1, flag);
    fronts.sets[0].add_front(10, {0.2, 0.5, 0.0});
    fronts.build_merged(tank);
    return fronts.merged.slots[10].size();
  };
  const auto modes = static_cast<std::size_t>(knum(omega_of(10), 1.0, g) * 6.0 / pi);
  EXPECT_EQ(fronts_in_slot(true, true), 2 * modes + 1);
  EXPECT_EQ(fronts_in_slot(true, false), 1u);
  EXPECT_EQ(fronts_in_slot(false, true), 1u);
}

TEST(BuildMerged, ARejectedAngleBecomesAFrontOfZeroAmplitude) {
  TankConfig tank = flat();
  tank.min_angle = -0.5;
  tank.max_angle = 0.5;
  RunFronts fronts = with_sets(2);
  fronts.sets[0].add_front(10, {0.2, 0.6, 0.0});
  fronts.sets[0].add_front(10, {0.1, 0.4, 0.0});
  fronts.sets[1].add_front(10, {0.3, 0.6, 0.0});
  fronts.sets[1].add_front(10, {0.3, 0.4, 0.0});
  fronts.build_merged(tank);
  ASSERT_EQ(fronts.merged.slots[10].size(), 2u);
  EXPECT_EQ(fronts.merged.slots[10][0].amp, 0.0);
  EXPECT_NEAR(fronts.merged.slots[10][0].angle, 0.6, 1e-12);
  EXPECT_NEAR(fronts.merged.slots[10][1].amp, 0.4, 1e-12);
}

TEST(BuildMerged, APositionOutsideTheTankIsRefused) {
  RunFronts fronts = with_sets(1);
  fronts.sets[0].position.x = 31.0;
  fronts.build_merged(flat());  // no fronts to refer
  fronts.sets[0].add_front(10, {0.2, 0.6, 0.0});
  EXPECT_EQ(thrown([&] { fronts.build_merged(flat()); }),
            "Value x=31 is outside dimensions of tank");
}

TEST(BuildMerged, WithoutSetsThereIsNothingToMerge) {
  RunFronts fronts = with_sets(2);
  fronts.resize(0);
  EXPECT_TRUE(fronts.sets.empty());
  fronts.build_merged(flat(), 1);
  EXPECT_TRUE(fronts.merged.slots.empty());
}

TEST(ReferToPaddles, AWaveTooObliqueForThePaddlesBecomesParallelToThem) {
  // The water is deeper at the paddles, so k0 < k1, and sin(theta) k1 exceeds k0.
  RunFronts fronts = with_sets(1);
  FrontSet& set = fronts.sets[0];
  set.position = {15.0, 0.5, 0.0};
  set.add_front(3, {0.1, 1.2, 0.0});
  set.add_front(3, {0.1, -1.2, 0.0});
  set.add_front(3, {0.1, 1.9, 0.0});
  const TankRun tank(stepped(1.0, 0.2), fronts.run);
  const double k0 = knum(omega_of(3), 1.0, g);
  ASSERT_GT(std::sin(1.2) * knum(omega_of(3), 0.2, g), k0);
  refer_to_paddles(set, tank, 2.0);
  EXPECT_NEAR(set.slots[3][0].angle, pi / 2, 1e-12);
  EXPECT_NEAR(set.slots[3][0].phase, -1.5 * k0, 1e-12);
  EXPECT_NEAR(set.slots[3][1].angle, -pi / 2, 1e-12);
  EXPECT_NEAR(set.slots[3][1].phase, 1.5 * k0, 1e-12);
  EXPECT_NEAR(set.slots[3][2].angle, pi / 2, 1e-12);
}

TEST(ReferToPaddles, KeepsTheDirectionOfTravel) {
  RunFronts fronts = with_sets(1);
  FrontSet& set = fronts.sets[0];
  const std::vector<double> angles{0.0, 1.0, -1.0, 2.0, -2.0, 3.0, -3.0};
  for (const double angle : angles) set.add_front(10, {0.1, angle, 0.0});
  refer_to_paddles(set, TankRun(flat(), fronts.run), 0.0);
  for (std::size_t i = 0; i < angles.size(); ++i) {
    EXPECT_NEAR(set.slots[10][i].angle, angles[i], 1e-12);
  }
}

TEST(ReferToPaddles, RemovesTheTimeAndTheCrosswiseOffset) {
  RunFronts fronts = with_sets(1);
  FrontSet& set = fronts.sets[0];
  set.position = {0.0, 2.5, 0.3};
  set.add_front(10, {0.1, 0.4, 1.0});
  refer_to_paddles(set, TankRun(flat(), fronts.run), 4.0);
  const double ky = knum(omega_of(10), 1.0, g) * std::sin(0.4);
  EXPECT_NEAR(set.slots[10][0].phase, 1.0 - (1.5 * ky + omega_of(10) * 0.3), 1e-12);
  EXPECT_EQ(set.position.y, 2.5);
}

TEST(ApplyShoaling, DividesTheAmplitudeAndAddsTheWrappedLag) {
  RunFronts fronts = with_sets(1);
  FrontSet& set = fronts.sets[0];
  set.position.x = 15.0;
  set.add_front(10, {0.1, 0.2, 1.0});
  TankRun tank(stepped(1.0, 0.4), fronts.run);
  TankRun other = tank;
  apply_shoaling(set, tank, 3.0);
  const double lag = other.phase_lag(10, 15.0, 3.0, 0.2);
  EXPECT_NEAR(set.slots[10][0].amp, 0.1 / other.shoaling(10, 15.0), 1e-15);
  EXPECT_NEAR(turn_between(set.slots[10][0].phase, 1.0 + lag), 0.0, 1e-10);
  EXPECT_LT(std::fabs(set.slots[10][0].phase), 2 * pi);
  EXPECT_GT(lag, 2 * pi);
}

TEST(ApplyShoaling, KeepsTheSignOfThePhase) {
  RunFronts fronts = with_sets(1);
  FrontSet& set = fronts.sets[0];
  set.add_front(10, {0.1, 0.0, -7.0});
  set.add_front(10, {0.1, 0.0, 4.0});
  TankRun tank(flat(), fronts.run);
  apply_shoaling(set, tank, 0.0);
  EXPECT_NEAR(set.slots[10][0].phase, -7.0 + 2 * pi, 1e-14);
  EXPECT_EQ(set.slots[10][1].phase, 4.0);
}

}  // namespace
