// The fast sum over a column against a plain sum, front by front.
#include "animation/column_surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

using Synthesis::ColumnFronts;
using Synthesis::ColumnSurface;
using Synthesis::GridAxis;

constexpr double two_pi = 2.0 * std::numbers::pi;

// Irregular numbers between -1 and 1, the same on each call.
double irregular(std::size_t i) { return std::sin(12.9898 * static_cast<double>(i + 1) * 4.7); }

struct Sea {
  Sea(std::size_t bins, std::size_t fronts_per_bin) {
    for (std::size_t bin = 1; bin < bins; ++bin) {
      for (std::size_t i = 0; i < fronts_per_bin; ++i) {
        const std::size_t n = amps.size() * 4;
        add(0.02 * irregular(n), 3.0 * irregular(n + 1), 80.0 * irregular(n + 2),
            0.3 * static_cast<double>(bin) * irregular(n + 3));
      }
      const double shoaling = 1.0 + 0.3 * irregular(bin);
      column.bins.push_back({bin, amps.size() - fronts_per_bin, amps.size(), shoaling});
    }
    column.amps = amps;
    column.phases = phases;
    column.lags = lags;
    column.ky = ky;
  }
  void add(double amp, double phase, double lag, double along_y) {
    amps.push_back(amp);
    phases.push_back(phase);
    lags.push_back(lag);
    ky.push_back(along_y);
  }

  std::vector<double> amps;
  std::vector<double> phases;
  std::vector<double> lags;
  std::vector<double> ky;
  ColumnFronts column;
};

// The heights of a row, front by front.
std::vector<double> heights(const ColumnFronts& fronts, double y, std::size_t samples) {
  std::vector<double> cosines(samples);
  std::vector<double> sines(samples);
  for (std::size_t i = 0; i < samples; ++i) {
    const double turn = two_pi * static_cast<double>(i) / static_cast<double>(samples);
    cosines[i] = std::cos(turn);
    sines[i] = std::sin(turn);
  }
  std::vector<double> sum(samples);
  for (const ColumnFronts::Bin& bin : fronts.bins) {
    if (2 * bin.bin > samples) continue;
    for (std::size_t f = bin.first; f < bin.last; ++f) {
      const double psi = fronts.phases[f] - (y * fronts.ky[f] + fronts.lags[f]);
      const double re = bin.shoaling * fronts.amps[f] * std::cos(psi);
      const double im = bin.shoaling * fronts.amps[f] * std::sin(psi);
      // At half the sampling rate every sine is 0, so that only the real part counts.
      for (std::size_t t = 0; t < samples; ++t) {
        const std::size_t i = bin.bin * t % samples;
        sum[t] += re * cosines[i] - im * sines[i];
      }
    }
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
    const Sea sea(c.bins, c.fronts_per_bin);
    surface.take_turns(sea.ky, axis.step);
    double peak = 0.0;
    double worst = 0.0;
    for (std::uint32_t first = 0; first < c.rows; first += surface.block_rows()) {
      const std::uint32_t rows = std::min(surface.block_rows(), c.rows - first);
      surface.sum(sea.column, axis, first, rows);
      for (std::uint32_t row = 0; row < rows; ++row) {
        const std::vector<double>& series = surface.series(row);
        ASSERT_EQ(series.size(), c.samples);
        const std::vector<double> expected = heights(sea.column, axis.at(first + row), c.samples);
        for (std::size_t t = 0; t < c.samples; ++t) {
          peak = std::max(peak, std::abs(expected[t]));
          worst = std::max(worst, std::abs(series[t] - expected[t]));
        }
      }
    }
    EXPECT_LE(worst, 1e-12 * peak) << c.samples << " samples";
  }
}

TEST(ColumnSurface, ALongCycleIsTheSumOfItsFronts) {
  constexpr std::uint32_t samples = 1u << 20;
  const GridAxis axis{-1.0, 1.0, 1.0, 3};
  ColumnSurface surface(samples, 1, 20);
  const Sea sea(20, 2);
  surface.sum(sea.column, axis, 2, 1);
  const std::vector<double>& series = surface.series(0);
  const std::vector<double> expected = heights(sea.column, 1.0, samples);
  ASSERT_EQ(series.size(), samples);
  double worst = 0.0;
  for (std::size_t t = 0; t < samples; ++t) {
    worst = std::max(worst, std::abs(series[t] - expected[t]));
  }
  EXPECT_LE(worst, 1e-12);
}

TEST(ColumnSurface, ABlockStartsFromZero) {
  const GridAxis axis{0.0, 10.0, 1.0, 11};
  ColumnSurface surface(50, 11, 20);
  const Sea sea(20, 2);
  surface.take_turns(sea.ky, axis.step);
  surface.sum(sea.column, axis, 0, 11);
  surface.sum({}, axis, 0, 11);
  for (std::uint32_t row = 0; row < 11; ++row) {
    EXPECT_EQ(surface.series(row), std::vector<double>(50, 0.0));
  }
}

TEST(ColumnSurface, HarmonicsAboveHalfTheSamplingRateAreIgnored) {
  const GridAxis axis{0.0, 0.0, 0.0, 1};
  ColumnSurface surface(10, 1, 9);
  Sea sea(9, 1);
  sea.column.bins.erase(sea.column.bins.begin(), sea.column.bins.begin() + 5);  // 6 to 8 remain
  surface.sum(sea.column, axis, 0, 1);
  EXPECT_EQ(surface.series(0), std::vector<double>(10, 0.0));
}

// The memory of a block must not grow with the cycle.
TEST(ColumnSurface, LongCyclesHaveSmallBlocks) {
  EXPECT_GT(ColumnSurface(4096, 200, 100).block_rows(), 1u);
  for (const std::uint32_t samples : {1u << 18, 1u << 19, 1u << 21}) {
    const std::uint32_t rows = ColumnSurface(samples, 200, 100).block_rows();
    EXPECT_GE(rows, 1u);
    EXPECT_TRUE(rows == 1 || rows * samples <= 1u << 20) << rows << " of " << samples;
  }
}

}  // namespace
