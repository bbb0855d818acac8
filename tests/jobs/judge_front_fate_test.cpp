#include <cmath>
#include <vector>

#include "gtest/gtest.h"
#include "jobs/front_fate.h"
#include "jobs/made_surface.h"
#include "support/integral.h"
#include "support/wave_number.h"

using Jobs::FrontFates;
using Jobs::WavePath;
using Maths::TransferFront;

namespace {

constexpr double degree = M_PI / 180;

// 2 m of water up to x = 10, then a slope to 0.2 m at x = 30; a repeat of 32 s, so that harmonic 32
// has 1 Hz.
WavePath sloping_path(bool dalrymple = false) {
  WavePath path;
  path.tank.g = 9.81;
  path.tank.x_low = 0;
  path.tank.x_high = 40;
  path.tank.paddle_depth = 2;
  path.tank.profile = {{2, 0}, {2, 10}, {0.2, 30}, {0.2, 40}};
  path.tank.min_angle = -60 * degree;
  path.tank.max_angle = 60 * degree;
  path.tank.width = 20;
  path.run.init(32, 50, 0.1, 2, dalrymple);
  path.banks = {{0.3, {{0.0, 20}}}};
  path.last_harmonic = 64;
  return path;
}

double k_of(std::uint64_t harmonic, double depth) {
  return Testing::exact_wave_number(2 * M_PI * static_cast<double>(harmonic) / 32, depth);
}

double flux_of(std::uint64_t harmonic, double depth) {
  const double k = k_of(harmonic, depth);
  return (1 + 2 * k * depth / std::sinh(2 * k * depth)) / k;
}

FrontFates fates_of(const std::vector<TransferFront>& fronts, const WavePath& path,
                    const Maths::Position& position = {5, 0, 0}) {
  FrontFates fates = Jobs::no_fronts(path);
  Jobs::add_fronts(fronts, position, path, fates);
  return fates;
}

double half_square(double a) { return a * a / 2; }

}  // namespace

TEST(FrontFate, AFrontWithinAllLimitsIsMade) {
  const WavePath path = sloping_path();
  const FrontFates fates = fates_of({{0.03, 0.4, 1.0, 32}}, path);
  EXPECT_NEAR(fates.asked, half_square(0.03), 1e-15);
  EXPECT_NEAR(fates.made[32], half_square(0.03), 1e-15);
  EXPECT_NEAR(fates.made_total(), half_square(0.03), 1e-15);
  EXPECT_NEAR(fates.made_directions.mean(), 0.4, 1e-9);
  EXPECT_NEAR(fates.refracted, fates.made_total(), 1e-12);
}

TEST(FrontFate, AFrontOutsideTheLimitsIsLost) {
  const FrontFates fates =
      fates_of({{0.03, 20 * degree, 0, 32}, {-0.01, 70 * degree, 0, 32}}, sloping_path());
  EXPECT_NEAR(fates.outside_limits, half_square(0.01), 1e-15);
  EXPECT_NEAR(fates.made_total(), half_square(0.03), 1e-15);
  EXPECT_EQ(fates.turned, 0);
}

TEST(FrontFate, AFrontTooObliqueForItsPlaceIsTurned) {
  // At x = 35 the water is 0.2 m deep. A wave that leaves the paddles at 90 degrees arrives there
  // with the sine k0 / k1.
  const double limit = std::asin(k_of(16, 2) / k_of(16, 0.2));
  const WavePath path = sloping_path();
  const Maths::Position shallow{35, 0, 0};
  FrontFates fates = fates_of({{0.01, limit + 0.01, 0, 16}}, path, shallow);
  EXPECT_GT(fates.turned, 0);
  EXPECT_EQ(fates.turned, fates.asked);
  // Less oblique, but still outside the limits at the paddles.
  fates = fates_of({{0.01, limit - 0.01, 0, 16}}, path, shallow);
  EXPECT_EQ(fates.turned, 0);
  EXPECT_EQ(fates.outside_limits, fates.asked);
}

