#include "maths/dalrymple.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <vector>

#include "maths/dispersion.h"
#include "simpson.h"
#include "support/thrown.h"

namespace {

using Maths::dalrymple;
using Maths::dalrymple_angles;
using Maths::FrontSet;
using Maths::HarmonicFront;
using Maths::TankRun;
using Testing::nothing_thrown;
using Testing::thrown;
using Complex = std::complex<double>;

constexpr double pi = std::numbers::pi;
constexpr double g = 9.81;
constexpr double depth = 1.0;
constexpr Complex i_unit(0.0, 1.0);

// A flat tank, and harmonics 1 to 40 of 10 s.
TankRun flat_tank() {
  Maths::TankConfig tank;
  tank.g = g;
  tank.x_high = 30.0;
  tank.paddle_depth = depth;
  tank.profile = {{depth, 0.0}, {depth, 30.0}};
  Maths::RunData run;
  run.init(10.0, 100.0, 0.1, 4.0, true);
  return {tank, run};
}

// The library's wave number, which dispersion_test.cpp proves.
double wave_number(std::size_t harmonic) {
  return Maths::knum(2 * pi * static_cast<double>(harmonic) / 10.0, depth, g);
}

FrontSet one_slot(std::size_t slot, std::vector<HarmonicFront> fronts) {
  FrontSet set;
  set.reset(41);
  set.slots[slot] = std::move(fronts);
  return set;
}

// The share of a front in the mode cos(m pi (y + W/2) / W) of a tank from -W/2 to W/2: the
// projection of exp(i ky y), divided between the two mirror images of the mode. The phase of the
// image at +q is that at y = 0.
Complex projected(double ky, double width, int m) {
  const double q = m * pi / width;
  const auto inner = [&](double y) {
    return std::exp(i_unit * (ky * y)) * std::cos(q * (y + width / 2));
  };
  return simpson(inner, -width / 2, width / 2, 4000) / width * std::exp(i_unit * (m * pi / 2));
}

// The amplitude of the crosswise slope of the surface at (0, y), divided by i.
Complex slope_across(const std::vector<HarmonicFront>& fronts, double k, double y) {
  Complex sum;
  for (const HarmonicFront& front : fronts) {
    const double ky = k * std::sin(front.angle);
    sum += front.amp * ky * std::exp(i_unit * (front.phase - ky * y));
  }
  return sum;
}

TEST(DalrympleAngles, AreTheProjectionsOnTheModesOfTheWidth) {
  const double k = 5.0;
  for (const double width : {2.0, 3.3}) {
    const int modes = static_cast<int>(k * width / pi) + 1;
    for (const double theta : {-1.3, -0.5, 0.2, 0.9, 1.5}) {
      std::vector<double> c(static_cast<std::size_t>(modes));
      dalrymple_angles(k, width, theta, c);
      for (int m = 0; m < modes; ++m) {
        const Complex expected = projected(k * std::sin(theta), width, m);
        EXPECT_NEAR(c[static_cast<std::size_t>(m)], expected.real(), 1e-10)
            << width << " " << theta << " " << m;
        EXPECT_NEAR(expected.imag(), 0.0, 1e-10);
      }
    }
  }
}

TEST(DalrympleAngles, AWaveAlongTheTankIsTheFirstModeOnly) {
  std::vector<double> c(4);
  dalrymple_angles(5.0, 2.0, 0.0, c);
  EXPECT_EQ(c[0], 1.0);
  for (std::size_t m = 1; m < c.size(); ++m) EXPECT_EQ(c[m], 0.0);
}

TEST(DalrympleAngles, AWaveAtTheAngleOfAModeIsHalfOfItsPair) {
  const double k = 5.0;
  const double width = 2.0;
  std::vector<double> c(4);
  for (std::size_t m = 1; m <= 3; ++m) {
    const double theta = std::asin(static_cast<double>(m) * pi / (k * width));
    dalrymple_angles(k, width, theta, c);
    EXPECT_EQ(c[m], 0.5);
    EXPECT_NEAR(projected(k * std::sin(theta), width, static_cast<int>(m)).real(), 0.5, 1e-10);
    // Modes at an even distance have no share.
    for (std::size_t n = m % 2; n < c.size(); n += 2) {
      EXPECT_NEAR(c[n], n == m ? 0.5 : 0.0, 1e-12) << m << " " << n;
    }
    // The mirror image also has the positive half, although its projection may be negative.
    dalrymple_angles(k, width, -theta, c);
    EXPECT_EQ(c[m], 0.5);
  }
}

TEST(DalrympleAngles, NearTheAngleOfAModeTheLimitIsUsed) {
  // |ky| below 1e-6, in a tank so wide that the phase still changes across it.
  const double wide = 1e5;
  std::vector<double> first(1);
  dalrymple_angles(1.0, wide, 0.9e-6, first);
  EXPECT_EQ(first[0], 1.0);
  dalrymple_angles(1.0, wide, 1.1e-6, first);
  EXPECT_NEAR(first[0], std::sin(0.055) / 0.055, 1e-12);

  // ky^2 within 1e-6 of that of the mode.
  const double k = 2.0;
  const double width = 4.0;
  const double q = pi / width;
  std::vector<double> c(2);
  for (const double sign : {-1.0, 1.0}) {
    dalrymple_angles(k, width, std::asin(std::sqrt(q * q + sign * 0.9e-6) / k), c);
    EXPECT_EQ(c[1], 0.5);
    const double ky = std::sqrt(q * q + sign * 1.1e-6);
    dalrymple_angles(k, width, std::asin(ky / k), c);
    EXPECT_NEAR(c[1], projected(ky, width, 1).real(), 1e-9);
    EXPECT_GT(std::fabs(c[1] - 0.5), 1e-7);
  }
}

TEST(DalrympleAngles, RefusesEvanescentModes) {
  std::vector<double> c(4);
  EXPECT_EQ(thrown([&] { dalrymple_angles(5.0, 1.8, 0.3, c); }),
            "Too many mode in angle set for dalrymple_angles");
  EXPECT_EQ(thrown([&] { dalrymple_angles(5.0, 1.9, 0.3, c); }), nothing_thrown);
  std::vector<double> none;
  dalrymple_angles(5.0, 1.9, 0.3, none);
  EXPECT_TRUE(none.empty());
}

TEST(Dalrymple, AForwardFrontIsReplacedByTheModesOfTheTank) {
  const double width = 3.0;
  const std::size_t slot = 10;
  const double k = wave_number(slot);
  const auto N = static_cast<std::size_t>(k * width / pi);
  ASSERT_EQ(N, 3u);
  FrontSet set = one_slot(slot, {{0.2, 0.6, 0.9}});
  dalrymple(set, flat_tank(), width);
  const std::vector<HarmonicFront>& fronts = set.slots[slot];
  ASSERT_EQ(fronts.size(), 2 * N + 1);
  for (std::size_t m = 0; m <= N; ++m) {
    const Complex mode = 0.2 * std::exp(i_unit * 0.9) *
                         projected(k * std::sin(0.6), width, static_cast<int>(m)).real();
    const double angle = std::asin(static_cast<double>(m) * pi / (k * width));
    const HarmonicFront& front = fronts[m == 0 ? 0 : 2 * m - 1];
    EXPECT_NEAR(front.amp, std::abs(mode), 1e-10);
    EXPECT_NEAR(front.angle, angle, 1e-12);
    EXPECT_NEAR(front.phase, std::arg(mode), 1e-9);
    if (m == 0) continue;
    const HarmonicFront& image = fronts[2 * m];
    EXPECT_NEAR(image.amp, m % 2 == 1 ? -std::abs(mode) : std::abs(mode), 1e-10);
    EXPECT_NEAR(image.angle, -angle, 1e-12);
    EXPECT_EQ(image.phase, front.phase);
  }
}

TEST(Dalrymple, NoWaterFlowsThroughTheWalls) {
  const double width = 5.0;
  const std::size_t slot = 12;
  const double k = wave_number(slot);
  FrontSet set = one_slot(slot, {{0.2, 0.6, 0.9}, {0.1, -0.3, 2.0}, {0.3, 2.4, 1.0}});
  EXPECT_GT(std::abs(slope_across(set.slots[slot], k, width / 2)), 0.1);
  dalrymple(set, flat_tank(), width);
  EXPECT_NEAR(std::abs(slope_across(set.slots[slot], k, width / 2)), 0.0, 1e-12);
  EXPECT_NEAR(std::abs(slope_across(set.slots[slot], k, -width / 2)), 0.0, 1e-12);
}

TEST(Dalrymple, BackwardFrontsFollowTheForwardOnes) {
  const double width = 3.0;
  const std::size_t slot = 10;
  const double k = wave_number(slot);
  const std::size_t N = 3;
  const double back = 2.5;
  FrontSet set = one_slot(slot, {{0.2, 0.6, 0.9}, {0.1, back, 0.4}});
  dalrymple(set, flat_tank(), width);
  const std::vector<HarmonicFront>& fronts = set.slots[slot];
  ASSERT_EQ(fronts.size(), 2 * (2 * N + 1));
  const std::size_t b = 2 * N + 1;
  for (std::size_t m = 0; m <= N; ++m) {
    const Complex mode = 0.1 * std::exp(i_unit * 0.4) *
                         projected(k * std::sin(-back), width, static_cast<int>(m)).real();
    const HarmonicFront& front = fronts[m == 0 ? b : b + 2 * m - 1];
    EXPECT_NEAR(front.amp, std::abs(mode), 1e-10);
    EXPECT_NEAR(front.phase, std::arg(mode), 1e-9);
    if (m == 0) {
      EXPECT_NEAR(front.angle, pi, 1e-15);
      continue;
    }
    const double angle = std::asin(static_cast<double>(m) * pi / (k * width)) - pi;
    EXPECT_NEAR(front.angle, angle, 1e-12);
    EXPECT_NEAR(fronts[b + 2 * m].angle, -angle, 1e-12);
    EXPECT_NEAR(fronts[b + 2 * m].amp, m % 2 == 1 ? -std::abs(mode) : std::abs(mode), 1e-10);
  }
}

TEST(Dalrymple, TheModesFollowTheDepthAtThePaddles) {
  Maths::TankConfig tank = flat_tank().tank();
  tank.profile = {{depth, 0.0}, {0.05, 30.0}};
  FrontSet set = one_slot(10, {{0.2, 0.6, 0.9}});
  dalrymple(set, TankRun(tank, flat_tank().run()), 3.0);
  ASSERT_EQ(set.slots[10].size(), 7u);
  EXPECT_NEAR(set.slots[10][1].angle, std::asin(pi / (wave_number(10) * 3.0)), 1e-12);
}

TEST(Dalrymple, BackwardFrontsMayBeTheOnlyOnes) {
  FrontSet set = one_slot(10, {{0.1, -2.5, 0.4}});
  dalrymple(set, flat_tank(), 3.0);
  ASSERT_EQ(set.slots[10].size(), 7u);
  EXPECT_NEAR(set.slots[10][0].angle, pi, 1e-15);
}

TEST(Dalrymple, ASingleFrontAlongTheTankIsNotChanged) {
  FrontSet set = one_slot(10, {{0.1, 0.9e-6, 0.4}});
  dalrymple(set, flat_tank(), 3.0);
  ASSERT_EQ(set.slots[10].size(), 1u);
  EXPECT_EQ(set.slots[10][0].angle, 0.9e-6);
  EXPECT_TRUE(set.slots[9].empty());
  // A larger angle and a second front are treated.
  set = one_slot(10, {{0.1, 1.1e-6, 0.4}});
  dalrymple(set, flat_tank(), 3.0);
  EXPECT_EQ(set.slots[10].size(), 7u);
  set = one_slot(10, {{0.1, 0.0, 0.4}, {0.2, 0.0, 0.4}});
  dalrymple(set, flat_tank(), 3.0);
  ASSERT_EQ(set.slots[10].size(), 7u);
  EXPECT_NEAR(set.slots[10][0].amp, 0.3, 1e-15);
}

TEST(Dalrymple, ANarrowTankAdmitsOnlyTheWaveAlongIt) {
  const double width = 0.5;
  const std::size_t slot = 10;
  const double k = wave_number(slot);
  ASSERT_LT(k * width, pi);
  FrontSet set = one_slot(slot, {{0.1, 0.5, 0.4}, {0.2, -0.3, 0.4}});
  dalrymple(set, flat_tank(), width);
  ASSERT_EQ(set.slots[slot].size(), 1u);
  const auto mean = [&](double theta) {
    const double v = k * std::sin(theta) * width / 2;
    return std::sin(v) / v;
  };
  EXPECT_NEAR(set.slots[slot][0].amp, 0.1 * mean(0.5) + 0.2 * mean(0.3), 1e-14);
  EXPECT_EQ(set.slots[slot][0].angle, 0.0);
  EXPECT_NEAR(set.slots[slot][0].phase, 0.4, 1e-14);

  set = one_slot(slot, {{0.1, 0.5, 0.4}, {0.2, 3.0, 1.4}});
  dalrymple(set, flat_tank(), width);
  ASSERT_EQ(set.slots[slot].size(), 2u);
  EXPECT_NEAR(set.slots[slot][1].angle, pi, 1e-15);
  EXPECT_NEAR(set.slots[slot][1].amp, 0.2 * mean(3.0), 1e-14);
}

TEST(Dalrymple, AModeAtItsCutOffHasAnAngle) {
  // At some widths only rounding takes m pi / kW above 1.
  const std::size_t slot = 20;
  const double k = wave_number(slot);
  int found = 0;
  for (int N = 1; N < 400; ++N) {
    double width = N * pi / k;
    for (int ulp = 0; ulp < 4; ++ulp) width = std::nextafter(width, 0.0);
    for (int ulp = 0; ulp < 8; ++ulp) {
      width = std::nextafter(width, 1e9);
      const double kW = k * width;
      if (std::floor(kW / pi) != N || !(N * pi / kW > 1.0) || (pi / kW) * N > 1.0) continue;
      ++found;
      FrontSet set = one_slot(slot, {{0.1, 0.5, 0.4}});
      dalrymple(set, flat_tank(), width);
      ASSERT_EQ(set.slots[slot].size(), 2u * static_cast<unsigned>(N) + 1);
      EXPECT_NEAR(set.slots[slot].back().angle, -pi / 2, 1e-7);
    }
  }
  EXPECT_GT(found, 0);
}

TEST(Dalrymple, RefusesAWidthWithAnUnusableNumberOfModes) {
  for (const double width : {1e9, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
    FrontSet set = one_slot(10, {{0.1, 0.5, 0.4}});
    const std::string message = thrown([&] { dalrymple(set, flat_tank(), width); });
    EXPECT_TRUE(
        message.starts_with("Dalrymple treatment::unusable number of modes for k * width = "))
        << message;
  }
}

}  // namespace
