#include "drive/within_limit.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

using Synthesis::all_within;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(WithinLimit, OneSampleAboveTheLimitIsFoundAtAnyPlace) {
  for (std::size_t count = 0; count <= 70; ++count) {
    std::vector<double> samples(count, -1.0);
    EXPECT_TRUE(all_within(samples.data(), count, 1.0)) << count;
    for (std::size_t i = 0; i < count; ++i) {
      for (const double sample : {1.0000000000000002, -1.0000000000000002, infinity, nan}) {
        samples[i] = sample;
        EXPECT_FALSE(all_within(samples.data(), count, 1.0)) << sample << " at " << i;
      }
      samples[i] = i % 2 == 0 ? 1.0 : 0.0;
    }
  }
}

TEST(WithinLimit, OddLimitsAreNeverKept) {
  const std::vector<double> samples(40, 0.0);
  EXPECT_FALSE(all_within(samples.data(), samples.size(), nan));
  EXPECT_FALSE(all_within(samples.data(), samples.size(), -1.0));
  EXPECT_TRUE(all_within(samples.data(), samples.size(), 0.0));
  EXPECT_TRUE(all_within(samples.data(), samples.size(), infinity));
}

}  // namespace
