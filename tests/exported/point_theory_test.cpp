// The wave at a point as a host reads it, against sums of the test's own over the fronts of the run
// and the depths of the tank: what the library says is held to rounding.
#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <utility>

#include "point/two_d.h"
#include "run_fixture.h"

namespace {

using Complex = std::complex<double>;

constexpr double pi = 3.14159265358979323846;
constexpr double g = 9.81;
constexpr double repeat = 12.8;

struct PlaneWave {
  int harmonic;
  double amp;
  double angle;
  double phase;
};

// The explicit wave number of Guo (2002) and one step of Newton's.
double wave_number(double omega, double depth) {
  const double deep = omega * omega / g;
  const double k = deep / std::pow(1 - std::exp(-std::pow(deep * depth, 1.25)), 0.4);
  const double t = std::tanh(k * depth);
  return k + (omega * omega - g * k * t) / (g * t + g * k * depth * (1 - t * t));
}

// Half the ratio of the energy flux to k, but for constants: amplitudes go with its inverse root.
double flux(double k, double depth) { return (1 + 2 * k * depth / std::sinh(2 * k * depth)) / k; }

struct Water {
  explicit Water(const Maths::TankConfig& tank) : profile(tank.profile) {}

  // The pieces between the paddle line and x: length with its sign, and mean depth.
  std::vector<std::pair<double, double>> pieces(double x) const {
    std::vector<std::pair<double, double>> result;
    const double from = std::min(x, 0.0);
    const double to = std::max(x, 0.0);
    for (std::size_t i = 0; i + 1 < profile.size(); ++i) {
      const double left = std::max(from, profile[i].x);
      const double right = std::min(to, profile[i + 1].x);
      if (!(right - left > 1e-6)) continue;
      const double mean = (between(i, left) + between(i, right)) / 2;
      result.emplace_back(x < 0 ? left - right : right - left, mean);
    }
    return result;
  }
  double depth(double x) const {
    for (std::size_t i = 0; i + 1 < profile.size(); ++i) {
      if (profile[i].x < x && x <= profile[i + 1].x) return between(i, x);
    }
    return profile.front().depth;
  }
  double between(std::size_t i, double x) const {
    const auto& [d0, x0] = profile[i];
    const auto& [d1, x1] = profile[i + 1];
    return d0 + (d1 - d0) * (x - x0) / (x1 - x0);
  }

  double lag(const PlaneWave& wave, double x, double y) const {
    const double omega = 2 * pi * wave.harmonic / repeat;
    const double across = wave_number(omega, 1.0) * std::sin(wave.angle);
    double sum = 0.0;
    for (const auto& [length, mean] : pieces(x)) {
      const double k = wave_number(omega, mean);
      sum += length * std::sqrt(k * k - across * across);
    }
    return (std::cos(wave.angle) < 0 ? -sum : sum) + across * y;
  }
  double shoaling(int harmonic, double x) const {
    const double omega = 2 * pi * harmonic / repeat;
    const double end = x == 0 ? 1.0 : depth(x);
    return std::sqrt(flux(wave_number(omega, 1.0), 1.0) / flux(wave_number(omega, end), end));
  }

  std::vector<Maths::ProfilePoint> profile;
};

class PointTheory : public RunHostTest {
 protected:
  void SetUp() override {
    open = &open_site("shelf.txt");
    experiment = handle(*open);
  }

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

