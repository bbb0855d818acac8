#include <cmath>
#include <limits>

#include "gtest/gtest.h"
#include "jobs/density_moments.h"
#include "jobs/sea_moments.h"
#include "jobs/spectrum_peak.h"
#include "support/integral.h"
#include "support/sea_states.h"

using Jobs::density_moments;
using Jobs::Moments;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
const Testing::SeaState storm{0.08, 0.625};

Jobs::Density pierson_moskowitz(const Testing::SeaState& sea) {
  return [sea](double f) { return sea.pierson_moskowitz(f); };
}

}  // namespace

// S = A f^-5 exp(-B f^-4) has the moments A / 4 B^(n/4 - 1) Gamma(1 - n/4).
TEST(DensityMoments, AreThoseOfPiersonMoskowitzInClosedForm) {
  const double B = 1.25 * std::pow(storm.fp, 4);
  const double A = 5.0 / 16 * storm.hs * storm.hs * std::pow(storm.fp, 4);
  const auto closed = [&](double n) {
    return A / 4 * std::pow(B, n / 4 - 1) * std::tgamma(1 - n / 4);
  };
  const Moments m = density_moments(pierson_moskowitz(storm), 0, infinity, {}, {storm.fp});
  EXPECT_NEAR(m.inverse / closed(-1), 1, 1e-6);
  EXPECT_NEAR(m.m0 / closed(0), 1, 1e-6);
  EXPECT_NEAR(m.first / closed(1), 1, 1e-6);
  EXPECT_NEAR(m.second / closed(2), 1, 1e-6);
  EXPECT_NEAR(Jobs::hm0(m.m0), 0.08, 1e-7);
  EXPECT_NEAR(Jobs::tm02(m), std::sqrt(closed(0) / closed(2)), 1e-6);
}

TEST(DensityMoments, NeedNoHintOfThePeak) {
  const Moments m = density_moments(pierson_moskowitz(storm), 0, infinity, {}, {});
  EXPECT_NEAR(m.m0 / (0.08 * 0.08 / 16), 1, 1e-6);
}

TEST(DensityMoments, OfABandAreThoseOfTheClosedForm) {
  const Moments m = density_moments(pierson_moskowitz(storm), 0.35, 1.4, {}, {storm.fp});
  EXPECT_NEAR(m.m0 / storm.pierson_moskowitz(0.35, 1.4), 1, 1e-6);
}

TEST(DensityMoments, OfAJonswapSeaAgreeWithSimpsonsRule) {
  const auto density = [](double f) { return storm.jonswap(f); };
  const Moments m = density_moments(density, 0.35, 1.4, {storm.fp}, {storm.fp});
  EXPECT_NEAR(m.m0 / storm.jonswap(0.35, 1.4), 1, 1e-6);
}

TEST(DensityMoments, OfAConstantDensityBetweenJumps) {
  const auto band = [](double f) { return f > 0.5 && f < 1.5 ? 2.0 : 0.0; };
  const Moments m = density_moments(band, 0, infinity, {0.5, 1.5}, {});
  EXPECT_NEAR(m.inverse, 2 * std::log(3.0), 1e-6);
  EXPECT_NEAR(m.m0, 2, 1e-6);
  EXPECT_NEAR(m.first, 2, 1e-6);  // 2 (1.5^2 - 0.5^2) / 2
  EXPECT_NEAR(m.second, 2 * (std::pow(1.5, 3) - std::pow(0.5, 3)) / 3, 1e-6);
}

TEST(DensityMoments, OfAnEndAtAnEnormousFrequency) {
  // The square of 1e160 Hz is infinite.
  const auto band = [](double f) { return f > 0.5 && f < 1.5 ? 2.0 : 0.0; };
  const Moments m = density_moments(band, 0, infinity, {0.5, 1.5, 1e160}, {});
  EXPECT_NEAR(m.m0, 2, 1e-6);
  EXPECT_NEAR(m.second, 2 * (std::pow(1.5, 3) - std::pow(0.5, 3)) / 3, 1e-6);
}

TEST(DensityMoments, FindAVeryNarrowPeak) {
  const double sigma = 0.002;
  const auto swell = [&](double f) { return std::exp(-std::pow((f - 0.5) / sigma, 2) / 2); };
  const Moments m = density_moments(swell, 0, infinity, {}, {0.5});
  EXPECT_NEAR(m.m0 / (sigma * std::sqrt(2 * M_PI)), 1, 1e-6);
}

TEST(DensityMoments, ThatAreInfiniteAreNaN) {
  const auto tail = [](double f) { return f < 1 ? 0 : std::pow(f, -3); };
  const Moments m = density_moments(tail, 0, infinity, {1.0}, {});
  EXPECT_NEAR(m.m0, 0.5, 1e-5);
  EXPECT_NEAR(m.first, 1, 1e-4);
  EXPECT_TRUE(std::isnan(m.second));
}

TEST(DensityMoments, OfADensityThatIsNotFiniteAreNaN) {
  const Moments m = density_moments([](double f) { return f > 1 ? NAN : 1.0; }, 0, 2, {}, {});
  EXPECT_TRUE(std::isnan(m.m0));
}

