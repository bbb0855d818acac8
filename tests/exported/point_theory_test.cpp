// The wave at a point as a host reads it, against sums over the fronts of the run and the depths of
// the tank. Steps in the bottom make the phases exact, so that the results agree to rounding.
#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>
#include <utility>

#include "point/two_d.h"
#include "run_fixture.h"
#include "support/test_site.h"

namespace {

using Testing::RunHostTest;
using Testing::wave_number;

using Complex = std::complex<double>;

constexpr double pi = std::numbers::pi;
constexpr double repeat = 12.8;

struct PlaneWave {
  int harmonic;
  double amp;
  double angle;
  double phase;
};

// Half the ratio of the energy flux to k, up to a constant: amplitudes are proportional to the
// inverse of its square root.
double flux(double k, double depth) { return (1 + 2 * k * depth / std::sinh(2 * k * depth)) / k; }

// The steps of data/shelf.txt. The paddle line is in the second one.
struct Step {
  double from;
  double to;
  double depth;
};
constexpr Step steps[] = {{-6, -2, 0.6}, {-2, 7, 1.0}, {7, 17, 0.7}, {17, 25, 0.4}};
constexpr double paddle_depth = 1.0;

// The edge between two steps belongs to the one before it.
double depth_at(double x) {
  for (const Step& step : steps) {
    if (x <= step.to) return step.depth;
  }
  return steps[3].depth;
}

// The phase from the paddle line to the point. Refraction keeps the crosswise wave number.
double lag(const PlaneWave& wave, double x, double y) {
  const double omega = 2 * pi * wave.harmonic / repeat;
  const double across = wave_number(omega, paddle_depth) * std::sin(wave.angle);
  double along = 0.0;
  for (const Step& step : steps) {
    const double length =
        std::min(std::max(x, 0.0), step.to) - std::max(std::min(x, 0.0), step.from);
    if (length <= 0) continue;
    const double k = wave_number(omega, step.depth);
    along += length * std::sqrt(k * k - across * across);
  }
  const bool backwards = (x < 0) != (std::cos(wave.angle) < 0);
  return (backwards ? -along : along) + across * y;
}

double shoaling(int harmonic, double x) {
  const double omega = 2 * pi * harmonic / repeat;
  return std::sqrt(flux(wave_number(omega, paddle_depth), paddle_depth) /
                   flux(wave_number(omega, depth_at(x)), depth_at(x)));
}

class PointTheory : public RunHostTest {
 protected:
  void SetUp() override { experiment = site("shelf.txt"); }

  void build_run(const std::vector<PlaneWave>& waves) {
    const jlong list = own(host.call(NATIVE(new_1Kelpbox_1StdVectorFront_1_1SWIG_10)),
                           NATIVE(delete_1Kelpbox_1StdVectorFront));
    for (const PlaneWave& wave : waves) {
      const jlong front = own(host.call(NATIVE(new_1Kelpbox_1Front_1_1SWIG_11),
                                        wave.harmonic / repeat, wave.amp, wave.angle, wave.phase),
                              NATIVE(delete_1Kelpbox_1Front));
      host.call(NATIVE(Kelpbox_1StdVectorFront_1add), list, proxy, front, proxy);
    }
    make_run();
    const jlong fronts =
        host.call(NATIVE(Kelpbox_1Experiment_1add_1fronts), experiment, proxy, group, list, proxy);
    set(fronts, params());
    set_run(repeat);
    set_place(0, 0, 0);
    ASSERT_EQ(thrown_by_run_build(), Thrown{});
  }
  jlong build(int samples, double x, double y, int sectors) {
    const jlong values = params({{"rate", samples / repeat, "Hz"},
                                 {"x", x, "m"},
                                 {"y", y, "m"},
                                 {"delta_angle", 2 * pi / sectors, "rad"}});
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1build), experiment, proxy, run, values, proxy),
        Thrown{});
    return values;
  }
  std::vector<double> data(jint which) {
    return values_of(
        host.call(NATIVE(Kelpbox_1Experiment_1twod_1data), experiment, proxy, run, which));
  }
};