  OpenExperiment* open = nullptr;
};

// Three to a harmonic, in all directions that get to either end of the tank.
std::vector<PlaneWave> crossing_seas() {
  std::vector<PlaneWave> waves;
  for (int i = 0; i < 66; ++i) {
    const double angle = 0.55 * std::sin(2.3 * i) + (i % 5 == 4 ? pi : 0);
    waves.push_back({2 + i / 3, 0.01 * (1.5 + std::sin(i)), std::remainder(angle, 2 * pi),
                     3 * std::cos(1.7 * i)});
  }
  return waves;
}

std::vector<Complex> surface(const Water& water, const std::vector<PlaneWave>& waves, int samples,
                             double x, double y) {
  std::vector<Complex> result(static_cast<std::size_t>(samples / 2 + 1));
  for (const PlaneWave& wave : waves) {
    if (wave.harmonic > samples / 2) continue;
    result[static_cast<std::size_t>(wave.harmonic)] +=
        std::polar(water.shoaling(wave.harmonic, x) * wave.amp, wave.phase - water.lag(wave, x, y));
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

// The direction of a harmonic with three fronts, from two steps of a tenth of a local radian.
double direction(const Water& water, const std::vector<PlaneWave>& waves, int harmonic, double x,
                 double y, double paddle_depth) {
  const double omega = 2 * pi * harmonic / repeat;
  const double local = x == 0 ? paddle_depth : water.depth(x);
  const double turn = 0.1 * wave_number(omega, paddle_depth) / wave_number(omega, local);
  Complex here;
  Complex along;
  Complex across;
  for (const PlaneWave& wave : waves) {
    if (wave.harmonic != harmonic) continue;
    const double psi = wave.phase - water.lag(wave, x, y);
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
  const Water water(open->context().tank_config());
  for (const auto& [x, y] : places) {
    // The last cuts the top harmonics off.
    for (const int samples : {64, 101, 30}) {
      build(samples, x, y, 12);
      const std::vector<Complex> harmonics = surface(water, crossing_seas(), samples, x, y);
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
  const Water water(open->context().tank_config());
  for (const auto& [x, y] : places) {
    for (const int sectors : {7, 36, 400}) {
      build(64, x, y, sectors);
      const std::vector<Complex> harmonics = surface(water, crossing_seas(), 64, x, y);
      std::vector<double> expected(static_cast<std::size_t>(sectors));
      double sum = 0.0;
      for (int h = 2; h < 24; ++h) {
        // The wave number at the paddle line is that of the first depth of the tank.
        const double angle = direction(water, crossing_seas(), h, x, y, 0.6);
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

// A run of one harmonic has its way from the paddle line in hand already, and takes the wave number
// there for the longer of the two steps.
TEST_F(PointTheory, ARunOfOneHarmonicStepsWithTheWaveNumberAtThePaddleLine) {
  const std::vector<PlaneWave> waves = {{10, 0.03, 0.2, 0.1}, {10, 0.02, -0.5, 1.0}};
  build_run(waves);
  const Water water(open->context().tank_config());
  const auto share_at = [&](double paddle_depth, int sectors) {
    const double angle = direction(water, waves, 10, 20, 1, paddle_depth);
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

TEST_F(PointTheory, TheStatisticsAreThoseOfTheRecord) {
  build_run(crossing_seas());
  const Water water(open->context().tank_config());
  const int samples = 250;
  for (const auto& [x, y] : places) {
    const std::vector<Complex> harmonics = surface(water, crossing_seas(), samples, x, y);
    const std::vector<double> eta = elevation(harmonics, samples);
    const double dt = repeat / samples;
    // Crossings between one sample and the next, but not from the last to the first.
    std::vector<std::pair<std::size_t, double>> ups;
    for (std::size_t i = 1; i < eta.size(); ++i) {
      if (eta[i - 1] <= 0 && eta[i] > 0) {
        ups.emplace_back(i, (static_cast<double>(i - 1) - eta[i - 1] / (eta[i] - eta[i - 1])) * dt);
      }
    }
    std::vector<std::pair<double, double>> waves;  // heights with their periods
    for (std::size_t w = 0; w < ups.size(); ++w) {
      const bool last = w + 1 == ups.size();
      const auto& [end, stop] = last ? ups[0] : ups[w + 1];
      double crest = 0.0;
      double trough = 0.0;
      for (std::size_t i = ups[w].first; i != end; i = i + 1 == eta.size() && last ? 0 : i + 1) {
        crest = std::max(crest, eta[i]);
        trough = std::min(trough, eta[i]);
      }
      waves.emplace_back(crest - trough, stop - ups[w].second + (last ? repeat : 0));
    }
    std::sort(waves.begin(), waves.end());
    ASSERT_GE(waves.size(), 6u);

    const jlong values = params({{"rate", samples / repeat, "Hz"}, {"x", x, "m"}, {"y", y, "m"}});
    ASSERT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1stats), experiment, proxy, run, values, proxy),
        Thrown{});
    const std::pair<double, double>& significant = waves[waves.size() * 2 / 3];
    EXPECT_NEAR(value(values, "sig_h", "m"), significant.first, 1e-10) << x << " " << y;
    EXPECT_NEAR(value(values, "sig_t", "s"), significant.second, 1e-9) << x << " " << y;
    EXPECT_NEAR(value(values, "max_amp", "m"), waves.back().first, 1e-10);
    double m0 = 0.0;
    double m1 = 0.0;
    for (std::size_t h = 1; h < harmonics.size(); ++h) {
      m0 += std::norm(harmonics[h]) / 2;
      m1 += std::norm(harmonics[h]) / 2 * static_cast<double>(h) / repeat;
    }
    EXPECT_NEAR(value(values, "Hs", "m"), 4 * std::sqrt(m0), 1e-12);
    EXPECT_NEAR(value(values, "Ts", "s"), m0 / m1, 1e-10);
    EXPECT_NEAR(value(values, "Var", ""), std::sqrt(std::sqrt(m0)), 1e-12);
  }
}

}  // namespace
