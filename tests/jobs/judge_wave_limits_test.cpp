#include <cmath>
#include <vector>

#include "gtest/gtest.h"
#include "jobs/wave_limits.h"
#include "support/integral.h"
#include "support/wave_number.h"

namespace {

constexpr double g = 9.81;

std::vector<double> record(const std::function<double(double)>& surface, double rate, int n) {
  std::vector<double> samples;
  for (int i = 0; i < n; ++i) samples.push_back(surface(i / rate));
  return samples;
}

}  // namespace

TEST(WaveLimits, LengthInDeepAndInShallowWater) {
  EXPECT_NEAR(Jobs::wave_length(1.0, 100, g), g / (2 * M_PI), 1e-6);
  EXPECT_NEAR(Jobs::wave_length(0.01, 0.5, g), std::sqrt(g * 0.5) / 0.01, 0.1);
  EXPECT_NEAR(Jobs::wave_number(0.6, 0.7, g), Testing::exact_wave_number(1.2 * M_PI, 0.7), 1e-5);
  EXPECT_TRUE(std::isnan(Jobs::wave_number(NAN, 0.7, g)));
  EXPECT_TRUE(std::isnan(Jobs::wave_number(1.0, -1.0, g)));
}

// Green's law: in shallow water the variance falls with the square root of the depth.
TEST(WaveLimits, VarianceRatioFollowsGreensLaw) {
  EXPECT_NEAR(Jobs::variance_ratio(0.01, 0.8, 0.2, g), 2.0, 1e-3);
  EXPECT_EQ(Jobs::variance_ratio(0.6, 0.7, 0.7, g), 1.0);
}

TEST(WaveLimits, VarianceRatioConservesEnergyFlux) {
  const auto flux = [](double f, double depth) {
    const double k = Testing::exact_wave_number(2 * M_PI * f, depth);
    return 2 * M_PI * f / k / 2 * (1 + 2 * k * depth / std::sinh(2 * k * depth));
  };
  // The library's wave numbers are good to about 1e-5.
  EXPECT_NEAR(Jobs::variance_ratio(0.6, 0.7, 0.3, g), flux(0.6, 0.7) / flux(0.6, 0.3), 1e-4);
}

TEST(WaveLimits, MicheAndUrsell) {
  EXPECT_NEAR(Jobs::miche_limit(10, 10), 0.142, 1e-9);
  EXPECT_NEAR(Jobs::miche_limit(0.1, 1), 0.142 * 0.1, 1e-4);
  EXPECT_DOUBLE_EQ(Jobs::ursell_number(0.1, 4, 0.5), 0.1 * 16 / 0.125);
}

TEST(HighestWave, OfASineIsTwiceItsAmplitude) {
  const auto surface = [](double t) { return 0.05 * std::sin(2 * M_PI * 0.5 * t + 1); };
  const auto wave = Jobs::highest_wave(record(surface, 20, 400), 20);
  ASSERT_TRUE(wave);
  EXPECT_NEAR(wave->height, 0.1, 1e-5);
  EXPECT_NEAR(wave->period, 2, 1e-3);
}

TEST(HighestWave, IsFoundAcrossTheEndOfTheRecord) {
  // A group whose crest lies at time 0, where the record begins and ends.
  const auto surface = [](double t) {
    double sum = 0;
    for (int h = 15; h <= 25; ++h) sum += 0.01 * std::cos(2 * M_PI * h / 40 * t);
    return sum;
  };
  const auto wave = Jobs::highest_wave(record(surface, 50, 2000), 50);
  ASSERT_TRUE(wave);
  EXPECT_GT(wave->height, 0.11 + 0.05);  // the crest is 0.11
  EXPECT_NEAR(wave->period, 2, 0.2);
}

TEST(HighestWave, IsEmptyForStillWaterAndNaN) {
  EXPECT_FALSE(Jobs::highest_wave({}, 10));
  EXPECT_FALSE(Jobs::highest_wave({0, 0, 0, 0}, 10));
  EXPECT_FALSE(Jobs::highest_wave({1, -1, NAN, 1}, 10));
}

// A / theta = 2 sinh(kd) / (sinh(kd) cosh(kd) + kd) * k * integral of shape * cosh k(z + d): from
// the bed for the part that moves water, from the hinge for what is assumed.
TEST(BelowBedRatio, IsTheRatioOfTheTwoIntegrals) {
  const double d = 0.7;
  for (const double f : {0.3, 0.8}) {
    const double k = Testing::exact_wave_number(2 * M_PI * f, d);
    for (const bool flap : {true, false}) {
      const double edge = flap ? 0.9 : 0.8;
      const auto shape = [&](double z) { return (flap ? z + edge : 1) * std::cosh(k * (z + d)); };
      const double assumed = Testing::simpson(shape, -edge, 0, 2000);
      const double real = Testing::simpson(shape, -d, 0, 2000);
      EXPECT_NEAR(Jobs::below_bed_ratio(k, d, edge, flap), assumed / real, 1e-6);
    }
  }
  EXPECT_EQ(Jobs::below_bed_ratio(3, 0.7, 0.7, false), 1.0);
  EXPECT_EQ(Jobs::below_bed_ratio(3, 0.7, 0.5, true), 1.0);
}

// Three samples at 1 m and three at -1 m. The parabola through -1, 1 and 1 m has its vertex at
// 1.25 m.
TEST(HighestWave, OfARectangleIsFinite) {
  const auto wave = Jobs::highest_wave({1, 1, 1, -1, -1, -1}, 1);
  ASSERT_TRUE(wave);
  EXPECT_DOUBLE_EQ(wave->period, 6);
  EXPECT_DOUBLE_EQ(wave->height, 2.5);
}
