#include "base/signal_transform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "base/band_transform.h"
#include "support/own_process.h"

namespace {

using Base::ChirpTransform;
using Base::SignalTransform;
using Complex = std::complex<double>;
using Values = std::vector<double>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Real and imaginary parts up to `size`, with room for the samples.
Values drawn_band(std::size_t count, std::size_t samples, unsigned seed, double size = 1.0) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> unit(-size, size);
  Values band(std::max(2 * count, samples));
  for (std::size_t i = 0; i < 2 * count; ++i) band[i] = unit(random);
  return band;
}

// The sum of the harmonics, by its definition.
double plain_sample(const Values& band, std::size_t first, std::size_t count, std::size_t samples,
                    std::size_t j) {
  double sum = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t turn = (first + i) * j % samples;
    const double angle =
        2.0 * std::numbers::pi * static_cast<double>(turn) / static_cast<double>(samples);
    sum += band[2 * i] * std::cos(angle) - band[2 * i + 1] * std::sin(angle);
  }
  return sum;
}

// The largest difference from the plain sum, relative to the largest sample.
double worst_error(const Values& signal, const Values& band, std::size_t first, std::size_t count,
                   std::size_t samples) {
  double worst = 0.0;
  double peak = 0.0;
  const std::size_t step = samples / 300 + 1;
  for (std::size_t j = 0; j < samples; j += step) {
    const double expected = plain_sample(band, first, count, samples, j);
    peak = std::max(peak, std::abs(expected));
    const double error = std::abs(signal[j] - expected);
    if (!(error <= worst)) worst = error;
  }
  return worst / peak;
}

struct Band {
  std::size_t first;
  std::size_t count;
};

std::vector<Band> bands_of(std::size_t samples) {
  const std::size_t half = samples / 2;
  return {{0, 1}, {1, 1}, {half, 1}, {0, half + 1}, {half / 3, half / 5 + 1}};
}

TEST(ChirpTransform, AgreesWithThePlainSumForAnyLengthAndBand) {
  for (const std::size_t samples : {17u, 18u, 19u, 34u, 101u, 202u, 499u, 1009u, 2018u}) {
    for (const Band& band : bands_of(samples)) {
      const Values a = drawn_band(band.count, samples, 1);
      const Values b = drawn_band(band.count, samples, 2);
      ChirpTransform transform(samples, band.first, band.count);
      for (int time = 0; time < 2; ++time) {
        Values first = a;
        Values second = b;
        transform.run(first.data(), second.data());
        EXPECT_LE(worst_error(first, a, band.first, band.count, samples), 1e-12) << samples;
        EXPECT_LE(worst_error(second, b, band.first, band.count, samples), 1e-12) << samples;
        Values alone = a;
        transform.run(alone.data());
        EXPECT_LE(worst_error(alone, a, band.first, band.count, samples), 1e-12) << samples;
      }
    }
  }
}

TEST(ChirpTransform, ASmallSignalIsExactBesideALargeOne) {
  const std::size_t samples = 1009;
  ChirpTransform transform(samples, 5, 40);
  for (const double size : {1e-30, 1e-200, 1e200, 1e-307, 1e307}) {
    const Values a = drawn_band(40, samples, 1);
    const Values b = drawn_band(40, samples, 2, size);
    Values first = a;
    Values second = b;
    transform.run(first.data(), second.data());
    EXPECT_LE(worst_error(first, a, 5, 40, samples), 1e-12) << size;
    EXPECT_LE(worst_error(second, b, 5, 40, samples), 1e-12) << size;
  }
}

bool all_positive_zeros(const Values& values) {
  return std::all_of(values.begin(), values.end(),
                     [](double value) { return value == 0.0 && !std::signbit(value); });
}

TEST(ChirpTransform, ABandOfZerosGivesZerosBesideAnySignal) {
  const std::size_t samples = 1009;
  ChirpTransform transform(samples, 5, 40);
  const Values zeros(samples, 0.0);
  Values still = zeros;
  Values moving = drawn_band(40, samples, 1);
  transform.run(still.data(), moving.data());
  EXPECT_TRUE(all_positive_zeros(still));
  moving = drawn_band(40, samples, 1);
  transform.run(moving.data(), still.data());
  EXPECT_TRUE(all_positive_zeros(still));
  transform.run(still.data());
  EXPECT_TRUE(all_positive_zeros(still));
}

