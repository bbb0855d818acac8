// The choice of the fundamental and of the independent probes, before a separation.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "analysis/probes.h"
#include "analysis/spectrum.h"

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

using Elements = std::vector<std::complex<double>>;

std::uint32_t peak(const Elements& elements, std::uint32_t start, double scale = 1.0) {
  std::vector<double> parts;
  for (const std::complex<double>& element : elements) {
    parts.insert(parts.end(), {element.real(), element.imag()});
  }
  return Analysis::peak_bin(parts, scale, start);
}

TEST(PeakBin, IsTheElementOfLargestMagnitude) {
  EXPECT_EQ(peak({9.0, 1.0, {2.0, -2.0}, -2.5}, 1), 2u);
  EXPECT_EQ(peak({9.0, 1.0, 2.0}, 0), 0u);
  EXPECT_EQ(peak({9.0, 1.0, 2.0, 3.0}, 1), 3u);
}

TEST(PeakBin, IsTheLowestOfEqualElements) {
  EXPECT_EQ(peak({9.0, 1.0, 3.0, -3.0, {0.0, 3.0}}, 1), 2u);
}

TEST(PeakBin, IsTheFirstElementIfAllAreZeroOrNaN) {
  EXPECT_EQ(peak({9.0, 0.0, 0.0, 0.0}, 2), 2u);
  EXPECT_EQ(peak({9.0, nan, nan}, 1), 1u);
  EXPECT_EQ(peak({}, 1), 1u);
}

// Every magnitude is computed and compared.
std::uint32_t plain_peak(const Elements& elements, std::uint32_t start, double scale) {
  std::uint32_t bin = start;
  double best = 0.0;
  for (std::uint32_t h = start; h < elements.size(); ++h) {
    const double magnitude = std::abs(elements[h] * scale);
    if (magnitude > best) {
      best = magnitude;
      bin = h;
    }
  }
  return bin;
}

void expect_plain_peak(const Elements& elements) {
  for (const double scale : {1.0, 2.0 / 3.0, 1e-6}) {
    for (const std::uint32_t start : {0u, 1u, 33u}) {
      EXPECT_EQ(peak(elements, start, scale), plain_peak(elements, start, scale));
    }
  }
}

TEST(PeakBin, AgreesWithAPlainSearchOverDrawnElements) {
  std::mt19937_64 random(1);
  std::normal_distribution<double> normal;
  for (const double size : {1.0, 1e-3, 1e-150, 1e-200, 1e-310, 1e150, 1e200, 1e307}) {
    for (std::size_t count = 0; count < 300; count += 7) {
      Elements elements(count);
      for (auto& element : elements) element = {size * normal(random), size * normal(random)};
      expect_plain_peak(elements);
    }
  }
}

TEST(PeakBin, AgreesWhereMagnitudesDifferInTheirLastBits) {
  // The same magnitude in many directions: each is rounded differently.
  std::mt19937_64 random(2);
  for (int round = 0; round < 300; ++round) {
    Elements elements(200);
    for (auto& element : elements) {
      element = std::polar(1.0, 6.3 * std::generate_canonical<double, 53>(random));
      if (random() % 4 == 0) element = {element.imag(), -element.real()};
    }
    expect_plain_peak(elements);
  }
}

TEST(PeakBin, AgreesWithAPlainSearchForNonFiniteElements) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const std::vector<double> odd = {0.0, -0.0, nan, infinity, -infinity, 1e308, 5e-324, 1e-170};
  std::mt19937_64 random(3);
  for (const std::uint64_t rarity : {1u, 6u, 60u}) {
    for (int round = 0; round < 300; ++round) {
      Elements elements(150);
      const auto part = [&] {
        return random() % rarity == 0 ? odd[random() % odd.size()]
                                      : std::generate_canonical<double, 53>(random) - 0.5;
      };
      for (auto& element : elements) element = {part(), part()};
      expect_plain_peak(elements);
    }
  }
}

std::uint32_t independent(const std::vector<double>& positions, double k = 1.0) {
  std::vector<Analysis::ProbeRecord> records;
  records.reserve(positions.size());
  for (const double s : positions) records.push_back({0, s, {}});
  return Analysis::independent_probes(records, k);
}

TEST(IndependentProbes, AreMoreThanATenthOfARadianFromTheLastCountedOne) {
  EXPECT_EQ(independent({-7.0}), 1u);
  EXPECT_EQ(independent({2.0, 2.0, 2.0, 2.0}), 1u);
  EXPECT_EQ(independent({0.0, 0.1, 0.2}), 2u);  // the third, seen from the first
  EXPECT_EQ(independent({0.0, 0.11, 0.22}), 3u);
  EXPECT_EQ(independent({-0.05, 0.06, 0.1, 0.15, 0.17}), 3u);
  EXPECT_EQ(independent({0.0, 0.02, 0.04, 0.06, 0.08, 0.0999}), 1u);
  // Each is close to its neighbour; the distance to the last counted one matters.
  EXPECT_EQ(independent({0.0, 0.06, 0.12, 0.18, 0.24, 0.30}), 3u);
  EXPECT_EQ(independent({0.0, 0.03, 0.06}, 4.0), 3u);
  EXPECT_EQ(independent({0.0, 0.02, 0.04}, 4.0), 2u);
}

}  // namespace
