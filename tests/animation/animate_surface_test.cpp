// Frames against the surface summed wave by wave.
#include <cmath>
#include <numbers>

#include "support/test_surface.h"
#include "test_animation.h"

namespace {

using Testing::GridText;
using Testing::Sea;
using Testing::SiteText;

constexpr double two_pi = 2.0 * std::numbers::pi;

// Counts of a height, not rounded.
double counts(double height) { return height / 4.0 * 32767.0; }

SiteText sloping() {
  SiteText text;
  text.x_high = 30.0;
  text.breaks = {5.0};
  text.depths = {"1@m", "1-($[m]-5)*0.02@m"};
  return text;
}

std::vector<Synthesis::Front> displayed(const Sea& sea) {
  std::vector<Synthesis::Front> fronts;
  sea.fronts.display_fronts(fronts, sea.run);
  return fronts;
}

// Fronts at all harmonics and in all directions, also backwards.
std::vector<std::pair<std::uint64_t, Maths::HarmonicFront>> wild_sea() {
  std::vector<std::pair<std::uint64_t, Maths::HarmonicFront>> fronts;
  for (std::uint64_t h = 1; h <= 20; ++h) {
    for (int i = 0; i < 3; ++i) {
      const double s = static_cast<double>(h) + 0.31 * i;
      // Steeper than 0.8 rad and deeper water would turn a wave back.
      const double angle = 0.8 * std::sin(7.0 * s) + (i == 2 ? std::numbers::pi : 0.0);
      fronts.push_back({h, {0.06 * std::sin(3.0 * s), angle, 3.0 * std::cos(5.0 * s)}});
    }
  }
  return fronts;
}

// Whether every sample that is looked at is the rounded sum of the fronts.
void expect_sum(Sea& sea, const GridText& grid) {
  const std::vector<Synthesis::Front> fronts = displayed(sea);
  const std::uint32_t columns = sea.frames().size(1);
  const std::uint32_t rows = sea.frames().size(2);
  const double x_step = (grid.x_max - grid.x_min) / (columns - 1);
  const double y_step = (grid.y_max - grid.y_min) / (rows - 1);
  double peak = 0.0;
  for (std::uint32_t ix = 0; ix < columns; ix += 3) {
    for (std::uint32_t iy = 0; iy < rows; iy += 2) {
      for (std::uint32_t t = 0; t < 100; t += 9) {
        const double expected = counts(Testing::surface(
            sea.tank(), fronts, ix * x_step + grid.x_min, iy * y_step + grid.y_min, t / 10.0));
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
  Sea sea(wild_sea());
  GridText grid;
  grid.y_step = 0.05;  // more rows than a block has
  sea.build(grid);
  EXPECT_EQ(sea.frames().size(2), 81u);
  expect_sum(sea, grid);
}

TEST(AnimateSurface, EveryPointIsTheSumOfTheFrontsOverASlope) {
  Sea sea(wild_sea(), sloping());
  GridText grid;
  grid.x_max = 30.0;
  grid.y_min = 3.0;
  grid.y_max = 11.0;
  sea.build(grid);
  expect_sum(sea, grid);
}

TEST(AnimateSurface, AStraightSeaIsTheSumOfItsFronts) {
  std::vector<std::pair<std::uint64_t, Maths::HarmonicFront>> fronts = wild_sea();
  for (auto& [slot, front] : fronts) front.angle = 0.0;
  Sea sea(fronts, sloping());
  GridText grid;
  grid.x_max = 30.0;
  sea.build(grid);
  expect_sum(sea, grid);
}

TEST(AnimateSurface, TheAxisMayLieOutsideTheGrid) {
  for (const double y_min : {-9.0, 1.0, -8.02}) {
    Sea sea(wild_sea());
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

TEST(AnimateSurface, ACrestOfHalfACountOnTheAxisGoesAwayFromZero) {
  // Two metres are 16383.5 counts.
  for (const double y_min : {-2.0, -9.0, 0.0}) {
    for (double angle = -0.75; angle < 0.8; angle += 0.05) {
      Sea sea({{5, {1.0, angle, 0.0}}, {8, {1.0, -angle, 0.0}}});
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

TEST(AnimateSurface, AWaveOverDeepWaterRunsAtItsPhaseSpeed) {
  SiteText text;
  text.depths = {"30@m"};
  Sea sea({{10, {1.0, 0.0, 0.0}}, {11, {1e-9, 0.0, 0.0}}}, text);
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

// The cycle that is left of n samples when the primes up to 11 which they share with the slot plus
// the lowest harmonic are taken out.
std::uint32_t short_cycle(std::uint32_t n, std::uint64_t shared) {
  for (const std::uint32_t prime : {2u, 3u, 5u, 7u, 11u}) {
    for (; n % prime == 0 && shared % prime == 0; shared /= prime) n /= prime;
  }
  return n;
}

TEST(AnimateSurface, ASingleHarmonicHasAShortCycle) {
  // The lowest harmonic is 1, and what the slot above shares with 100 samples leaves the cycle:
  // not always one that holds the wave.
  for (const std::uint64_t slot : {5u, 9u, 12u, 13u, 19u}) {
    Sea sea({{slot, {1.0, 0.4, 0.3}}});
    sea.build();
    const std::uint32_t cycle = short_cycle(100, slot + 1);
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
  // Harmonics 10 to 20 allowed: slot 20 plus 10 shares 10 with 100 samples, and so does the slot.
  Sea sea({{20, {1.0, 0.0, 0.0}}});
  sea.run.init(10.0, 100.0, 1.0, 2.0, false);
  sea.build();
  ASSERT_EQ(sea.frames().size(0), 10u);
  for (std::uint32_t t = 0; t < 10; ++t) {
    EXPECT_NEAR(sea.frames().data(t)[0], counts(std::cos(two_pi * 2.0 * t / 10.0)), 0.5 + 1e-6);
  }
}

}  // namespace