TEST(FrontFate, WithoutLimitsSuchAFrontIsMadeInAnotherDirection) {
  WavePath path = sloping_path();
  path.tank.max_angle = 120 * degree;
  path.banks.push_back({0.1, {{M_PI / 2, 20}}});
  const double limit = std::asin(k_of(16, 2) / k_of(16, 0.2));
  const FrontFates fates = fates_of({{0.01, limit + 0.01, 0, 16}}, path, {35, 0, 0});
  EXPECT_EQ(fates.turned, 0);
  EXPECT_EQ(fates.redirected, fates.asked);
  EXPECT_NEAR(fates.made_total() / fates.asked, 1, 1e-9);
  EXPECT_NEAR(fates.made_directions.mean(), M_PI / 2, 1e-6);
}

TEST(FrontFate, RefractsTheDirectionByTheLawOfSnell) {
  WavePath path = sloping_path();
  path.x = 35;
  const double at_paddles = 40 * degree;
  const double arriving = std::asin(std::sin(at_paddles) * k_of(16, 2) / k_of(16, 0.2));
  const FrontFates fates = fates_of({{0.01, at_paddles, 0, 16}}, path);
  EXPECT_NEAR(fates.asked_directions.mean(), at_paddles, 1e-12);
  EXPECT_NEAR(fates.made_directions.mean(), arriving, 1e-4);
  EXPECT_NEAR(fates.refracted / fates.made_total(), std::cos(at_paddles) / std::cos(arriving),
              1e-4);
}

TEST(FrontFate, VariancesAreThoseAtTheReferencePoint) {
  WavePath path = sloping_path();
  path.x = 35;
  const FrontFates fates = fates_of({{0.01, 0, 0, 16}}, path);
  EXPECT_NEAR(fates.asked / half_square(0.01), flux_of(16, 2) / flux_of(16, 0.2), 1e-4);
}

TEST(FrontFate, AWaveThatDeeperWaterTurnsBackIsNotFinite) {
  // From 0.2 m at the paddles through 2 m to 0.2 m: the sine in the middle would be above 1.
  WavePath path = sloping_path();
  path.tank.paddle_depth = 0.2;
  path.tank.profile = {{0.2, 0}, {2, 10}, {2, 20}, {0.2, 30}, {0.2, 40}};
  const FrontFates fates = fates_of({{0.01, 50 * degree, 0, 16}}, path, {35, 0, 0});
  EXPECT_GT(std::sin(50 * degree) * k_of(16, 0.2) / k_of(16, 2), 1);
  EXPECT_EQ(fates.not_finite, fates.asked);
  EXPECT_GT(fates.asked, 0);
}

TEST(FrontFate, HarmonicsAboveHalfTheRateAreLost) {
  WavePath path = sloping_path();
  path.last_harmonic = 40;
  const FrontFates fates = fates_of({{0.03, 0, 0, 40}, {0.02, 0, 0, 41}}, path);
  EXPECT_NEAR(fates.above_half_rate, half_square(0.02), 1e-15);
  EXPECT_NEAR(fates.made_total(), half_square(0.03), 1e-15);
}

TEST(FrontFate, WidePaddlesWithholdShortObliqueWaves) {
  WavePath path = sloping_path();
  const double width = 0.5;
  path.banks = {{width, {{0.0, 20}}}};
  const double k = k_of(48, 2);  // 1.5 Hz, 4.5 rad per paddle
  const double limit = std::asin(M_PI / (k * width));
  ASSERT_LT(limit, 55 * degree);
  const FrontFates fates =
      fates_of({{0.03, limit - 0.01, 0, 48}, {0.02, limit + 0.01, 0, 48}}, path);
  ASSERT_EQ(fates.withheld.size(), 1u);
  EXPECT_NEAR(fates.withheld[0], half_square(0.02), 1e-15);
  EXPECT_NEAR(fates.made_total(), half_square(0.03), 1e-15);
}

