#include "base/fft.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string>
#include <thread>
#include <vector>

#include "base/band_transform.h"
#include "base/memory.h"
#include "support/own_process.h"
#include "support/thrown.h"

namespace {

using Base::FFT_Plan;
using Base::FFT_Type;
using Testing::thrown;
using Complex = std::complex<double>;
using Spectrum = std::vector<Complex>;
using Values = std::vector<double>;

constexpr double two_pi = 2.0 * std::numbers::pi;

// The angle of harmonic h at sample j, reduced so that long records keep their accuracy.
double angle(std::size_t h, std::size_t j, std::size_t n) {
  return two_pi * static_cast<double>(h * j % n) / static_cast<double>(n);
}

// The sum of the harmonics, by its definition.
Values sum_of_harmonics(const Spectrum& freq, std::size_t n) {
  Values time(n);
  for (std::size_t j = 0; j < n; ++j) {
    for (std::size_t h = 0; h < freq.size() && h <= n / 2; ++h) {
      time[j] += (freq[h] * std::polar(1.0, angle(h, j, n))).real();
    }
  }
  return time;
}

// The amplitudes of the harmonics, by correlation with each.
Spectrum amplitudes(const Values& time) {
  const std::size_t n = time.size();
  Spectrum freq(n / 2 + 1);
  for (std::size_t h = 0; h < freq.size(); ++h) {
    for (std::size_t j = 0; j < n; ++j) {
      freq[h] += time[j] * std::polar(1.0, -angle(h, j, n));
    }
    const bool once = h == 0 || 2 * h == n;
    freq[h] *= (once ? 1.0 : 2.0) / static_cast<double>(n);
  }
  return freq;
}

// Irregular numbers between -1 and 1, the same on each call.
double irregular(std::size_t i) { return std::sin(12.9898 * static_cast<double>(i + 1) * 4.7); }

Values record(std::size_t n) {
  Values time(n);
  for (std::size_t j = 0; j < n; ++j) {
    time[j] = irregular(j * j + 3 * j);
  }
  return time;
}

Spectrum harmonics(std::size_t count) {
  Spectrum freq(count);
  for (std::size_t h = 0; h < count; ++h) {
    freq[h] = {irregular(7 * h), irregular(h * h + 11)};
  }
  return freq;
}

Spectrum to_freq(const Values& time) {
  Spectrum freq(time.size() / 2 + 1);
  KLPFFT_time_to_freq(&time, &freq);
  return freq;
}

Values to_time(const Spectrum& freq, std::size_t n) {
  Values time(n);
  KLPFFT_freq_to_time(&freq, &time);
  return time;
}

template <typename T>
void expect_near(const std::vector<T>& actual, const std::vector<T>& expected, double tolerance) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    ASSERT_LE(std::abs(actual[i] - expected[i]), tolerance) << i;
  }
}

std::vector<std::size_t> sizes() {
  std::vector<std::size_t> result;
  for (std::size_t n = 1; n <= 64; ++n) {
    result.push_back(n);
  }
  for (const std::size_t n : {97, 127, 200, 201, 256, 499, 997, 1000, 1009}) {
    result.push_back(n);
  }
  return result;
}

TEST(Fft, SamplesAreTheSumOfTheHarmonics) {
  for (const std::size_t n : sizes()) {
    SCOPED_TRACE(n);
    const Spectrum freq = harmonics(n / 2 + 1);
    expect_near(to_time(freq, n), sum_of_harmonics(freq, n), 1e-13 * static_cast<double>(n + 10));
  }
}

TEST(Fft, ElementsAreTheAmplitudesOfTheHarmonics) {
  for (const std::size_t n : sizes()) {
    SCOPED_TRACE(n);
    const Values time = record(n);
    expect_near(to_freq(time), amplitudes(time), 1e-13);
  }
}

TEST(Fft, TheTwoDirectionsAreInverse) {
  for (const std::size_t n : sizes()) {
    SCOPED_TRACE(n);
    const Values time = record(n);
    expect_near(to_time(to_freq(time), n), time, 1e-13);
    // A transform returns a real mean and a real element at n / 2.
    Spectrum freq = harmonics(n / 2 + 1);
    freq.front().imag(0.0);
    if (n % 2 == 0) {
      freq.back().imag(0.0);
    }
    expect_near(to_freq(to_time(freq, n)), freq, 1e-13);
  }
}

