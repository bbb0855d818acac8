// The spectrum of a record, against the transform of a copy of its samples.
#include "analysis/spectrum.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <memory>
#include <random>
#include <span>
#include <vector>

#include "analysis/bin_values.h"
#include "base/fft.h"
#include "base/vector.h"
#include "support/thrown.h"

namespace {

using Analysis::Spectrum;
using Testing::thrown;

std::vector<double> drawn(std::size_t count) {
  std::mt19937_64 random(count);
  std::vector<double> samples(count);
  for (double& sample : samples) sample = std::generate_canonical<double, 53>(random) - 0.3;
  return samples;
}

void expect_transform(const Spectrum& spectrum, std::span<const double> samples) {
  const std::vector<double> copy(samples.begin(), samples.end());
  std::vector<std::complex<double>> expected(Base::spectrum_size(copy.size()));
  KLPFFT_time_to_freq(&copy, &expected);
  ASSERT_EQ(spectrum.size(), expected.size());
  for (std::size_t h = 0; h < expected.size(); ++h) {
    ASSERT_EQ(spectrum[h], expected[h]) << copy.size() << " samples, element " << h;
  }
}

TEST(Spectrum, HasTheElementsOfTheTransformToTheLastBit) {
  std::unique_ptr<Base::ForwardTransform> transform;
  for (const std::size_t count : {0u, 1u, 2u, 3u, 4u, 5u, 40u, 41u, 100u, 1024u, 1031u, 5000u}) {
    const std::vector<double> samples = drawn(count);
    for (int round = 0; round < 2; ++round) {
      expect_transform(Spectrum(samples, transform), samples);
    }
  }
}

TEST(Spectrum, DoesNotDependOnWhereTheWindowStarts) {
  const std::vector<double> samples = drawn(2000);
  for (const std::size_t first : {0u, 1u, 2u, 3u, 7u}) {
    for (const std::size_t planned : {0u, 1u}) {
      std::unique_ptr<Base::ForwardTransform> transform;
      // The plan is made for the alignment of another window.
      const auto elsewhere = std::span(samples).subspan(planned, 1500);
      const Spectrum other(elsewhere, transform);
      const auto window = std::span(samples).subspan(first, 1500);
      expect_transform(Spectrum(window, transform), window);
    }
  }
}

TEST(Spectrum, TransformsRecordsOfDifferentLengthsInTurn) {
  std::unique_ptr<Base::ForwardTransform> transform;
  for (const std::size_t count : {40u, 42u, 40u, 7u}) {
    const std::vector<double> samples = drawn(count);
    expect_transform(Spectrum(samples, transform), samples);
  }
}

TEST(Spectrum, LeavesTheSamplesAsTheyAre) {
  const std::vector<double> samples = drawn(600);
  const std::vector<double> before = samples;
  std::unique_ptr<Base::ForwardTransform> transform;
  const Spectrum spectrum(samples, transform);
  EXPECT_EQ(samples, before);
}

TEST(Spectrum, FindsTheHarmonicOfASine) {
  for (const std::size_t count : {100u, 101u, 6000u}) {
    for (const std::size_t harmonic : {1u, 7u, 31u, 33u, 49u}) {
      std::vector<double> samples(count);
      for (std::size_t j = 0; j < count; ++j) {
        const double turns = static_cast<double>(harmonic * j % count) / static_cast<double>(count);
        samples[j] = 9.0 + 0.25 * std::sin(2.0 * std::acos(-1.0) * turns);
      }
      std::unique_ptr<Base::ForwardTransform> transform;
      const Spectrum spectrum(samples, transform);
      EXPECT_EQ(spectrum.peak(1), harmonic);
      EXPECT_EQ(spectrum.peak(0), 0u);
      EXPECT_NEAR(std::abs(spectrum[harmonic]), 0.25, 1e-12);
      EXPECT_NEAR(spectrum[0].real(), 9.0, 1e-12);
    }
  }
}

TEST(Spectrum, TheElementAtHalfTheRateCountsOnce) {
  std::unique_ptr<Base::ForwardTransform> transform;
  const Spectrum spectrum(std::vector<double>{0.5, -0.5, 0.5, -0.5}, transform);
  EXPECT_DOUBLE_EQ(spectrum[2].real(), 0.5);
}

TEST(Spectrum, AnIndexAfterTheElementsIsRefusedExceptTheFirst) {
  std::unique_ptr<Base::ForwardTransform> transform;
  const Spectrum spectrum(std::vector<double>(10, 3.0), transform);
  EXPECT_DOUBLE_EQ(spectrum.at(0).real(), 3.0);
  EXPECT_EQ(spectrum.at(6), 0.0);
  EXPECT_EQ(thrown([&] { static_cast<void>(spectrum.at(7)); }), "Index 7 out of range");
}

TEST(BinValues, AreZeroExceptWhereSet) {
  Analysis::BinValues values(5);
  values.set(3, {1.0, 2.0});
  values.set(5, 7.0);
  EXPECT_EQ(values.at(3), std::complex<double>(1.0, 2.0));
  EXPECT_EQ(values.at(5), 7.0);
  EXPECT_EQ(values.at(0), 0.0);
  EXPECT_EQ(thrown([&] { values.set(6, 1.0); }), "Index 6 out of range");
  EXPECT_EQ(thrown([&] { static_cast<void>(values.at(6)); }), "Index 6 out of range");
  EXPECT_EQ(Analysis::BinValues().at(0), 0.0);
}

}  // namespace
