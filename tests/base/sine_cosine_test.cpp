#include "base/sine_cosine.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "support/each_target.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double reducible = 1.6e6;

struct Pairs {
  explicit Pairs(const std::vector<double>& angles)
      : sines(angles.size(), 7.0), cosines(angles.size(), 7.0) {
    Base::sine_cosine(angles.data(), angles.size(), sines.data(), cosines.data());
  }
  std::vector<double> sines;
  std::vector<double> cosines;
};

// Angles up to `size`, of any magnitude, and the multiples of pi/4 around them.
std::vector<double> drawn_angles(double size, std::size_t count) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  std::vector<double> angles;
  for (std::size_t i = 0; i < count; ++i) {
    const double linear = size * unit(random);
    angles.push_back(linear);
    angles.push_back(std::copysign(size * std::exp(-40.0 * std::abs(unit(random))), linear));
    const double eighth = std::numbers::pi / 4.0;
    const double multiple = std::round(linear / eighth) * eighth;
    for (const double angle :
         {multiple, std::nextafter(multiple, size), std::nextafter(multiple, -size)}) {
      if (std::abs(angle) <= size) angles.push_back(angle);
    }
  }
  return angles;
}

std::vector<double> edge_angles() {
  const double smallest = std::numeric_limits<double>::denorm_min();
  const double normal = std::numeric_limits<double>::min();
  std::vector<double> angles = {0.0, smallest, 3e-310, normal, 1e-300, 1e-20, 1e-8, 1.0};
  for (const double angle : {reducible, std::nextafter(reducible, infinity), 1e7, 1e22, 1e308,
                             std::numeric_limits<double>::max(), infinity}) {
    angles.push_back(angle);
  }
  for (std::size_t i = angles.size(); i-- > 0;) angles.push_back(-angles[i]);
  angles.push_back(nan);
  return angles;
}

bool same_bits(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

TEST(SineCosine, IsWithinRoundingOfTheExactValues) {
  // Exact enough only where long double is longer than double.
  const double rounding = std::numeric_limits<long double>::digits > 53 ? 1.2e-16 : 2.4e-16;
  for (const double size : {1.0, 10.0, 1e3, 1e5, reducible}) {
    const std::vector<double> angles = drawn_angles(size, 20000);
    const Pairs pairs(angles);
    long double worst = 0.0L;
    double largest = 0.0;
    for (std::size_t i = 0; i < angles.size(); ++i) {
      const auto angle = static_cast<long double>(angles[i]);
      worst = std::max(worst, std::abs(std::sin(angle) - pairs.sines[i]));
      worst = std::max(worst, std::abs(std::cos(angle) - pairs.cosines[i]));
      largest = std::max({largest, std::abs(pairs.sines[i]), std::abs(pairs.cosines[i])});
    }
    EXPECT_LE(worst, rounding) << "angles up to " << size;
    EXPECT_LE(largest, 1.0) << "angles up to " << size;
  }
}

TEST(SineCosine, IsStdSineAndCosineForLargeAngles) {
  const std::vector<double> angles = {1.7e6, -1.7e6, 1e7, 1e22, -1e22, 1e300, -1e308, 2e6, 3e9};
  Testing::on_each_target([&] {
    const Pairs pairs(angles);
    for (std::size_t i = 0; i < angles.size(); ++i) {
      EXPECT_EQ(pairs.sines[i], std::sin(angles[i])) << angles[i];
      EXPECT_EQ(pairs.cosines[i], std::cos(angles[i])) << angles[i];
    }
  });
}

TEST(SineCosine, ALargeAngleDoesNotChangeItsNeighbours) {
  const std::vector<double> small = drawn_angles(100.0, 4);
  std::vector<double> mixed = small;
  mixed[3] = 1e9;
  mixed[8] = nan;
  Testing::on_each_target([&] {
    const Pairs alone(small);
    const Pairs beside(mixed);
    for (std::size_t i = 0; i < small.size(); ++i) {
      if (i == 3 || i == 8) continue;
      EXPECT_TRUE(same_bits(alone.sines[i], beside.sines[i])) << i;
      EXPECT_TRUE(same_bits(alone.cosines[i], beside.cosines[i])) << i;
    }
  });
}

TEST(SineCosine, TinyAnglesAreTheirOwnSines) {
  const std::vector<double> angles = {0.0,    -0.0,   5e-324, -5e-324, 3e-310,
                                      2e-308, 1e-300, -1e-20, 1e-9,    -1e-9};
  Testing::on_each_target([&] {
    const Pairs pairs(angles);
    for (std::size_t i = 0; i < angles.size(); ++i) {
      EXPECT_TRUE(same_bits(pairs.sines[i], angles[i])) << angles[i];
      EXPECT_EQ(pairs.cosines[i], 1.0) << angles[i];
    }
  });
}

TEST(SineCosine, InfinityAndNanGiveNan) {
  const std::vector<double> angles = {infinity, nan, -infinity, -nan};
  Testing::on_each_target([&] {
    const Pairs pairs(angles);
    for (std::size_t i = 0; i < angles.size(); ++i) {
      EXPECT_TRUE(std::isnan(pairs.sines[i])) << i;
      EXPECT_TRUE(std::isnan(pairs.cosines[i])) << i;
    }
  });
}

TEST(SineCosine, EveryInstructionSetGivesTheSameBits) {
  std::vector<double> angles = drawn_angles(reducible, 5000);
  for (const double angle : drawn_angles(50.0, 5000)) angles.push_back(angle);
  for (const double angle : edge_angles()) angles.push_back(angle);
  const Pairs chosen(angles);
  std::size_t targets = 0;
  Testing::on_each_target([&] {
    ++targets;
    const Pairs pairs(angles);
    std::size_t differing = 0;
    for (std::size_t i = 0; i < angles.size(); ++i) {
      if (!same_bits(pairs.sines[i], chosen.sines[i])) ++differing;
      if (!same_bits(pairs.cosines[i], chosen.cosines[i])) ++differing;
    }
    EXPECT_EQ(differing, 0u);
  });
  EXPECT_GE(targets, 1u);
}

TEST(SineCosine, EveryLengthFillsItsArraysAndNoMore) {
  const std::vector<double> angles = drawn_angles(30.0, 20);
  const Pairs whole(angles);
  Testing::on_each_target([&] {
    for (std::size_t count = 0; count <= 40; ++count) {
      std::vector<double> sines(count + 1, 7.0);
      std::vector<double> cosines(count + 1, 7.0);
      Base::sine_cosine(angles.data(), count, sines.data(), cosines.data());
      for (std::size_t i = 0; i < count; ++i) {
        ASSERT_TRUE(same_bits(sines[i], whole.sines[i])) << i << " of " << count;
        ASSERT_TRUE(same_bits(cosines[i], whole.cosines[i])) << i << " of " << count;
      }
      EXPECT_EQ(sines[count], 7.0) << count;
      EXPECT_EQ(cosines[count], 7.0) << count;
    }
  });
}

}  // namespace