TEST(Fft, SamplesAndHarmonicsHaveTheSamePower) {
  for (const std::size_t n : sizes()) {
    const Values time = record(n);
    const Spectrum freq = to_freq(time);
    double of_samples = 0.0;
    for (const double sample : time) {
      of_samples += sample * sample / static_cast<double>(n);
    }
    double of_harmonics = 0.0;
    for (std::size_t h = 0; h < freq.size(); ++h) {
      of_harmonics += std::norm(freq[h]) * (h == 0 || 2 * h == n ? 1.0 : 0.5);
    }
    EXPECT_NEAR(of_harmonics, of_samples, 1e-12) << n;
  }
}

TEST(Fft, ASinusoidGivesItsAmplitudeAndPhaseAtItsHarmonic) {
  constexpr std::size_t n = 120;
  Values time(n);
  for (std::size_t j = 0; j < n; ++j) {
    time[j] = 1.5 + 0.75 * std::cos(angle(7, j, n) + 0.4);
  }
  const Spectrum freq = to_freq(time);
  EXPECT_NEAR(std::abs(freq[0] - 1.5), 0.0, 1e-13);
  EXPECT_NEAR(std::abs(freq[7] - std::polar(0.75, 0.4)), 0.0, 1e-13);
  EXPECT_NEAR(std::abs(freq[6]), 0.0, 1e-13);
}

TEST(Fft, TheNyquistElementCountsOnce) {
  const Values time = {3, -3, 3, -3, 3, -3};
  const Spectrum freq = to_freq(time);
  expect_near(freq, Spectrum{0.0, 0.0, 0.0, 3.0}, 1e-14);
  expect_near(to_time({0.0, 0.0, 0.0, {3.0, 8.0}}, 6), time, 1e-14);
}

TEST(Fft, TransformsZeroOneAndTwoSamples) {
  EXPECT_TRUE(to_time({5.0}, 0).empty());
  EXPECT_TRUE(to_time({}, 0).empty());
  EXPECT_EQ(to_freq({}), Spectrum{0.0});
  EXPECT_EQ(to_time({{5.0, 2.0}}, 1), Values{5.0});
  EXPECT_EQ(to_freq({5.0}), Spectrum{5.0});
  EXPECT_EQ(to_time({5.0, 1.0}, 2), (Values{6.0, 4.0}));
  EXPECT_EQ(to_freq({6.0, 4.0}), (Spectrum{5.0, 1.0}));
}

TEST(Fft, ElementsAboveHalfAreIgnored) {
  for (const std::size_t n : {1, 2, 8, 9, 201}) {
    const Spectrum freq = harmonics(n / 2 + 1);
    Spectrum longer = freq;
    longer.resize(n + 5, {1e6, 1e6});
    EXPECT_EQ(to_time(longer, n), to_time(freq, n)) << n;
  }
}

TEST(Fft, MissingElementsAreZero) {
  for (const std::size_t n : {1, 2, 8, 9, 201}) {
    Spectrum shorter = harmonics(n / 4);
    Spectrum padded = shorter;
    padded.resize(n / 2 + 1);
    EXPECT_EQ(to_time(shorter, n), to_time(padded, n)) << n;
  }
}

TEST(Fft, ASpectrumOfAnotherSizeIsTruncatedOrFilledWithZeros) {
  const Values time = record(20);
  const Spectrum whole = to_freq(time);
  Spectrum shorter(4, 99.0);
  KLPFFT_time_to_freq(&time, &shorter);
  EXPECT_EQ(shorter, Spectrum(whole.begin(), whole.begin() + 4));
  Spectrum longer(20, 99.0);
  KLPFFT_time_to_freq(&time, &longer);
  Spectrum expected = whole;
  expected.resize(20);
  EXPECT_EQ(longer, expected);
  Spectrum none;
  KLPFFT_time_to_freq(&time, &none);
  EXPECT_TRUE(none.empty());
}

TEST(Fft, InputsAreNotModified) {
  const Values time = record(30);
  const Spectrum freq = harmonics(16);
  to_freq(time);
  to_time(freq, 30);
  EXPECT_EQ(time, record(30));
  EXPECT_EQ(freq, harmonics(16));
}

TEST(Fft, ResultsDoNotDependOnTheAddressOfTheVector) {
  const Spectrum freq = harmonics(501);
  const Values first = to_time(freq, 1000);
  std::vector<Values> others;
  for (std::size_t i = 0; i < 8; ++i) {
    others.emplace_back(i + 1);
    EXPECT_EQ(to_time(freq, 1000), first);
  }
}

