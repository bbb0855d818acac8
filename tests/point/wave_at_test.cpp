// The surface and the directions at a point, taken together.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "point/surface_point.h"
#include "support/thrown.h"
#include "test_waves.h"

namespace {

using Complex = std::complex<double>;
using Synthesis::PointSpec;
using Testing::grid;
using Testing::nothing_thrown;
using Testing::thrown;
using Testing::Waves;

constexpr double pi = std::numbers::pi;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// The surface and the directions at once, against one after the other and one front at a time.
void expect_both(Waves& waves, const PointSpec& point) {
  Maths::TankRun run(waves.tank, grid());
  Base::Cvector surface;
  Base::Vector directions;
  Synthesis::wave_at(surface, directions, waves.fronts, run, point);

  Maths::TankRun plain(waves.tank, grid());
  const auto wave = [&](double amp, double phase) { return std::polar(1.0, phase) * amp; };
  std::vector<Complex> sums(surface.data.size());
  const std::size_t top = std::min(sums.size(), waves.fronts.slots.size());
  for (std::size_t h = 0; h < top; ++h) {
    for (const Maths::HarmonicFront& front : waves.fronts.slots[h]) {
      const double amp = plain.shoaling(h, point.x) * front.amp;
      if (front.amp == 0.0) continue;
      const double lag = plain.phase_lag(h, point.x, point.y, front.angle);
      sums[h] += wave(amp, front.phase - lag);
    }
  }
  // With the ladder of the last harmonic of the surface.
  for (std::size_t h = 0; h < top; ++h) {
    EXPECT_NEAR(std::abs(surface.data[h] - sums[h]), 0.0, 1e-13) << h;
    if (waves.fronts.slots[h].empty()) continue;
    const double k0 = plain.wave_num_at(h, 0.0);
    const double d = 0.1 / plain.wave_num_at(h, point.x);
    Complex z;
    Complex zx;
    Complex zy;
    for (const Maths::HarmonicFront& front : waves.fronts.slots[h]) {
      if (front.amp == 0.0) continue;
      const double psi = front.phase - plain.phase_lag(h, point.x, point.y, front.angle);
      z += wave(front.amp, psi);
      zx += wave(front.amp, psi + std::cos(front.angle) * k0 * d);
      zy += wave(front.amp, psi + std::sin(front.angle) * k0 * d);
    }
    const double expected = z == Complex() ? 0.0 : std::atan2(std::arg(zy / z), std::arg(zx / z));
    EXPECT_NEAR(std::remainder(directions.data[h] - expected, 2 * pi), 0.0, 1e-10) << h;
  }
}

TEST(WaveAt, IsTheSumOfItsFronts) {
  for (const bool sloping : {false, true}) {
    for (const std::size_t count : {1u, 3u, 700u}) {
      Waves waves(sloping);
      for (std::size_t h = 1; h < waves.fronts.slots.size(); h += 3) {
        for (std::size_t i = 0; i < count; ++i) {
          const auto s = static_cast<double>(h + 7 * i);
          waves.fronts.append(h, {0.01 * std::cos(s), 0.6 * std::sin(s), 3.0 * s});
        }
        if (h % 2 == 0) waves.fronts.append(h, {0.0, 0.4, nan});
      }
      for (const PointSpec& point :
           {PointSpec{15.0, 2.0, 200}, PointSpec{0.0, -1.0, 200},
            PointSpec{sloping ? -3.0 : 3.0, 0.5, 30}, PointSpec{7.0, 0.0, 3}}) {
        expect_both(waves, point);
      }
    }
  }
}

TEST(WaveAt, TheLastHarmonicKeepsItsLadderIfTheOthersHaveNoFronts) {
  Waves waves(true);
  waves.fronts.slots[12] = {{1.0, 0.0, 0.3}, {0.4, 0.5, 1.0}};
  expect_both(waves, {15.0, 2.0, 200});
  waves.fronts.slots[5] = {{0.0, 0.3, nan}};
  expect_both(waves, {15.0, 2.0, 200});
  waves.fronts.slots[14] = {{0.0, 0.3, nan}};
  expect_both(waves, {15.0, 2.0, 200});
  waves.fronts.slots[5] = {{0.1, 0.3, 0.0}};
  expect_both(waves, {15.0, 2.0, 200});
}

TEST(WaveAt, TheFirstHarmonicThatFailsIsReported) {
  Waves waves(true);
  waves.fronts.slots[8] = {{1.0, 0.0, 0.3}};
  waves.fronts.slots[0] = {{1.0, 0.0, 0.3}};
  waves.fronts.slots[12] = {{1.0, 0.0, 0.3}};
  const auto refusal = [&](double x) {
    return thrown([&] {
      Maths::TankRun run(waves.tank, grid());
      Base::Cvector surface;
      Base::Vector directions;
      Synthesis::wave_at(surface, directions, waves.fronts, run, {x, 0.0, 200});
    });
  };
  EXPECT_EQ(refusal(21.0), "Value x=21 is outside dimensions of tank");
  const std::string mean = refusal(3.0);
  EXPECT_EQ(mean.substr(0, 41), "Knum calculation failed for omega=0 and d") << mean;
  waves.fronts.slots[0].clear();
  EXPECT_EQ(refusal(3.0), nothing_thrown);
  // The first point of the profile is only needed for the directions of several harmonics.
  waves.tank.profile.front().depth = 0.0;
  EXPECT_EQ(refusal(3.0).substr(0, 34), "Knum calculation failed for omega=");
  waves.fronts.slots[8].clear();
  EXPECT_EQ(refusal(3.0), nothing_thrown);
}

TEST(WaveAt, NoWavePassesADryBar) {
  Waves waves(true);
  waves.tank.profile = {{1.0, 0.0}, {1.0, 5.0}, {-0.1, 5.0}, {-0.1, 6.0}, {0.5, 6.0}, {0.5, 20.0}};
  waves.tank.paddle_index = 0;
  const std::string lowest = "Knum calculation failed for omega=5.02655 and depth = -0.1";
  waves.fronts.slots[8] = {{1.0, 0.0, 0.3}};
  waves.fronts.slots[12] = {{1.0, 0.0, 0.3}};
  EXPECT_EQ(thrown([&] { waves.surface({15.0, 0.0, 200}); }).substr(0, lowest.size()), lowest);
  EXPECT_EQ(thrown([&] { waves.directions({15.0, 0.0, 200}); }).substr(0, lowest.size()), lowest);
  EXPECT_EQ(thrown([&] { waves.directions({3.0, 0.0, 200}); }), nothing_thrown);
  // A wave outside the angles of the tank in front of the one that fails.
  waves.fronts.slots[8] = {{0.0, 0.0, 0.3}};
  EXPECT_EQ(thrown([&] {
              waves.directions({15.0, 0.0, 200});
            }).substr(0, 34),
            "Knum calculation failed for omega=");
}

}  // namespace