// Three per harmonic, in directions that reach both ends of the tank.
std::vector<PlaneWave> crossing_seas() {
  std::vector<PlaneWave> waves;
  for (int i = 0; i < 66; ++i) {
    const double angle = 0.55 * std::sin(2.3 * i) + (i % 5 == 4 ? pi : 0);
    waves.push_back({2 + i / 3, 0.01 * (1.5 + std::sin(i)), std::remainder(angle, 2 * pi),
                     3 * std::cos(1.7 * i)});
  }
  return waves;
}

std::vector<Complex> surface(const std::vector<PlaneWave>& waves, int samples, double x, double y) {
  std::vector<Complex> result(static_cast<std::size_t>(samples / 2 + 1));
  for (const PlaneWave& wave : waves) {
    if (wave.harmonic > samples / 2) continue;
    result[static_cast<std::size_t>(wave.harmonic)] +=
        std::polar(shoaling(wave.harmonic, x) * wave.amp, wave.phase - lag(wave, x, y));
  }
  return result;
}

std::vector<double> elevation(const std::vector<Complex>& harmonics, int samples) {
  std::vector<double> eta;
  for (int j = 0; j < samples; ++j) {
    double sum = 0.0;
    for (std::size_t h = 0; h < harmonics.size(); ++h) {
      sum += (harmonics[h] * std::polar(1.0, 2 * pi * static_cast<double>(h) * j / samples)).real();
    }
    eta.push_back(sum);
  }
  return eta;
}

// The direction of a harmonic: how the phase of its fronts changes over two steps of a tenth of a
// local radian, with the wave number of the paddle line taken at that depth.
double direction(const std::vector<PlaneWave>& waves, int harmonic, double x, double y,
                 double line_depth) {
  const double omega = 2 * pi * harmonic / repeat;
  const double local = x == 0 ? line_depth : depth_at(x);
  const double turn = 0.1 * wave_number(omega, line_depth) / wave_number(omega, local);
  Complex here;
  Complex along;
  Complex across;
  for (const PlaneWave& wave : waves) {
    if (wave.harmonic != harmonic) continue;
    const double psi = wave.phase - lag(wave, x, y);
    here += std::polar(1.0, psi) * wave.amp;
    along += std::polar(1.0, psi + turn * std::cos(wave.angle)) * wave.amp;
    across += std::polar(1.0, psi + turn * std::sin(wave.angle)) * wave.amp;
  }
  return std::atan2(std::arg(across * std::conj(here)), std::arg(along * std::conj(here)));
}

constexpr std::pair<double, double> places[] = {{0, 0},    {0, 3.5},    {0, -40},   {4, 1},
                                                {7, -2},   {11.3, 6.1}, {17, 0},    {25, 8},
                                                {-1.5, 2}, {-2.4, 0},   {-5.2, -3}, {-6, 1}};

TEST_F(PointTheory, TheRecordIsTheSumOfItsWavesAnywhereInTheTank) {
  build_run(crossing_seas());
  for (const auto& [x, y] : places) {
    // 30 samples cut the top harmonics off.
    for (const int samples : {64, 101, 30}) {
      build(samples, x, y, 12);
      const std::vector<Complex> harmonics = surface(crossing_seas(), samples, x, y);
      const std::vector<double> expected = elevation(harmonics, samples);
      const std::vector<double> eta = data(Synthesis::TwoD::time);
      const std::vector<double> spectrum = data(Synthesis::TwoD::spectrum);
      const std::vector<double> variance = data(Synthesis::TwoD::variance);
      ASSERT_EQ(eta.size(), expected.size());
      ASSERT_EQ(spectrum.size(), harmonics.size());
      ASSERT_EQ(variance.size(), harmonics.size());
      for (std::size_t j = 0; j < eta.size(); ++j) EXPECT_NEAR(eta[j], expected[j], 1e-11) << x;
      for (std::size_t h = 0; h < spectrum.size(); ++h) {
        EXPECT_NEAR(spectrum[h], std::abs(harmonics[h]), 1e-12) << x;
        EXPECT_NEAR(variance[h], std::norm(harmonics[h]) / 2 * repeat, 1e-12) << x;
      }
    }
  }
}

