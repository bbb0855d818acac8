// Transforms of one size from and to the caller's memory, against closed forms.
#include "base/forward_transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <span>
#include <thread>
#include <vector>

#include "support/thrown.h"

namespace {

constexpr double two_pi = 6.283185307179586;

// A mean of 3 and a wave of amplitude 0.5 at the harmonic, from the given sample of the array on.
std::vector<double> wave(std::size_t samples, std::size_t harmonic, std::size_t from) {
  std::vector<double> array(from + samples, -99.0);
  for (std::size_t j = 0; j < samples; ++j) {
    const double turns = static_cast<double>(harmonic * j % samples) / static_cast<double>(samples);
    array[from + j] = 3.0 + 0.5 * std::cos(two_pi * turns + 0.25);
  }
  return array;
}

std::vector<double> parts_of(Base::ForwardTransform& transform, std::span<const double> samples) {
  std::vector<double> parts(2 * (samples.size() / 2 + 1), -99.0);
  transform.run(samples, parts);
  return parts;
}

void expect_wave(const std::vector<double>& parts, std::size_t samples, std::size_t harmonic) {
  const auto count = static_cast<double>(samples);
  std::vector<double> expected(parts.size());
  expected[0] = 3.0 * count;
  expected[2 * harmonic] = 0.25 * count * std::cos(0.25);
  expected[2 * harmonic + 1] = 0.25 * count * std::sin(0.25);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    EXPECT_NEAR(parts[i], expected[i], 1e-12 * count) << samples << " samples, part " << i;
  }
}

TEST(ForwardTransform, GivesTheSumsOverTheSamplesWhereverTheyStart) {
  for (const std::size_t samples : {5u, 8u, 97u, 100u, 1031u}) {
    Base::ForwardTransform transform(samples);
    EXPECT_EQ(transform.samples(), samples);
    for (const std::size_t from : {1u, 0u, 2u, 3u}) {
      for (const std::size_t harmonic : {1u, 2u}) {
        const std::vector<double> array = wave(samples, harmonic, from);
        expect_wave(parts_of(transform, std::span(array).subspan(from)), samples, harmonic);
      }
    }
  }
}

TEST(ForwardTransform, DoesNotDependOnWhereTheSamplesStart) {
  for (const std::size_t samples : {64u, 100u, 1031u}) {
    Base::ForwardTransform transform(samples);
    const std::vector<double> first = wave(samples, 2, 0);
    const std::vector<double> expected = parts_of(transform, first);
    for (const std::size_t from : {1u, 2u, 3u}) {
      const std::vector<double> array = wave(samples, 2, from);
      EXPECT_EQ(parts_of(transform, std::span(array).subspan(from)), expected);
    }
  }
}

TEST(ForwardTransform, SeveralThreadsMayTransformAtTheSameTime) {
  std::vector<std::thread> threads;
  for (std::size_t n = 0; n < 4; ++n) {
    threads.emplace_back([n] {
      for (std::size_t samples = 50 + n; samples < 250; samples += 3) {
        Base::ForwardTransform transform(samples);
        expect_wave(parts_of(transform, wave(samples, 3, 0)), samples, 3);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(ForwardTransform, RefusesMoreSamplesThanTheLibraryCanTransform) {
  EXPECT_EQ(Testing::thrown([] { Base::ForwardTransform transform(std::size_t{1} << 31); }),
            "FFT of 2147483648 samples is too long");
}

}  // namespace
