// The hot sum over a column, against the same sum written out point by point.
#include "animation/column_surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

using Synthesis::ColumnFront;
using Synthesis::ColumnSurface;
using Synthesis::GridAxis;

constexpr double two_pi = 2.0 * std::numbers::pi;

// Irregular numbers between -1 and 1, the same on each call.
double irregular(std::size_t i) { return std::sin(12.9898 * static_cast<double>(i + 1) * 4.7); }

std::vector<ColumnFront> sea(std::size_t bins, std::size_t fronts_per_bin) {
  std::vector<ColumnFront> fronts;
  for (std::size_t bin = 1; bin < bins; ++bin) {
    for (std::size_t i = 0; i < fronts_per_bin; ++i) {
      const std::size_t n = fronts.size() * 4;
      fronts.push_back({bin, 0.02 * irregular(n), 3.0 * irregular(n + 1), 80.0 * irregular(n + 2),
                        0.3 * static_cast<double>(bin) * irregular(n + 3)});
    }
  }
  return fronts;
}

// The height at one row and sample, front by front.
double height(const std::vector<ColumnFront>& fronts, double y, std::size_t t,
              std::size_t samples) {
  double sum = 0.0;
  for (const ColumnFront& front : fronts) {
    if (2 * front.bin > samples) continue;
    const double psi = front.phase - (y * front.ky + front.lag);
    const double turn =
        two_pi * static_cast<double>(front.bin * t % samples) / static_cast<double>(samples);
    // At half the sampling rate the sum holds the real part alone, as everywhere.
    sum += front.amp * (std::cos(psi) * std::cos(turn) - std::sin(psi) * std::sin(turn));
  }
  return sum;
}

struct Case {
  std::uint32_t samples;
  std::uint32_t rows;
  std::size_t bins;
  std::size_t fronts_per_bin;
};

TEST(ColumnSurface, EveryRowIsTheSumOfItsFronts) {
  const GridAxis axis{-7.3, 11.7, 0.19, 101};
  for (const Case& c : {Case{200, 101, 60, 5}, Case{37, 65, 40, 3}, Case{64, 1, 20, 2},
                        Case{1, 5, 1, 1}, Case{256, 63, 129, 1}}) {
    ColumnSurface surface(c.samples, c.rows, c.bins);
    ASSERT_GE(surface.block_rows(), 1u);
    ASSERT_LE(surface.block_rows(), c.rows);
    const std::vector<ColumnFront> fronts = sea(c.bins, c.fronts_per_bin);
    double peak = 0.0;
    double worst = 0.0;
    for (std::uint32_t first = 0; first < c.rows; first += surface.block_rows()) {
      const std::uint32_t rows = std::min(surface.block_rows(), c.rows - first);
      surface.sum(fronts, axis, first, rows);
      for (std::uint32_t row = 0; row < rows; ++row) {
        const std::vector<double>& series = surface.series(row);
        ASSERT_EQ(series.size(), c.samples);
        for (std::size_t t = 0; t < c.samples; ++t) {
          const double expected = height(fronts, axis.at(first + row), t, c.samples);
          peak = std::max(peak, std::abs(expected));
          worst = std::max(worst, std::abs(series[t] - expected));
        }
      }
    }
    EXPECT_LE(worst, 1e-12 * peak) << c.samples << " samples";
  }
}

TEST(ColumnSurface, ABlockForgetsTheOneBefore) {
  const GridAxis axis{0.0, 10.0, 1.0, 11};
  ColumnSurface surface(50, 11, 20);
  surface.sum(sea(20, 2), axis, 0, 11);
  surface.sum({}, axis, 0, 11);
  for (std::uint32_t row = 0; row < 11; ++row) {
    EXPECT_EQ(surface.series(row), std::vector<double>(50, 0.0));
  }
}

TEST(ColumnSurface, HarmonicsAboveHalfTheSamplingRateAreLeftOut) {
  const GridAxis axis{0.0, 0.0, 0.0, 1};
  ColumnSurface surface(10, 1, 9);
  surface.sum({{6, 1.0, 0.0, 0.0, 0.0}, {8, 1.0, 0.0, 0.0, 0.0}}, axis, 0, 1);
  EXPECT_EQ(surface.series(0), std::vector<double>(10, 0.0));
}

TEST(ColumnSurface, LongCyclesHaveSmallBlocks) {
  EXPECT_EQ(ColumnSurface(4096, 200, 100).block_rows(), 64u);
  EXPECT_EQ(ColumnSurface(1 << 19, 200, 100).block_rows(), 2u);
  EXPECT_EQ(ColumnSurface(1 << 21, 200, 100).block_rows(), 1u);
}

}  // namespace