TEST(FftPlan, GivesTheSameResultAsASingleTransform) {
  for (const std::size_t n : {1, 2, 64, 201, 997}) {
    FFT_Plan plan(static_cast<unsigned>(n), static_cast<unsigned>(n / 2 + 1),
                  FFT_Type::freq_to_time);
    for (const std::size_t count : {n / 2 + 1, n, n / 3}) {
      const Spectrum freq = harmonics(count);
      Values time(n, 99.0);
      plan.execute(&freq, &time);
      EXPECT_EQ(time, to_time(freq, n)) << n;
    }
    plan.freeFFTBuffers();
  }
}

TEST(FftPlan, GivesTheSameResultFromASpectrumItMayOverwrite) {
  for (const std::size_t n : {1, 2, 64, 201, 997}) {
    FFT_Plan plan(static_cast<unsigned>(n), static_cast<unsigned>(n / 2 + 1),
                  FFT_Type::freq_to_time);
    for (const std::size_t count : {n / 2 + 1, n, n / 3}) {
      Spectrum first = harmonics(count);
      Spectrum second = first;
      const Values expected = to_time(first, n);
      Values time(n, 99.0);
      Base::consume_to_time(first, time);
      EXPECT_EQ(time, expected) << n;
      plan.consume(second, time);
      EXPECT_EQ(time, expected) << n;
    }
  }
}

// The harmonics of a band as real and imaginary parts, with room for the samples.
Values band_parts(const Spectrum& freq, std::size_t first, std::size_t n) {
  Values parts;
  for (std::size_t h = first; h < freq.size(); ++h) {
    parts.push_back(freq[h].real());
    parts.push_back(freq[h].imag());
  }
  parts.resize(std::max(parts.size(), n));
  return parts;
}

TEST(BandTransform, SamplesAreTheSumOfTheHarmonicsOfTheBand) {
  for (const std::size_t n : {1, 2, 3, 4, 5, 8, 11, 12, 97, 200, 201}) {
    for (std::size_t first = 0; first <= n / 2; first += n / 5 + 1) {
      for (std::size_t end = first; end <= n / 2 + 1; end += n / 4 + 1) {
        Base::BandTransform transform(n, first, end - first);
        // Twice, because a transform may leave remains of the last one.
        for (const double sign : {1.0, -1.0}) {
          Spectrum freq = harmonics(end);
          for (std::size_t h = 0; h < end; ++h) freq[h] = h < first ? 0.0 : sign * freq[h];
          const Values band = band_parts(freq, first, 0);
          Values apart(n);
          transform.run(band.data(), apart.data());
          expect_near(apart, sum_of_harmonics(freq, n), 1e-11);
          Values within = band_parts(freq, first, n);
          transform.run(within.data(), within.data());
          within.resize(n);
          EXPECT_EQ(within, apart) << n << " samples from " << first << " to " << end;
        }
      }
    }
  }
}

TEST(BandTransform, AcceptsZeroSamples) {
  Base::BandTransform transform(0, 0, 0);
  transform.run(nullptr, nullptr);
}

TEST(BandTransform, RefusesMoreSamplesThanTheLibraryCanTransform) {
  EXPECT_EQ(thrown([] { Base::BandTransform transform(std::size_t{1} << 31, 1, 1); }),
            "FFT of 2147483648 samples is too long");
}

TEST(Fft, TheEstimatedMemoryGrowsWithTheLargestPrime) {
  constexpr std::uint64_t fixed = 2 << 20;
  EXPECT_EQ(Base::transform_memory(0), 0U);
  EXPECT_EQ(Base::transform_memory(1 << 20), fixed + (21U << 20));
  // 2 * 3 * 174763, and a prime.
  EXPECT_EQ(Base::transform_memory(1048578), fixed + 21U * 1048578 + 80U * 174763);
  EXPECT_EQ(Base::transform_memory(1048583), fixed + 101U * 1048583);
}

// Transforms of a number of samples, each after a check of its memory.
class CheckedTransform : public testing::TestWithParam<std::size_t> {};

enum class Outcome { transformed, refused, ended };

