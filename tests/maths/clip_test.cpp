#include "maths/clip.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/thrown.h"

namespace {

using Maths::clip_report;
using Maths::clip_scan;
using Maths::ClipPeak;
using Maths::ClipStats;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Base::Vector signal(std::vector<double> data) {
  Base::Vector vector;
  vector.length = data.size();
  vector.data = std::move(data);
  return vector;
}

// Half waves start at 1, 5, 8 and 10; the last one wraps round the end. The first two exceed 1.
const std::vector<double> four_half_waves{-0.5, 0.5,  2.0,  1.5,  0.5,   -0.5,
                                          -3.0, -0.5, 0.25, 0.25, -0.25, -0.25};

TEST(ClipScan, CountsHalfWavesAndTheirEnergy) {
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks(3);
  clip_scan(signal(four_half_waves), stats, peaks);
  EXPECT_EQ(stats.half_waves, 4u);
  EXPECT_EQ(stats.clipped_half_waves, 2u);
  EXPECT_DOUBLE_EQ(stats.total_energy, 6.75 + 9.5 + 0.125 + 0.375);
  EXPECT_DOUBLE_EQ(stats.clipped_energy, (1 - 0.25) * 6.75 + (1 - 1.0 / 9) * 9.5);
  ASSERT_EQ(peaks.size(), 2u);
  EXPECT_EQ(peaks[0].index, 2u);
  EXPECT_TRUE(peaks[0].positive);
  EXPECT_EQ(peaks[0].ratio, 0.5);
  EXPECT_EQ(peaks[1].index, 6u);
  EXPECT_FALSE(peaks[1].positive);
  EXPECT_EQ(peaks[1].ratio, 1.0 / 3.0);
}

TEST(ClipScan, TotalsAccumulateOverSignals) {
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks;
  clip_scan(signal(four_half_waves), stats, peaks);
  const double clipped = stats.clipped_energy;
  clip_scan(signal(four_half_waves), stats, peaks);
  EXPECT_EQ(stats.half_waves, 8u);
  EXPECT_EQ(stats.clipped_half_waves, 4u);
  EXPECT_DOUBLE_EQ(stats.total_energy, 2 * 16.75);
  EXPECT_DOUBLE_EQ(stats.clipped_energy, 2 * clipped);
  EXPECT_EQ(peaks.size(), 2u);  // of the last signal only
}

TEST(ClipScan, ASignalWithoutASignChangeIsNotCounted) {
  for (const auto& data : std::vector<std::vector<double>>{
           {}, {5.0}, {0.0, 0.0, 0.0}, {5.0, 3.0, 5.0}, {-5.0, 0.0, -3.0}, {nan, nan}}) {
    ClipStats stats;
    stats.limit = 1.0;
    std::vector<ClipPeak> peaks(1);
    clip_scan(signal(data), stats, peaks);
    EXPECT_EQ(stats.half_waves, 0u);
    EXPECT_EQ(stats.total_energy, 0.0);
    EXPECT_TRUE(peaks.empty());
  }
}

TEST(ClipScan, ASampleAtTheLimitIsNotClipped) {
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks;
  clip_scan(signal({1.0, -1.0}), stats, peaks);
  EXPECT_EQ(stats.half_waves, 2u);
  EXPECT_EQ(stats.clipped_half_waves, 0u);
  // A sample at the limit does not end a peak above it.
  clip_scan(signal({-0.5, 2.0, 1.0, 3.0, 0.5, -0.5}), stats, peaks);
  ASSERT_EQ(peaks.size(), 1u);
  EXPECT_EQ(peaks[0].index, 3u);
}

TEST(ClipScan, ZeroIsNotPositive) {
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks;
  clip_scan(signal({-0.5, 0.5, 0.0, 0.5}), stats, peaks);
  EXPECT_EQ(stats.half_waves, 4u);
  clip_scan(signal({0.0, 0.5}), stats, peaks);
  EXPECT_EQ(stats.half_waves, 6u);
}

TEST(ClipScan, AFlatPeakIsReportedAtItsFirstSample) {
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks;
  clip_scan(signal({-0.5, 2.0, 2.0, 0.5}), stats, peaks);
  ASSERT_EQ(peaks.size(), 1u);
  EXPECT_EQ(peaks[0].index, 1u);
}

TEST(ClipScan, TheLastPeakOfAHalfWaveDeterminesItsClippedEnergy) {
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks;
  clip_scan(signal({-0.5, 4.0, 0.5, 2.0, 0.5, -0.5}), stats, peaks);
  ASSERT_EQ(peaks.size(), 2u);
  EXPECT_EQ(peaks[0].ratio, 0.25);
  EXPECT_EQ(peaks[1].ratio, 0.5);
  EXPECT_EQ(stats.clipped_half_waves, 1u);
  EXPECT_DOUBLE_EQ(stats.clipped_energy, 0.75 * (16.0 + 0.25 + 4.0 + 0.25));
}

TEST(ClipScan, APeakThatContinuesAtTheEndIsNotReported) {
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks;
  clip_scan(signal({5.0, -0.5, 0.5, 5.0}), stats, peaks);
  EXPECT_TRUE(peaks.empty());
  EXPECT_EQ(stats.half_waves, 2u);
  EXPECT_EQ(stats.clipped_half_waves, 0u);
  EXPECT_DOUBLE_EQ(stats.total_energy, 0.25 + 50.25);
}

TEST(ClipScan, ACrossingDirectlyAfterAPeakIsUnmatched) {
  // The sample that ends the peak already has the other sign, and the scan stops there.
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks;
  EXPECT_EQ(thrown([&] {
              clip_scan(signal({-0.5, 5.0}), stats, peaks);
            }),
            "Unmatched zero crossings");
}

TEST(ClipReport, ReportsTheRatios) {
  ClipStats stats;
  stats.limit = 1.0;
  std::vector<ClipPeak> peaks;
  clip_scan(signal(four_half_waves), stats, peaks);
  Base::Params params;
  clip_report(stats, params);
  ASSERT_EQ(params.entries().size(), 2u);
  EXPECT_DOUBLE_EQ(params.get("clip_power_ratio", ""), (0.75 * 6.75 + 8.0 / 9.0 * 9.5) / 16.75);
  EXPECT_DOUBLE_EQ(params.get("clip_peak_ratio", ""), 0.5);
}

TEST(ClipReport, IsEmptyWithoutClipping) {
  ClipStats stats;
  stats.limit = 10.0;
  std::vector<ClipPeak> peaks;
  clip_scan(signal(four_half_waves), stats, peaks);
  Base::Params params;
  clip_report(stats, params);
  EXPECT_EQ(stats.half_waves, 4u);
  EXPECT_TRUE(params.entries().empty());
}

}  // namespace
