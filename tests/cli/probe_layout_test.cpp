// The noise gain of probe layouts, against closed forms.
#include "cli/probe_layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

namespace {

constexpr double k = 2.0;  // rad/m
constexpr double length = 2.0 * std::numbers::pi / k;

// The gain of the fundamental is 1 / sqrt(1 - |S/N|^2), with S the sum of exp(2iks) over N probes.
double closed_form(const std::vector<double>& positions) {
  std::complex<double> sum;
  for (const double s : positions) sum += std::polar(1.0, 2.0 * k * s);
  const double ratio = std::abs(sum) / static_cast<double>(positions.size());
  return 1.0 / std::sqrt(1.0 - ratio * ratio);
}

TEST(LayoutGain, IsOneForProbesASixthOfAWaveLengthApart) {
  const auto gain = Cli::layout_gain({0.0, length / 6, length / 3}, k, 3.9 * k);
  EXPECT_NEAR(gain.fundamental, 1.0, 1e-12);
  EXPECT_FALSE(gain.fundamental_solved);  // the library's equations have no first pivot there
}

TEST(LayoutGain, FollowsTheClosedForm) {
  for (const std::vector<double>& positions : {std::vector<double>{0.0, 0.3, 0.75},
                                               {0.0, 0.3, 0.75, 1.35, 2.1},
                                               {1.0, 1.0 + 0.45 * length}}) {
    const auto gain = Cli::layout_gain(positions, k, 3.9 * k);
    EXPECT_NEAR(gain.fundamental, closed_form(positions), 1e-9);
    EXPECT_TRUE(gain.fundamental_solved);
  }
}

// Goda and Suzuki (1976) recommend spacings of 0.05 to 0.45 wave lengths between two probes.
TEST(LayoutGain, IsAboutThreeAtTheLimitsOfGodaAndSuzuki) {
  const double expected = 1.0 / std::sin(0.9 * std::numbers::pi);
  EXPECT_NEAR(Cli::layout_gain({0.0, 0.45 * length}, k, 3.9 * k).fundamental, expected, 1e-9);
  EXPECT_NEAR(Cli::layout_gain({0.0, 0.05 * length}, k, 3.9 * k).fundamental, expected, 1e-9);
}

TEST(LayoutGain, GrowsWithoutBoundTowardsHalfAWaveLength) {
  EXPECT_GT(Cli::layout_gain({0.0, 0.5 * length, length}, k, 3.9 * k).fundamental, 1e3);
}

TEST(LayoutGain, GrowsWhereBoundAndFreeWavesHaveTheSameLength) {
  const std::vector<double> positions{0.0, 0.3, 0.75, 1.35, 2.1};
  EXPECT_LT(Cli::layout_gain(positions, k, 3.9 * k).harmonic, 5.0);
  EXPECT_GT(Cli::layout_gain(positions, k, 2.02 * k).harmonic, 20.0);
}

}  // namespace
