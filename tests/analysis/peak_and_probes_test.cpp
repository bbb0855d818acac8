// The choice of the fundamental and of the independent probes, before a separation.
#include <gtest/gtest.h>

#include <complex>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "analysis/freq_single.h"

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Base::Cvector form(std::vector<std::complex<double>> elements) {
  return {"", {}, std::move(elements)};
}

TEST(PeakBin, IsTheElementOfLargestMagnitude) {
  EXPECT_EQ(Analysis::peak_bin(form({9.0, 1.0, {2.0, -2.0}, -2.5}), 1), 2u);
  EXPECT_EQ(Analysis::peak_bin(form({9.0, 1.0, 2.0}), 0), 0u);
  EXPECT_EQ(Analysis::peak_bin(form({9.0, 1.0, 2.0, 3.0}), 1), 3u);
}

TEST(PeakBin, IsTheLowestOfEqualElements) {
  EXPECT_EQ(Analysis::peak_bin(form({9.0, 1.0, 3.0, -3.0, {0.0, 3.0}}), 1), 2u);
}

TEST(PeakBin, IsTheFirstElementIfAllAreZeroOrNaN) {
  EXPECT_EQ(Analysis::peak_bin(form({9.0, 0.0, 0.0, 0.0}), 2), 2u);
  EXPECT_EQ(Analysis::peak_bin(form({9.0, nan, nan}), 1), 1u);
  EXPECT_EQ(Analysis::peak_bin(form({}), 1), 1u);
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
