// The order of sorted waves, against the library's own sort.
#include "analysis/wave_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <vector>

#include "analysis/total_order.h"

namespace {

using Analysis::Wave;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<std::uint64_t> bits(const std::vector<Wave>& waves) {
  std::vector<std::uint64_t> all;
  for (const Wave& wave : waves) {
    for (const double field : {wave.crest, wave.trough, wave.end, wave.start}) {
      all.push_back(std::bit_cast<std::uint64_t>(field));
    }
  }
  return all;
}

// Waves of drawn heights and periods.
std::vector<Wave> drawn(std::size_t count, const std::function<double()>& height,
                        const std::function<double()>& period) {
  std::vector<Wave> waves(count);
  double time = 0.0;
  for (Wave& wave : waves) {
    wave = {height(), -height(), time + period(), time};
    time = wave.end;
  }
  return waves;
}

// Sorts by one key after the other, as hosts make the library do.
void expect_library_order(std::vector<Wave> waves) {
  std::vector<Wave> expected = waves;
  for (int round = 0; round < 2; ++round) {
    Analysis::sort_waves(waves, &Wave::height);
    std::ranges::sort(expected, Analysis::TotalOrder(), &Wave::height);
    ASSERT_EQ(bits(waves), bits(expected));
    Analysis::sort_waves(waves, &Wave::period);
    std::ranges::sort(expected, Analysis::TotalOrder(), &Wave::period);
    ASSERT_EQ(bits(waves), bits(expected));
  }
}

const std::vector<std::size_t> counts = {0, 1, 2, 5, 16, 17, 100, 999, 1000, 1001, 5000, 40000};

TEST(SortWaves, SortsDifferentWaves) {
  std::mt19937_64 random(1);
  const auto uniform = [&] { return std::generate_canonical<double, 53>(random); };
  for (const std::size_t count : counts) expect_library_order(drawn(count, uniform, uniform));
}

TEST(SortWaves, LeavesEqualKeysWhereTheLibraryLeavesThem) {
  std::mt19937_64 random(2);
  for (const std::uint64_t steps : {1u, 3u, 50u, 4000u}) {
    const auto stepped = [&] { return 0.001 * static_cast<double>(random() % steps); };
    for (const std::size_t count : counts) expect_library_order(drawn(count, stepped, stepped));
  }
}

TEST(SortWaves, SortsAListThatWasAppendedToItself) {
  std::mt19937_64 random(3);
  const auto uniform = [&] { return std::generate_canonical<double, 53>(random); };
  for (const std::size_t count : counts) {
    std::vector<Wave> waves = drawn(count, uniform, uniform);
    const std::vector<Wave> again = waves;
    waves.insert(waves.end(), again.begin(), again.end());
    expect_library_order(waves);
  }
}

TEST(SortWaves, SortsSignedZerosAndNonFiniteKeys) {
  const std::vector<double> odd = {0.0, -0.0, nan,    -nan,    infinity, -infinity,
                                   1.0, -1.0, 5e-324, -5e-324, 1e308,    -1e308};
  std::mt19937_64 random(4);
  const auto any = [&] { return odd[random() % odd.size()]; };
  for (const std::size_t count : counts) {
    std::vector<Wave> waves(count);
    for (Wave& wave : waves) wave = {any(), any(), any(), any()};
    expect_library_order(waves);
  }
}

}  // namespace