TEST(FrontFate, EachBankHasTheShareThatEntersThroughIt) {
  WavePath path = sloping_path();
  path.tank.max_angle = 180 * degree;
  path.tank.min_angle = -180 * degree;
  // 10 narrow paddles along x, and 5 wide ones along y that withhold the wave.
  path.banks = {{0.1, {{0.0, 10}}}, {0.8, {{M_PI / 2, 5}}}};
  const double angle = 20 * degree;
  ASSERT_GT(M_PI / 2 - angle, std::asin(M_PI / (k_of(48, 2) * 0.8)));
  const FrontFates fates = fates_of({{0.03, angle, 0, 48}}, path);
  const double first = 10 * 0.1 * std::cos(angle);
  const double second = 5 * 0.8 * std::sin(angle);
  EXPECT_EQ(fates.withheld[0], 0);
  EXPECT_NEAR(fates.withheld[1] / fates.asked, second / (first + second), 1e-12);
  EXPECT_NEAR(fates.made_total() / fates.asked, first / (first + second), 1e-12);
}

TEST(FrontFate, AWaveTowardsThePaddlesIsNotMade) {
  WavePath path = sloping_path();
  path.tank.max_angle = 180 * degree;
  path.tank.min_angle = -180 * degree;
  const FrontFates fates = fates_of({{0.03, 170 * degree, 0, 32}}, path);
  EXPECT_EQ(fates.behind, fates.asked);
  EXPECT_EQ(fates.made_total(), 0);
}

// Parseval: what the modes that propagate do not carry.
TEST(FrontFate, ModesThatDoNotPropagateAreLost) {
  WavePath path = sloping_path(true);
  path.tank.has_walls = true;
  const double width = 2.5;
  path.tank.width = width;
  path.banks = {{0.05, {{0.0, 50}}}};
  const double k = k_of(32, 2);
  const double theta = 55 * degree;
  const double ky = k * std::sin(theta);
  double kept = 0;
  for (int m = 0; m * M_PI / width <= k; ++m) {
    const auto part = [&](double (*wave)(double)) {
      const auto product = [&](double y) { return wave(ky * y) * std::cos(m * M_PI * y / width); };
      return Testing::simpson(product, 0, width, 4000) * (m == 0 ? 1 : 2) / width;
    };
    const double c = part(std::cos);
    const double s = part(std::sin);
    kept += (c * c + s * s) * (m == 0 ? 1 : 0.5);
  }
  ASSERT_LT(kept, 0.999);
  const FrontFates fates = fates_of({{0.03, theta, 0, 32}}, path);
  EXPECT_NEAR(fates.evanescent / fates.asked, 1 - kept, 1e-5);
  EXPECT_NEAR(fates.made_total() / fates.asked, kept, 1e-5);
}

TEST(FrontFate, FrontsThatAreNotFiniteAreCountedApart) {
  const FrontFates fates =
      fates_of({{NAN, 0, 0, 20}, {0.01, 0, INFINITY, 21}, {0.01, 0, 0, 22}}, sloping_path());
  EXPECT_EQ(fates.undefined, 2u);
  EXPECT_EQ(fates.undefined_harmonic, 20u);
  EXPECT_NEAR(fates.asked, half_square(0.01), 1e-15);
}

TEST(FrontFate, APositionOutsideTheTankIsRefused) {
  EXPECT_THROW(fates_of({{0.01, 0, 0, 20}}, sloping_path(), {50, 0, 0}), std::string);
}

TEST(FrontFate, WavesTowardsThePaddlesAreTurnedOnEitherSide) {
  WavePath path = sloping_path();
  path.tank.max_angle = 180 * degree;
  path.tank.min_angle = -180 * degree;
  path.banks = {{0.3, {{180 * degree, 20}}}};  // paddles at the other end, which face back
  const FrontFates left = fates_of({{0.03, 150 * degree, 0, 32}}, path, {25, 0, 0});
  const FrontFates right = fates_of({{0.03, -150 * degree, 0, 32}}, path, {25, 0, 0});
  EXPECT_GT(left.made_total(), 0);
  EXPECT_NEAR(left.made_total(), right.made_total(), 1e-15);
  EXPECT_NEAR(left.made_directions.mean(), -right.made_directions.mean(), 1e-12);
}