Outcome transform_in_room(std::size_t n, double room) {
  const auto transform = [n] {
    Base::require_memory(16 * n + Base::transform_memory(n), "Samples");
    Spectrum freq(n / 2 + 1);
    freq[1] = 1.0;
    Values time(n);
    Base::consume_to_time(freq, time);
    KLPFFT_time_to_freq(&time, &freq);
    return true;
  };
  const auto transformed = [&] {
    Testing::leave_room(room);
    return transform();
  };
  const auto refused = [&] {
    Testing::leave_room(room);
    return thrown(transform).starts_with("Samples need ");
  };
  if (Testing::good_alone(transformed)) return Outcome::transformed;
  return Testing::good_alone(refused) ? Outcome::refused : Outcome::ended;
}

TEST_P(CheckedTransform, SucceedsOrIsRefusedWhateverRoomIsLeft) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  const std::size_t n = GetParam();
  const auto checked = static_cast<double>(16 * n + Base::transform_memory(n));
  constexpr int steps = 24;
  bool refused = false;
  bool transformed = false;
  for (int step = 0; step <= steps; ++step) {
    const double room = checked * (0.4 + 0.8 * step / steps);
    const Outcome outcome = transform_in_room(n, room);
    EXPECT_TRUE(outcome != Outcome::ended) << room << " bytes of " << checked;
    refused = refused || outcome == Outcome::refused;
    transformed = transformed || outcome == Outcome::transformed;
  }
  EXPECT_TRUE(refused);
  EXPECT_TRUE(transformed);
}

// A power of two, small odd factors, twice a prime, a prime.
INSTANTIATE_TEST_SUITE_P(Lengths, CheckedTransform,
                         testing::Values(262144, 114427, 231542, 150373));

TEST(FftPlan, AcceptsZeroSamples) {
  FFT_Plan plan(0, 1, FFT_Type::freq_to_time);
  const Spectrum freq = {1.0};
  Values time;
  plan.execute(&freq, &time);
  EXPECT_TRUE(time.empty());
  plan.freeFFTBuffers();
}

TEST(FftPlan, ConsumesNothingForZeroSamples) {
  FFT_Plan plan(0, 1, FFT_Type::freq_to_time);
  Spectrum freq = {1.0};
  Values time;
  plan.consume(freq, time);
  EXPECT_TRUE(time.empty());
  EXPECT_EQ(freq, Spectrum{1.0});
}

TEST(FftPlan, ACopyHasNoBuffersEither) {
  FFT_Plan empty(0, 1, FFT_Type::freq_to_time);
  FFT_Plan freed(8, 5, FFT_Type::freq_to_time);
  freed.freeFFTBuffers();
  const Spectrum freq = harmonics(5);
  Values time;
  FFT_Plan(empty).execute(&freq, &time);
  EXPECT_TRUE(time.empty());
  time.resize(8);
  EXPECT_EQ(thrown([&] { FFT_Plan(freed).execute(&freq, &time); }), "FFT plan without its buffers");
}

TEST(FftPlan, RefusesAVectorOfAnotherSize) {
  FFT_Plan plan(8, 5, FFT_Type::freq_to_time);
  const Spectrum freq = harmonics(5);
  Values time(7);
  EXPECT_EQ(thrown([&] { plan.execute(&freq, &time); }), "FFT plan for 8 samples given 7");
  time.resize(9);
  EXPECT_EQ(thrown([&] { plan.execute(&freq, &time); }), "FFT plan for 8 samples given 9");
}

TEST(FftPlan, RefusesToRunAfterItsBuffersAreFreed) {
  FFT_Plan plan(8, 5, FFT_Type::freq_to_time);
  plan.freeFFTBuffers();
  plan.freeFFTBuffers();
  const Spectrum freq = harmonics(5);
  Values time(8);
  EXPECT_EQ(thrown([&] { plan.execute(&freq, &time); }), "FFT plan without its buffers");
}

// The threads also create their plans concurrently.
TEST(Fft, ThreadsMayTransformConcurrently) {
  const auto transforms = [] {
    std::vector<Values> results;
    for (std::size_t n = 1; n <= 120; ++n) {
      const Values time = to_time(harmonics(n / 2 + 1), n);
      FFT_Plan plan(static_cast<unsigned>(n), 1, FFT_Type::freq_to_time);
      const Spectrum freq = to_freq(time);
      Values again(n);
      plan.execute(&freq, &again);
      results.push_back(again);
    }
    return results;
  };
  std::vector<std::vector<Values>> results(4);
  std::vector<std::thread> threads;
  for (auto& result : results) {
    threads.emplace_back([&] { result = transforms(); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  const std::vector<Values> alone = transforms();
  for (const auto& result : results) {
    EXPECT_EQ(result, alone);
  }
}

}  // namespace