TEST(SignalTransform, NeedsNoMoreMemoryThanItReports) {
  if (Testing::sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  // A prime, twice a prime, and a convenient length, with all their harmonics and with few.
  for (const std::size_t samples : {500009u, 1000018u, 1000000u}) {
    for (const std::size_t count : {samples / 2, samples / 50}) {
      EXPECT_TRUE(Testing::good_alone([&] {
        Values a = drawn_band(count, samples, 1);
        Values b = a;
        const double before = Testing::peak_memory();
        SignalTransform transform(samples, 1, count);
        transform.run(a.data(), b.data());
        const double growth = Testing::peak_memory() - before;
        const auto most = static_cast<double>(SignalTransform::memory(samples, 1, count));
        return growth <= most && growth > 0.25 * most - 5e6;
      })) << samples
          << " samples, " << count;
    }
  }
}

TEST(SignalTransform, TakesNoConvolutionLongerThanATransformCanBe) {
  constexpr std::size_t longest = 2147483647;  // a prime
  for (const std::size_t samples : {longest, longest - 18, longest / 3 * 2 + 1}) {
    EXPECT_FALSE(SignalTransform::takes_chirp(samples, 0, samples / 2 + 1)) << samples;
  }
  EXPECT_FALSE(SignalTransform::takes_chirp(longest, 0, 1));
  EXPECT_TRUE(SignalTransform::takes_chirp(1009, 0, 505));
  EXPECT_TRUE(SignalTransform::takes_chirp(1009, 0, 1));
}

TEST(SignalTransform, AnEmptyBandGivesZeros) {
  for (const std::size_t samples : {1u, 64u, 1009u}) {
    SignalTransform transform(samples, 0, 0);
    Values a(samples, 3.0);
    Values b(samples, 4.0);
    transform.run(a.data(), b.data());
    EXPECT_EQ(a, Values(samples, 0.0));
    EXPECT_EQ(b, a);
  }
}

TEST(ChirpTransform, NanReachesAllSamplesOfItsSignalAndNoOther) {
  const std::size_t samples = 1009;
  ChirpTransform transform(samples, 5, 40);
  for (const double odd : {nan, std::numeric_limits<double>::infinity()}) {
    for (const bool swapped : {false, true}) {
      const Values good = drawn_band(40, samples, 1);
      Values broken = drawn_band(40, samples, 2);
      broken[7] = odd;
      Values signal = good;
      if (swapped) {
        transform.run(broken.data(), signal.data());
      } else {
        transform.run(signal.data(), broken.data());
      }
      EXPECT_LE(worst_error(signal, good, 5, 40, samples), 1e-12);
      for (const double sample : broken) ASSERT_FALSE(std::isfinite(sample));
    }
  }
}

TEST(SignalTransform, NanAndInfinityComeOutAsInThePlainTransform) {
  constexpr std::size_t samples = 1009;
  constexpr std::size_t count = 40;
  for (const double odd : {nan, std::numeric_limits<double>::infinity()}) {
    const Values good = drawn_band(count, samples, 1);
    Values broken = drawn_band(count, samples, 2);
    broken[0] = odd;
    Values expected(samples);
    Base::BandTransform(samples, 0, count).run(broken.data(), expected.data());
    Values signal = good;
    SignalTransform(samples, 0, count).run(signal.data(), broken.data());
    EXPECT_LE(worst_error(signal, good, 0, count, samples), 1e-12);
    for (std::size_t j = 0; j < samples; ++j) {
      const bool same =
          broken[j] == expected[j] || (std::isnan(broken[j]) && std::isnan(expected[j]));
      ASSERT_TRUE(same) << j;
    }
  }
}

TEST(SignalTransform, EitherOfTwoSignalsMayBeBroken) {
  constexpr std::size_t samples = 1009;
  constexpr std::size_t count = 40;
  const Values good = drawn_band(count, samples, 1);
  Values broken = drawn_band(count, samples, 2);
  broken[0] = nan;
  Values signal = good;
  SignalTransform(samples, 0, count).run(broken.data(), signal.data());
  EXPECT_LE(worst_error(signal, good, 0, count, samples), 1e-12);
  for (const double value : broken) ASSERT_TRUE(std::isnan(value));
}

TEST(SignalTransform, ACopyOfNoSamplesHasNone) {
  const SignalTransform none(0, 0, 0);
  SignalTransform copy(none);
  double untouched = 3.0;
  copy.run(&untouched);
  EXPECT_EQ(untouched, 3.0);
}

// A convolution adds in another order, and could stay finite where the plain transform does not.
TEST(SignalTransform, SumsThatOverflowAreThoseOfThePlainTransform) {
  constexpr std::size_t samples = 1009;
  constexpr std::size_t count = 40;
  const Values huge(samples, 1e308);
  Values expected(samples);
  Base::BandTransform(samples, 0, count).run(huge.data(), expected.data());
  ASSERT_FALSE(std::isfinite(expected[0]));
  for (const bool paired : {false, true}) {
    Values signal = huge;
    Values other = drawn_band(count, samples, 1);
    SignalTransform transform(samples, 0, count);
    if (paired) {
      transform.run(other.data(), signal.data());
    } else {
      transform.run(signal.data());
    }
    for (std::size_t j = 0; j < samples; ++j) {
      const bool same =
          signal[j] == expected[j] || (std::isnan(signal[j]) && std::isnan(expected[j]));
      ASSERT_TRUE(same) << j;
    }
  }
}

TEST(SignalTransform, AgreesWithThePlainSumForConvenientAndAwkwardLengths) {
  for (const std::size_t samples : {2u, 64u, 1000u, 1009u, 2018u, 4096u, 5999u, 6002u}) {
    for (const Band& band : bands_of(samples)) {
      const Values a = drawn_band(band.count, samples, 1);
      const Values b = drawn_band(band.count, samples, 2);
      SignalTransform transform(samples, band.first, band.count);
      Values first = a;
      Values second = b;
      Values alone = a;
      transform.run(first.data(), second.data());
      transform.run(alone.data());
      EXPECT_LE(worst_error(first, a, band.first, band.count, samples), 1e-12) << samples;
      EXPECT_LE(worst_error(second, b, band.first, band.count, samples), 1e-12) << samples;
      EXPECT_LE(worst_error(alone, a, band.first, band.count, samples), 1e-12) << samples;
    }
  }
}

}  // namespace