TEST(DensityPeak, OfPiersonMoskowitzAndItsHalfPowerWidth) {
  const auto peak = Jobs::density_peak(pierson_moskowitz(storm), 0, 3, {0.6});
  ASSERT_TRUE(peak);
  EXPECT_NEAR(peak->frequency, storm.fp, 1e-6);
  // x^-5 exp(1.25 (1 - x^-4)) is the density relative to that of the peak.
  const auto root = [](double inside, double outside) {
    for (int i = 0; i < 100; ++i) {
      const double x = (inside + outside) / 2;
      const double s = std::pow(x, -5) * std::exp(1.25 * (1 - std::pow(x, -4)));
      (s >= 0.5 ? inside : outside) = x;
    }
    return inside;
  };
  EXPECT_NEAR(peak->width, (root(1, 2) - root(1, 0.5)) * storm.fp, 1e-6);
}

TEST(DensityPeak, OfANarrowSwell) {
  const double sigma = 0.0005;
  const auto swell = [&](double f) { return std::exp(-std::pow((f - 0.5) / sigma, 2) / 2); };
  const auto peak = Jobs::density_peak(swell, 0, 3, {0.5});
  ASSERT_TRUE(peak);
  EXPECT_NEAR(peak->frequency, 0.5, 1e-6);
  EXPECT_NEAR(peak->width, 2 * sigma * std::sqrt(2 * std::log(2.0)), 1e-8);
}

TEST(DensityPeak, IsEmptyWithoutWavesAndForNaN) {
  EXPECT_FALSE(Jobs::density_peak([](double) { return 0.0; }, 0, 3, {}));
  EXPECT_FALSE(Jobs::density_peak([](double) { return NAN; }, 0, 3, {1.0}));
  EXPECT_FALSE(Jobs::density_peak([](double) { return 1.0; }, 2, 2, {}));
}

TEST(SmoothedPeak, IsTheCentreOfASymmetricalHump) {
  std::vector<double> hump(101, 0.0);
  for (int h = 40; h <= 60; ++h) hump[static_cast<std::size_t>(h)] = 11 - std::abs(h - 50);
  EXPECT_NEAR(Jobs::smoothed_peak(hump, 5).value(), 50, 1e-9);
}

TEST(SmoothedPeak, IgnoresASingleHighHarmonic) {
  std::vector<double> hump(101, 0.0);
  for (int h = 40; h <= 60; ++h) hump[static_cast<std::size_t>(h)] = 11 - std::abs(h - 50);
  hump[80] = 14;  // above every other harmonic, but alone
  EXPECT_EQ(Jobs::greatest_harmonic(hump).value(), 80);
  EXPECT_NEAR(Jobs::smoothed_peak(hump, 8).value(), 50, 1e-9);
}

TEST(SmoothedPeak, ReachesDownToTheMean) {
  EXPECT_EQ(Jobs::smoothed_peak({4, 4, 0}, 1).value(), 0.5);
}

TEST(SmoothedPeak, IsEmptyForStillWater) {
  EXPECT_FALSE(Jobs::smoothed_peak({0, 0, 0}, 2));
  EXPECT_FALSE(Jobs::smoothed_peak({}, 2));
  EXPECT_EQ(Jobs::smoothed_peak({0, 3}, 0.1).value(), 1);
}

TEST(DensityMoments, HintsThatAreNoFrequenciesAreIgnored) {
  const Moments m =
      density_moments(pierson_moskowitz(storm), 0, infinity, {0.0}, {0.0, -1.0, infinity});
  EXPECT_NEAR(m.m0 / (0.08 * 0.08 / 16), 1, 1e-6);
}

TEST(DensityMoments, OfAnEmptyBandAreZero) {
  const Moments m = density_moments(pierson_moskowitz(storm), 2, 1, {}, {});
  EXPECT_EQ(m.m0, 0);
  EXPECT_EQ(m.second, 0);
}

TEST(DensityPeak, MayLieAtAnEndOfTheRange) {
  const auto falling = Jobs::density_peak([](double f) { return 1 / f; }, 1, 4, {});
  ASSERT_TRUE(falling);
  EXPECT_NEAR(falling->frequency, 1, 1e-9);
  EXPECT_NEAR(falling->width, 1, 1e-9);  // down to 1/2 at 2 Hz
  const auto rising = Jobs::density_peak([](double f) { return f; }, 1, 4, {});
  ASSERT_TRUE(rising);
  EXPECT_NEAR(rising->frequency, 4, 1e-9);
  EXPECT_NEAR(rising->width, 2, 1e-9);
  const auto level = Jobs::density_peak([](double) { return 1.0; }, 1, 4, {});
  ASSERT_TRUE(level);
  EXPECT_NEAR(level->width, 3, 1e-9);
}

TEST(DensityPeak, IsEmptyForAnInfiniteDensity) {
  EXPECT_FALSE(Jobs::density_peak([](double) { return infinity; }, 1, 4, {}));
}

TEST(SmoothedPeak, OfEqualHarmonicsIsTheirCentre) {
  EXPECT_EQ(Jobs::smoothed_peak({1, 1, 1, 1, 1}, 1), 2.0);
}
