#include <cmath>
#include <vector>

#include "gtest/gtest.h"
#include "jobs/direction_stats.h"
#include "jobs/signal_stats.h"

using Jobs::DirectionStats;
using Jobs::SignalStats;

namespace {

// Whole periods of A sin(2 pi f t + phase).
std::vector<double> sine(double amplitude, double f, double rate, int periods, double phase = 0) {
  std::vector<double> samples(static_cast<std::size_t>(std::lround(periods / f * rate)));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = amplitude * std::sin(2 * M_PI * f * static_cast<double>(i) / rate + phase);
  }
  return samples;
}

}  // namespace

TEST(SignalStats, OfASineAreThoseOfItsDerivatives) {
  SignalStats stats;
  stats.add(sine(0.1, 0.5, 50, 8), 50);
  const double w = M_PI;  // rad/s
  EXPECT_NEAR(stats.stroke.value, 0.1, 1e-9);
  EXPECT_NEAR(stats.stroke.rms, 0.1 / std::sqrt(2), 1e-9);
  EXPECT_NEAR(stats.velocity.value, 0.1 * w, 1e-7);
  EXPECT_NEAR(stats.velocity.rms, 0.1 * w / std::sqrt(2), 1e-7);
  EXPECT_NEAR(stats.acceleration.value, 0.1 * w * w, 1e-7);
  EXPECT_NEAR(stats.acceleration.rms, 0.1 * w * w / std::sqrt(2), 1e-7);
  EXPECT_NEAR(stats.highest, 0.1, 1e-9);
  EXPECT_NEAR(stats.lowest, -0.1, 1e-9);
}

TEST(SignalStats, AreExactToAThousandthForEightSamplesPerWave) {
  SignalStats stats;
  stats.add(sine(1, 1, 8, 16, 0.3), 8);
  EXPECT_NEAR(stats.velocity.rms * std::sqrt(2) / (2 * M_PI), 1, 1e-3);
  EXPECT_NEAR(stats.acceleration.rms * std::sqrt(2) / (4 * M_PI * M_PI), 1, 1e-3);
}

TEST(SignalStats, NameTheWorstSignalAndSample) {
  SignalStats stats;
  stats.add(sine(0.1, 0.5, 50, 8), 50);
  std::vector<double> push(400, 0.0);
  push[123] = -0.3;
  stats.add(push, 50);
  EXPECT_EQ(stats.stroke.signal, 1u);
  EXPECT_EQ(stats.stroke.sample, 123u);
  EXPECT_DOUBLE_EQ(stats.stroke.value, 0.3);
  EXPECT_DOUBLE_EQ(stats.lowest, -0.3);
  EXPECT_NEAR(stats.stroke.rms, 0.1 / std::sqrt(2), 1e-9);  // still that of the first signal
}

TEST(SignalStats, MeasureTheStepAtTheEnd) {
  SignalStats stats;
  stats.add({1, 2, 3, 4}, 1);
  EXPECT_DOUBLE_EQ(stats.first, 1);
  EXPECT_DOUBLE_EQ(stats.end_step, 3);
  EXPECT_DOUBLE_EQ(stats.largest_step, 1);
  EXPECT_EQ(stats.end_step_signal, 0u);
  stats.add({1, 2, 3}, 1);
  EXPECT_EQ(stats.end_step_signal, 0u);
  stats.add({1, 3, 5}, 1);
  EXPECT_DOUBLE_EQ(stats.end_step, 4);
  EXPECT_EQ(stats.end_step_signal, 2u);
}

TEST(SignalStats, AcceptSignalsOfAnyLength) {
  SignalStats stats;
  stats.add({}, 10);
  stats.add({0.5}, 10);
  stats.add({0.5, -0.5}, 10);
  EXPECT_EQ(stats.signals, 3u);
  EXPECT_DOUBLE_EQ(stats.stroke.value, 0.5);
}

TEST(DirectionStats, OfTwoEqualWavesFollowFromTheAngleBetweenThem) {
  DirectionStats stats;
  stats.add(0.2 + 0.3, 2.0);
  stats.add(0.2 - 0.3, 2.0);
  EXPECT_NEAR(stats.mean(), 0.2, 1e-12);
  EXPECT_NEAR(stats.r1(), std::cos(0.3), 1e-12);
  EXPECT_NEAR(stats.spread(), std::sqrt(2 * (1 - std::cos(0.3))), 1e-12);
  EXPECT_NEAR(stats.effective_waves(), 2, 1e-12);
}

TEST(DirectionStats, DoNotBreakWhereTheAngleWraps) {
  DirectionStats stats;
  stats.add(M_PI - 0.1, 1.0);
  stats.add(-M_PI + 0.1, 1.0);
  EXPECT_NEAR(std::fabs(stats.mean()), M_PI, 1e-12);
}

TEST(DirectionStats, WeightByVariance) {
  DirectionStats stats;
  stats.add(0.0, 3.0);
  stats.add(M_PI / 2, 1.0);
  EXPECT_NEAR(stats.mean(), std::atan2(1, 3), 1e-12);
  EXPECT_NEAR(stats.r1(), std::sqrt(10) / 4, 1e-12);
}

TEST(DirectionStats, IgnoreNaNAndStillWater) {
  DirectionStats stats;
  EXPECT_EQ(stats.mean(), 0.0);
  EXPECT_EQ(stats.spread(), 0.0);
  stats.add(NAN, 1.0);
  stats.add(0.3, NAN);
  EXPECT_EQ(stats.variance, 0.0);
}