TEST(FrontFate, BetweenWallsAWaveAlongTheTankStaysOne) {
  WavePath path = sloping_path(true);
  path.tank.has_walls = true;
  EXPECT_DOUBLE_EQ(fates_of({{0.03, 0, 0, 32}}, path).made_total(), half_square(0.03));
  // So many modes that the library makes none of them: the wave is taken as it is.
  path.tank.width = 1e6;
  const FrontFates wide = fates_of({{0.03, 30 * degree, 0, 32}}, path);
  EXPECT_EQ(wide.evanescent, 0);
  EXPECT_NEAR(wide.asked, half_square(0.03), 1e-15);
}

TEST(FrontFate, BetweenWallsAWaveTowardsThePaddlesIsNotMade) {
  WavePath path = sloping_path(true);
  path.tank.has_walls = true;
  path.tank.max_angle = 180 * degree;
  path.tank.min_angle = -180 * degree;
  for (const double angle : {150.0, -150.0}) {
    const FrontFates fates = fates_of({{0.03, angle * degree, 0, 32}}, path);
    EXPECT_EQ(fates.made_total(), 0) << angle;
    EXPECT_NEAR((fates.behind + fates.evanescent) / fates.asked, 1, 1e-9) << angle;
  }
}

TEST(FrontFate, ADirectionThatIsNaNIsUndefined) {
  EXPECT_EQ(fates_of({{0.01, NAN, 0, 20}}, sloping_path()).undefined, 1u);
}

// 1 m of water at the paddles, at the sea and at the reference point, and 5 m between the two.
TEST(FrontFate, AWaveThatTurnsBackBeforeTheReferencePointIsNotFinite) {
  WavePath path = sloping_path();
  path.tank.paddle_depth = 1;
  path.tank.profile = {{1, 0}, {1, 5}, {5, 10}, {5, 20}, {1, 25}, {1, 40}};
  path.x = 30;
  // Harmonic 10 has 0.3125 Hz.
  const double turns = std::asin(k_of(10, 5) / k_of(10, 1));
  ASSERT_LT(turns, 55 * degree);
  EXPECT_EQ(fates_of({{0.03, turns - 0.05, 0, 10}}, path, {2, 0, 0}).not_finite, 0);
  const FrontFates fates = fates_of({{0.03, turns + 0.05, 0, 10}}, path, {2, 0, 0});
  EXPECT_GT(fates.not_finite, 0);
  EXPECT_EQ(fates.not_finite, fates.asked);
}

TEST(PaddleShares, WithoutPaddlesAWaveIsTakenAsMade) {
  WavePath path = sloping_path();
  path.banks.clear();
  EXPECT_EQ(Jobs::paddle_shares(path, 32, 0.1).made, 1.0);
}

TEST(MadeSurface, IgnoresFrontsThatAreNaNZeroOrOutsideTheRun) {
  const WavePath path = sloping_path();
  std::vector<Synthesis::Front> fronts = {{1.0, 0.03, 0.1, 0.2}};
  const auto surface = Jobs::made_surface(fronts, path, 5, 1);
  fronts.emplace_back(0.5, NAN, 0.0, 0.0);
  fronts.emplace_back(0.5, 0.01, 0.0, NAN);
  fronts.emplace_back(0.5, 0.0, 0.0, 0.0);
  fronts.emplace_back(5.0, 0.01, 0.0, 0.0);  // above the highest harmonic, 2 Hz
  EXPECT_EQ(Jobs::made_surface(fronts, path, 5, 1), surface);
  EXPECT_NEAR(std::abs(surface[32]), 0.03, 1e-12);
}
