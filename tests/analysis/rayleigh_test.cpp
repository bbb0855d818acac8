// Random seas compared with the Rayleigh distribution of wave heights.
//
// With H the height and s the standard deviation of the surface, P(H > h) = exp(-h^2 / (8 s^2)) in
// a narrow band (Longuet-Higgins 1952, "On the statistical distribution of the heights of sea
// waves", J. Mar. Res. 11). A third of the waves is above h = s sqrt(8 ln 3) = 2.96 s. That
// quantile is the significant height here; the mean of the highest third would be 4.00 s.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include "analysis/multi_time.h"
#include "analysis/spectrum_stats.h"
#include "analysis/wave_list.h"
#include "records.h"

namespace {

constexpr int waves = 2000;
constexpr double sigma = 0.1;
const double two_thirds = sigma * std::sqrt(8.0 * std::log(3.0));
// The density of heights at this quantile, h / (4 s^2) times a third.
const double density = two_thirds / (12.0 * sigma * sigma);

// The standard error of the quantile of independent heights.
double standard_error(double heights) { return std::sqrt(2.0 / 9.0 / heights) / density; }

// From 0 to below 1. The distributions of the standard library differ between platforms.
double uniform(std::mt19937& generator) { return generator() / 4294967296.0; }

double rayleigh_height(std::mt19937& generator) {
  return sigma * std::sqrt(-8.0 * std::log(1.0 - uniform(generator)));
}

// Sines of random heights. Their lengths are multiples of 4 from 16 to 36 samples, at 16 Hz.
std::vector<double> drawn_waves(unsigned seed) {
  std::mt19937 generator(seed);
  std::vector<double> samples;
  for (int i = 0; i < waves; ++i) {
    const double height = rayleigh_height(generator);
    const int length = 16 + 4 * static_cast<int>(6.0 * uniform(generator));
    samples.push_back(0.0);
    for (int j = 1; j < length; ++j) {
      samples.push_back(0.5 * height * std::sin(2.0 * std::numbers::pi * j / length));
    }
  }
  samples.insert(samples.end(), {0.0, 1e-3});
  return samples;
}

TEST(Rayleigh, TheSignificantHeightOfRandomWavesIsTheQuantile) {
  double sum = 0.0;
  for (unsigned seed = 1; seed <= 10; ++seed) {
    Base::DataSet set = record(drawn_waves(seed), 16.0);
    Analysis::WaveList list(set, false);
    ASSERT_EQ(list.waves.size(), static_cast<std::size_t>(waves));
    EXPECT_FALSE(Analysis::is_regular(list));
    Base::Params out;
    Analysis::report_irregular(list, out);
    EXPECT_NEAR(out.get("sig_h", "m"), two_thirds, 4.0 * standard_error(waves)) << seed;
    // It is the period of one wave, not a mean.
    const double samples = out.get("sig_t", "s") * 16.0;
    EXPECT_NEAR(samples / 4.0, std::round(samples / 4.0), 1e-6) << seed;
    sum += out.get("sig_h", "m");
  }
  EXPECT_NEAR(sum / 10.0, two_thirds, 4.0 * standard_error(10.0 * waves));
}

TEST(Rayleigh, TheSignificantHeightOverProbesIsTheMeanQuantile) {
  std::vector<Analysis::Series> series;
  for (unsigned seed = 101; seed <= 110; ++seed) {
    series.push_back({at_rate(16.0), drawn_waves(seed)});
  }
  Records records(series);
  const Maths::TankConfig tank;
  Analysis::MultiTime process(tank, records.set());
  process.process({});
  Base::Params out;
  process.results(out);
  EXPECT_NEAR(out.get("sig_h", "m"), two_thirds, 4.0 * standard_error(10.0 * waves));
}

// A Gaussian sea of 2000 s at 32 Hz, of equal energy from 0.9 to 1.1 Hz.
Base::Cvector narrow_sea(unsigned seed) {
  std::mt19937 generator(seed);
  std::vector<std::complex<double>> elements(32001);
  const int first = 1800;
  const int last = 2200;
  // Both parts of an element are normal, with variance sigma^2 over the number of elements.
  for (int h = first; h <= last; ++h) {
    const double size = sigma * std::sqrt(-2.0 * std::log(1.0 - uniform(generator)) /
                                          static_cast<double>(last - first + 1));
    elements[static_cast<std::size_t>(h)] =
        std::polar(size, 2.0 * std::numbers::pi * uniform(generator));
  }
  Base::Cvector spectrum("", Base::default_units(Base::Category::length), elements);
  spectrum.length = 64000;
  return spectrum;
}

TEST(Rayleigh, ANarrowGaussianSeaHasTheQuantileOfItsDeviation) {
  // The envelope of a band of 0.2 Hz is independent every 5 s, which gives 400 heights in 2000 s.
  // The width of the band lowers heights by 0.1 per cent, and a crest between samples by at most
  // 0.5.
  double ratio = 0.0;
  constexpr int seas = 12;
  for (unsigned seed = 1; seed <= seas; ++seed) {
    Base::DataSet set(narrow_sea(seed), at_rate(32.0));
    Base::Params spectral;
    Analysis::SpectrumStats(set).report(spectral);
    Analysis::WaveList list(set, true);
    EXPECT_NEAR(static_cast<double>(list.waves.size()), waves, 40.0);
    Base::Params out;
    Analysis::report_irregular(list, out);
    ratio += out.get("sig_h", "m") / spectral.get("Hs", "m") / seas;
  }
  const double expected = std::sqrt(8.0 * std::log(3.0)) / 4.0;
  const double error = standard_error(400.0 * seas) / (4.0 * sigma);
  EXPECT_NEAR(ratio, expected, 4.0 * error + 0.006 * expected);
}

TEST(Rayleigh, TheSpectralHeightIsFourDeviationsOfTheSamples) {
  for (unsigned seed = 1; seed <= 3; ++seed) {
    Base::DataSet set(narrow_sea(seed), at_rate(32.0));
    const std::vector<double> samples = set.time().data;
    double squares = 0.0;
    for (const double sample : samples) squares += sample * sample;
    const double deviation = std::sqrt(squares / static_cast<double>(samples.size()));
    // The spectrum is computed from the samples again.
    Base::DataSet measured = record(samples, 32.0);
    Base::Params out;
    Analysis::SpectrumStats(measured).report(out);
    EXPECT_NEAR(out.get("Hs", "m") / (4.0 * deviation), 1.0, 1e-12);
    EXPECT_NEAR(out.get("Var", "") / std::sqrt(deviation), 1.0, 1e-12);
    // 401 elements of equal expected energy around 1 Hz have a deviation of 0.058 Hz over
    // sqrt(401).
    EXPECT_NEAR(out.get("Ts", "s"), 1.0, 4.0 * 0.058 * std::sqrt(2.0 / 401.0));
    EXPECT_NEAR(deviation / sigma, 1.0, 4.0 * 0.5 / std::sqrt(401.0));
  }
}

}  // namespace