TEST_F(PointTheory, TheSectorsAreThoseOfThePhaseGradient) {
  build_run(crossing_seas());
  for (const auto& [x, y] : places) {
    for (const int sectors : {7, 36, 400}) {
      build(64, x, y, sectors);
      const std::vector<Complex> harmonics = surface(crossing_seas(), 64, x, y);
      std::vector<double> expected(static_cast<std::size_t>(sectors));
      double sum = 0.0;
      for (int h = 2; h < 24; ++h) {
        // The library takes the wave number of the paddle line at the first depth of the tank.
        // Hosts rely on it.
        const double angle = direction(crossing_seas(), h, x, y, 0.6);
        const int sector = static_cast<int>(std::lround(angle / (2 * pi) * sectors));
        const double part = std::norm(harmonics[static_cast<std::size_t>(h)]);
        expected[static_cast<std::size_t>((sector + sectors) % sectors)] += part;
        sum += part;
      }
      const std::vector<double> shares = data(Synthesis::TwoD::direction);
      ASSERT_EQ(shares.size(), expected.size());
      for (std::size_t b = 0; b < shares.size(); ++b) {
        EXPECT_NEAR(shares[b], expected[b] / sum, 1e-12) << x << " " << y << " " << b;
      }
    }
  }
}

// With a single harmonic the library has already visited the paddle line and takes the wave number
// there.
TEST_F(PointTheory, ARunOfOneHarmonicStepsWithTheWaveNumberAtThePaddleLine) {
  const std::vector<PlaneWave> waves = {{10, 0.03, 0.2, 0.1}, {10, 0.02, -0.5, 1.0}};
  build_run(waves);
  const auto share_at = [&](double line_depth, int sectors) {
    const double angle = direction(waves, 10, 20, 1, line_depth);
    return std::lround(angle / (2 * pi) * sectors + sectors) % sectors;
  };
  const int sectors = 1000000;
  build(64, 20, 1, sectors);
  const std::vector<double> shares = data(Synthesis::TwoD::direction);
  ASSERT_EQ(shares.size(), static_cast<std::size_t>(sectors));
  const auto found = std::max_element(shares.begin(), shares.end()) - shares.begin();
  EXPECT_NEAR(shares[static_cast<std::size_t>(found)], 1.0, 1e-12);
  EXPECT_EQ(found, share_at(1.0, sectors));
  EXPECT_NE(found, share_at(0.6, sectors));
}

TEST_F(PointTheory, TheMomentsAreThoseOfTheSpectrumAnywhereInTheTank) {
  build_run(crossing_seas());
  const int samples = 250;
  for (const auto& [x, y] : places) {
    double m0 = 0.0;
    double m1 = 0.0;
    const std::vector<Complex> harmonics = surface(crossing_seas(), samples, x, y);
    for (std::size_t h = 1; h < harmonics.size(); ++h) {
      m0 += std::norm(harmonics[h]) / 2;
      m1 += std::norm(harmonics[h]) / 2 * static_cast<double>(h) / repeat;
    }
    const jlong values = params({{"rate", samples / repeat, "Hz"}, {"x", x, "m"}, {"y", y, "m"}});
    ASSERT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1stats), experiment, proxy, run, values, proxy),
        Thrown{});
    EXPECT_NEAR(value(values, "Hs", "m"), 4 * std::sqrt(m0), 1e-12) << x << " " << y;
    EXPECT_NEAR(value(values, "Ts", "s"), m0 / m1, 1e-10) << x << " " << y;
    EXPECT_NEAR(value(values, "Var", ""), std::sqrt(std::sqrt(m0)), 1e-12) << x << " " << y;
  }
}

}  // namespace
