// Frames against the surface summed wave by wave.
#include <cmath>
#include <numbers>

#include "support/test_surface.h"
#include "test_animation.h"

namespace {

using Testing::AnimatedSea;
using Testing::Given;
using Testing::GridText;
using Testing::SiteText;
using Testing::sloping_site;

constexpr double two_pi = 2.0 * std::numbers::pi;

// Counts of a height, not rounded.
double counts(double height) { return height / 4.0 * 32767.0; }

std::vector<Synthesis::Front> displayed(const AnimatedSea& sea) {
  std::vector<Synthesis::Front> fronts;
  sea.fronts.display_fronts(fronts, sea.run);
  return fronts;
}

// Three fronts per harmonic in many directions, one of them backwards.
Given wild_sea() {
  Given fronts;
  for (std::uint64_t h = 1; h <= 20; ++h) {
    for (int i = 0; i < 3; ++i) {
      const double s = static_cast<double>(h) + 0.31 * i;
      // No more than 0.8 rad, so that no wave is turned back.
      const double angle = 0.8 * std::sin(7.0 * s) + (i == 2 ? std::numbers::pi : 0.0);
      fronts.push_back({h, {0.06 * std::sin(3.0 * s), angle, 3.0 * std::cos(5.0 * s)}});
    }
  }
  return fronts;
}

// Expects the samples to be the rounded sums of the fronts. Checks some of them.
void expect_sum(AnimatedSea& sea, const GridText& grid) {
  const std::vector<Synthesis::Front> fronts = displayed(sea);
  const std::uint32_t columns = sea.frames().size(1);
  const std::uint32_t rows = sea.frames().size(2);
  const double x_step = (grid.x_max - grid.x_min) / (columns - 1);
  const double y_step = (grid.y_max - grid.y_min) / (rows - 1);
  double peak = 0.0;
  for (std::uint32_t ix = 0; ix < columns; ix += 3) {
    const auto arrivals = Testing::arrivals(sea.tank(), fronts, ix * x_step + grid.x_min);
    for (std::uint32_t iy = 0; iy < rows; iy += 2) {
      for (std::uint32_t t = 0; t < 100; t += 9) {
        const double y = iy * y_step + grid.y_min;
        const double expected = counts(Testing::surface(arrivals, y, t / 10.0));
        const double found = sea.frames().data(t)[rows * ix + iy];
        // Half a count of rounding.
        EXPECT_NEAR(found, expected, 0.5 + 1e-6) << ix << " " << iy << " " << t;
        peak = std::max(peak, std::abs(expected));
      }
    }
  }
  EXPECT_GT(peak, 2000.0);
  EXPECT_LT(peak, 32767.0);
}

TEST(AnimateSurface, EveryPointIsTheSumOfTheFrontsOverAFlatBottom) {
  AnimatedSea sea(wild_sea());
  GridText grid;
  grid.y_step = 0.05;  // more rows than a block has
  sea.build(grid);
  EXPECT_EQ(sea.frames().size(2), 81u);
  expect_sum(sea, grid);
}

TEST(AnimateSurface, EveryPointIsTheSumOfTheFrontsOverASlope) {
  AnimatedSea sea(wild_sea(), sloping_site());
  GridText grid;
  grid.x_max = 30.0;
  grid.y_min = 3.0;
  grid.y_max = 11.0;
  sea.build(grid);
  expect_sum(sea, grid);
}

TEST(AnimateSurface, AStraightSeaIsTheSumOfItsFronts) {
  Given fronts = wild_sea();
  for (auto& [slot, front] : fronts) front.angle = 0.0;
  AnimatedSea sea(fronts, sloping_site());
  GridText grid;
  grid.x_max = 30.0;
  sea.build(grid);
  expect_sum(sea, grid);
}

TEST(AnimateSurface, TheAxisMayLieOutsideTheGrid) {
  for (const double y_min : {-9.0, 1.0, -8.02}) {
    AnimatedSea sea(wild_sea());
    GridText grid;
    grid.x_step = 2.0;
    grid.y_step = 0.1;
    grid.y_min = y_min;
    grid.y_max = y_min + 8.0;
    sea.build(grid);
    EXPECT_EQ(sea.frames().size(2), 81u);
    EXPECT_EQ(sea.frames().progress(), 1.0);
    expect_sum(sea, grid);
  }
}

TEST(AnimateSurface, HalfACountIsRoundedAwayFromZero) {
  // Two metres are 16383.5 counts.
  for (const double y_min : {-2.0, -9.0, 0.0}) {
    for (double angle = -0.75; angle < 0.8; angle += 0.15) {
      AnimatedSea sea({{5, {1.0, angle, 0.0}}, {8, {1.0, -angle, 0.0}}});
      GridText grid;
      grid.x_step = 5.0;
      grid.y_step = 0.1;
      grid.y_min = y_min;
      sea.build(grid);
      const double row = -y_min / 0.1;
      EXPECT_EQ(sea.frames().data(0)[static_cast<std::size_t>(std::round(row))], 16384) << angle;
    }
  }
}

TEST(AnimateSurface, AWaveOverDeepWaterTravelsAtItsPhaseSpeed) {
  SiteText text;
  text.depths = {"30@m"};
  AnimatedSea sea({{10, {1.0, 0.0, 0.0}}, {11, {1e-9, 0.0, 0.0}}}, text);
  GridText grid;
  grid.rate = 20.0;
  grid.x_step = 9.81 / two_pi / 4;  // a quarter of the wave of 1 s
  grid.x_max = 8 * grid.x_step;
  sea.build(grid);
  for (std::uint32_t ix = 0; ix < 8; ++ix) {
    for (std::uint32_t t = 0; t < 20; ++t) {
      const double turns = t / 20.0 - ix / 4.0;
      EXPECT_NEAR(sea.frames().data(t)[5 * ix], counts(std::cos(two_pi * turns)), 2.0);
    }
  }
}

struct Cycle {
  std::uint64_t slot;
  std::uint32_t samples;
};

TEST(AnimateSurface, ASingleHarmonicHasAShortCycle) {
  // The sample count 100 = 2 * 2 * 5 * 5 is divided by the primes that it shares with the sum of
  // the slot and the lowest harmonic, 1. Here the sums are 6, 10, 13, 14 and 20. The cycle does not
  // always fit the wave.
  for (const auto& [slot, cycle] :
       {Cycle{5, 50}, Cycle{9, 10}, Cycle{12, 100}, Cycle{13, 50}, Cycle{19, 5}}) {
    AnimatedSea sea({{slot, {1.0, 0.4, 0.3}}});
    sea.build();
    ASSERT_EQ(sea.frames().size(0), cycle);
    const std::uint32_t bin = static_cast<std::uint32_t>(slot) / (100 / cycle);
    const double k = Testing::wave_number(two_pi * static_cast<double>(slot) / 10.0, 1.0);
    for (std::uint32_t t = 0; t < cycle; ++t) {
      for (std::uint32_t ix = 0; ix < 21; ++ix) {
        for (std::uint32_t iy = 0; iy < 5; ++iy) {
          const double psi = 0.3 - k * ix * 0.5 * std::cos(0.4) - k * (iy - 2.0) * std::sin(0.4);
          const double turn = two_pi * bin * t / cycle;
          EXPECT_NEAR(sea.frames().data(t)[5 * ix + iy], counts(std::cos(turn + psi)), 0.5 + 1e-6);
        }
      }
    }
  }
}

TEST(AnimateSurface, ACycleThatFitsTheHarmonicRepeatsTheWave) {
  // With harmonics 10 to 20, the sum of slot and lowest harmonic is 30, which shares 10 with the
  // 100 samples. So does the slot.
  AnimatedSea sea({{20, {1.0, 0.0, 0.0}}});
  sea.run.init(10.0, 100.0, 1.0, 2.0, false);
  sea.build();
  ASSERT_EQ(sea.frames().size(0), 10u);
  for (std::uint32_t t = 0; t < 10; ++t) {
    EXPECT_NEAR(sea.frames().data(t)[0], counts(std::cos(two_pi * 2.0 * t / 10.0)), 0.5 + 1e-6);
  }
}

}  // namespace
