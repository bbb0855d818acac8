#include "point/surface_point.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <vector>

#include "base/units.h"
#include "support/test_site.h"
#include "support/thrown.h"
#include "test_waves.h"

namespace {

using Complex = std::complex<double>;
using Synthesis::PointSpec;
using Synthesis::smith_quotient;
using Testing::grid;
using Testing::nothing_thrown;
using Testing::thrown;
using Testing::wave_number;
using Testing::Waves;

constexpr double pi = std::numbers::pi;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

double k_of(double harmonic, double depth) { return wave_number(2 * pi * harmonic / 10, depth); }

TEST(SurfaceAt, AFrontArrivesWithThePhaseLagOfItsPath) {
  Waves waves;
  waves.fronts.add_front(8, {0.04, 0.3, 0.7});
  waves.fronts.add_front(8, {-0.02, 2.9, -1.0});
  const Base::Cvector out = waves.surface({6.0, -2.0, 200});
  const double k = k_of(8, 1.0);
  const auto arrived = [&](double amp, double angle, double phase) {
    return amp * std::exp(Complex(0, phase - k * (6.0 * std::cos(angle) - 2.0 * std::sin(angle))));
  };
  const Complex expected = arrived(0.04, 0.3, 0.7) + arrived(-0.02, 2.9, -1.0);
  for (std::size_t h = 0; h < out.data.size(); ++h) {
    EXPECT_NEAR(std::abs(out.data[h] - (h == 8 ? expected : 0.0)), 0.0, 1e-13) << h;
  }
}

TEST(SurfaceAt, TheResultHasTheHarmonicsOfTheSamples) {
  Waves waves;
  for (const std::uint32_t samples : {0u, 1u, 2u, 21u, 200u, 201u}) {
    const Base::Cvector out = waves.surface({1.0, 0.0, samples});
    EXPECT_EQ(out.label, "Data");
    EXPECT_EQ(out.units, Base::default_units(Base::Category::length));
    EXPECT_EQ(out.length, samples);
    EXPECT_EQ(out.data, std::vector<Complex>(samples / 2 + 1)) << samples;
    const Base::Vector angles = waves.directions({1.0, 0.0, samples});
    EXPECT_EQ(angles.label, "Data");
    EXPECT_EQ(angles.units, Base::default_units(Base::Category::angle));
    EXPECT_EQ(angles.length, samples / 2 + 1);
    EXPECT_EQ(angles.data, std::vector<double>(samples / 2 + 1)) << samples;
  }
}

TEST(SurfaceAt, HarmonicsAboveTheSamplesAreCut) {
  Waves waves;
  for (const std::uint64_t h : {9, 10, 11, 20}) waves.fronts.add_front(h, {0.04, 0.3, 0.0});
  const PointSpec point{0.0, 0.0, 20};
  const std::vector<Complex> elements = waves.surface(point).data;
  ASSERT_EQ(elements.size(), 11u);
  EXPECT_EQ(elements[9], 0.04);
  EXPECT_EQ(elements[10], 0.04);
  const std::vector<double> angles = waves.directions(point).data;
  ASSERT_EQ(angles.size(), 11u);
  EXPECT_NEAR(angles[10], 0.3, 1e-6);
}

TEST(SurfaceAt, APointOutsideTheTankIsRefusedIfThereAreFronts) {
  Waves waves(true);
  for (const double x : {20.001, -5.001, 1e300, nan, infinity}) {
    EXPECT_EQ(thrown([&] { waves.surface({x, 0.0, 200}); }), nothing_thrown) << x;
    EXPECT_EQ(thrown([&] { waves.directions({x, 0.0, 200}); }), nothing_thrown) << x;
  }
  waves.fronts.add_front(8, {0.04, 0.3, 0.7});
  const auto both = [&](double x, std::uint32_t samples, const std::string& text) {
    EXPECT_EQ(thrown([&] { waves.surface({x, 0.0, samples}); }), text) << x;
    EXPECT_EQ(thrown([&] { waves.directions({x, 0.0, samples}); }), text) << x;
  };
  both(20.001, 200, "Value x=20.001 is outside dimensions of tank");
  both(-5.001, 200, "Value x=-5.001 is outside dimensions of tank");
  both(nan, 200, "Value x=nan is outside dimensions of tank");
  both(infinity, 200, "Value x=inf is outside dimensions of tank");
  both(20.0, 200, nothing_thrown);
  both(-5.0, 200, nothing_thrown);
  // The harmonic of the front is cut off.
  both(20.001, 15, nothing_thrown);
}

TEST(SurfaceAt, TheTankMayEndBeforeItsProfile) {
  Waves waves;
  waves.fronts.add_front(8, {0.04, 0.0, 0.0});
  waves.tank.profile.back().x = 30.0;
  EXPECT_EQ(thrown([&] {
              waves.surface({25.0, 0.0, 200});
            }),
            "Value x=25 is outside dimensions of tank");
}

TEST(SurfaceAt, AFrontOfZeroAmplitudeIsIgnored) {
  Waves waves;
  waves.fronts.slots[8] = {{0.0, pi / 2, nan}, {0.04, 0.3, 0.0}};
  waves.fronts.slots[9] = {{0.0, pi / 2, nan}};
  const PointSpec point{3.0, 1.0, 200};
  const Base::Cvector out = waves.surface(point);
  EXPECT_NEAR(std::abs(out.data[8]), 0.04, 1e-15);
  EXPECT_EQ(out.data[9], 0.0);
  EXPECT_NEAR(waves.directions(point).data[8], 0.3, 1e-6);
  EXPECT_EQ(waves.directions(point).data[9], 0.0);
}

TEST(DirectionAt, OfAPlaneWaveIsItsOwnDirection) {
  Waves waves;
  for (int degree = -179; degree <= 180; ++degree) {
    const double angle = degree * pi / 180;
    for (const PointSpec& point :
         {PointSpec{0, 0, 200}, PointSpec{0, 3, 200}, PointSpec{7.3, -4.1, 200}}) {
      EXPECT_NEAR(std::remainder(waves.direction(angle, point) - angle, 2 * pi), 0.0, 1e-6)
          << degree;
    }
  }
}

TEST(DirectionAt, OnASlopeIsTheDirectionAtThePaddleLine) {
  Waves waves(true);
  for (int degree = -80; degree <= 80; degree += 5) {
    const double angle = degree * pi / 180;
    EXPECT_NEAR(waves.direction(angle, {15.0, 2.0, 200}), angle, 1e-6);
  }
}

// The direction of a wave of amplitude 1 along x and one of amplitude `side` along y, both with a
// crest at the point, from steps that turn a phase by `turn`.
double crossing(double side, double turn) {
  const double along = std::atan2(std::sin(turn), side + std::cos(turn));
  const double across = std::atan2(side * std::sin(turn), 1 + side * std::cos(turn));
  return std::atan2(across, along);
}

TEST(DirectionAt, OfCrossingSeasLiesBetween) {
  Waves waves;
  waves.fronts.slots[8] = {{1.0, 0.0, 0.0}, {1.0, pi / 2, 0.0}};
  EXPECT_NEAR(waves.directions({0, 0, 200}).data[8], pi / 4, 1e-12);
  waves.fronts.slots[8] = {{1.0, 0.5, 0.0}, {1.0, -0.5, 0.0}};
  EXPECT_NEAR(waves.directions({0, 0, 200}).data[8], 0.0, 1e-12);
  EXPECT_NEAR(waves.directions({9, 0, 200}).data[8], 0.0, 1e-12);
  waves.fronts.slots[8] = {{1.0, 0.0, 0.0}, {0.4, pi / 2, 0.0}};
  EXPECT_NEAR(waves.directions({0, 0, 200}).data[8], crossing(0.4, 0.1), 1e-12);
}

TEST(DirectionAt, TheStepIsATenthOfARadianInTheLocalWaveNumber) {
  Waves waves(true);
  const double x = 15.0;
  const double local = k_of(8, 0.5);
  // Both waves start with their own lag, so that both have a crest at the point.
  Maths::TankRun way(waves.tank, grid());
  waves.fronts.slots[8] = {{1.0, 0.0, way.phase_lag(8, x, 0.0, 0.0)},
                           {0.4, 0.5, way.phase_lag(8, x, 0.0, 0.5)}};
  const auto expected = [&](double k0) {
    const double turn = 0.1 * k0 / local;
    const Complex z = 1.4;
    const Complex zx = std::polar(1.0, turn) + std::polar(0.4, turn * std::cos(0.5));
    const Complex zy = 1.0 + std::polar(0.4, turn * std::sin(0.5));
    return std::atan2(std::arg(zy / z), std::arg(zx / z));
  };
  // The wave number at the paddle line is taken at the profile's first depth until the shoaling at
  // some point has been computed. Hosts rely on it.
  EXPECT_NEAR(waves.directions({x, 0.0, 200}).data[8], expected(k_of(8, 0.4)), 1e-9);
  Maths::TankRun run(waves.tank, grid());
  run.shoaling(8, x);
  Base::Vector out;
  Synthesis::direction_at(out, waves.fronts, run, {x, 0.0, 200});
  EXPECT_NEAR(out.data[8], expected(k_of(8, 1.0)), 1e-9);
  EXPECT_GT(std::abs(expected(k_of(8, 1.0)) - expected(k_of(8, 0.4))), 1e-7);
}

TEST(DirectionAt, ANodeOfStandingWavesHasDirectionZero) {
  Waves waves;
  waves.fronts.slots[8] = {{0.04, 0.0, 0.7}, {-0.04, pi, 0.7}};
  const PointSpec node{0, 0, 200};
  ASSERT_EQ(waves.surface(node).data[8], 0.0);
  EXPECT_EQ(waves.directions(node).data[8], 0.0);
  EXPECT_FALSE(std::signbit(waves.directions(node).data[8]));
}

TEST(DirectionAt, ANanPlaceHasDirectionZero) {
  Waves waves;
  EXPECT_EQ(waves.direction(0.3, {1.0, nan, 200}), 0.0);
  EXPECT_TRUE(std::isnan(waves.surface({1.0, nan, 200}).data[8].real()));
}

TEST(SmithQuotient, DividesAsDefined) {
  for (int i = 0; i < 400; ++i) {
    const Complex a(std::sin(3.0 * i), std::cos(5.0 * i));
    const Complex b = std::polar(0.1 + i, 0.7 * i);
    const Complex expected = a * std::conj(b) / std::norm(b);
    EXPECT_NEAR(std::abs(smith_quotient(a, b) - expected), 0.0, 1e-14 * std::abs(expected));
  }
  EXPECT_EQ(smith_quotient({1, 2}, {2, 0}), Complex(0.5, 1));
  EXPECT_EQ(smith_quotient({1, 2}, {0, 2}), Complex(1, -0.5));
}

TEST(SmithQuotient, NeitherOverflowsNorUnderflows) {
  for (const double scale : {1e300, 1e-300}) {
    EXPECT_EQ(smith_quotient({scale, scale}, {scale, scale}), Complex(1, 0));
    EXPECT_EQ(smith_quotient({scale, 0}, {0, -scale}), Complex(0, 1));
  }
}

TEST(SmithQuotient, AnInfiniteOrNanPartAndADivisorOfZeroGiveNan) {
  const auto expect_nan = [](Complex a, Complex b) {
    const Complex q = smith_quotient(a, b);
    EXPECT_TRUE(std::isnan(q.real()) && std::isnan(q.imag())) << a << " / " << b;
  };
  expect_nan({1, 1}, {0, 0});
  expect_nan({1, 1}, {-0.0, 0});
  for (const double bad : {nan, infinity, -infinity}) {
    expect_nan({bad, 1}, {1, 1});
    expect_nan({1, bad}, {1, 1});
    expect_nan({1, 1}, {bad, 1});
    expect_nan({1, 1}, {1, bad});
  }
}

}  // namespace
