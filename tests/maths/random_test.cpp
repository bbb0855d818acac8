#include "maths/random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "drawn.h"
#include "support/thrown.h"

namespace {

using Maths::PureRandom;
using Testing::thrown;

constexpr double unit_step = 1.0 / 4294967295.0;
constexpr double symmetric_step = 2.0 / 4294967295.0;

// The sequence x[n] = x[n - 54] + x[n - 23] as one growing list. It starts with 54 numbers of the
// congruential sequence, from the 24th on and then the first 23. The first 539 sums are discarded.
std::vector<std::uint32_t> sequence(std::uint32_t seed, std::size_t count) {
  std::vector<std::uint64_t> lcg{seed};
  while (lcg.size() < 54) lcg.push_back((lcg.back() * 1103515245 + 12345) % 4294967296);
  std::vector<std::uint64_t> x(lcg.begin() + 23, lcg.end());
  x.insert(x.end(), lcg.begin(), lcg.begin() + 23);
  while (x.size() < 54 + 539 + count) {
    x.push_back((x[x.size() - 54] + x[x.size() - 23]) % 4294967296);
  }
  return {x.begin() + 54 + 539, x.end()};
}

TEST(Random, FirstNumbersFollowTheRecurrence) {
  for (const std::uint32_t seed : {0u, 1u, 4u, 5u, 42u, 4294967295u}) {
    PureRandom random = generator(seed);
    for (const std::uint32_t expected : sequence(seed, 200)) {
      EXPECT_EQ(random.unit(), expected * unit_step) << seed;
      EXPECT_EQ(random.symmetric(), expected * symmetric_step - 1.0) << seed;
      random.advance();
    }
  }
}

TEST(Random, StepReturnsTheNumberDrawn) {
  PureRandom random = generator(42);
  const std::vector<std::uint32_t> expected = sequence(42, 11);
  for (std::size_t i = 1; i < expected.size(); ++i) EXPECT_EQ(random.step(), expected[i]);
}

TEST(Random, ReadingDoesNotDraw) {
  PureRandom random = generator(4);
  const double first = random.unit();
  EXPECT_EQ(random.unit(), first);
  EXPECT_NEAR(random.symmetric(), 2 * first - 1, 1e-15);
  random.advance();
  EXPECT_NE(random.unit(), first);
}

TEST(Random, SeedingRestartsTheSequence) {
  PureRandom random = generator(1);
  for (int round = 0; round < 2; ++round) {
    random.seed(5);
    for (const std::uint32_t expected : sequence(5, 10)) {
      EXPECT_EQ(random.unit(), expected * unit_step);
      random.advance();
    }
  }
}

TEST(Random, RangesIncludeBothEnds) {
  EXPECT_EQ(generator_of(0).unit(), 0.0);
  EXPECT_EQ(generator_of(0).symmetric(), -1.0);
  EXPECT_NEAR(generator_of(4294967295u).unit(), 1.0, 1e-15);
  EXPECT_NEAR(generator_of(4294967295u).symmetric(), 1.0, 1e-15);
  EXPECT_NEAR(generator_of(2147483648u).symmetric(), 0.0, 1e-9);
}

TEST(Random, WithoutASeedEveryCallIsRefused) {
  PureRandom generator;
  EXPECT_EQ(thrown([&] { generator.unit(); }),
            "Unit value requested for random number generator before being initialised");
  EXPECT_EQ(thrown([&] { generator.symmetric(); }),
            "Unit value requested for random number generator before being initialised");
  EXPECT_EQ(thrown([&] { generator.advance(); }),
            "Advance called for random number generator before being initialised");
  EXPECT_EQ(thrown([&] { generator.step(); }),
            "Pure random number generator selected before it has been initialised");
  generator.seed(1);
  EXPECT_EQ(generator.unit(), sequence(1, 1).front() * unit_step);
}

}  // namespace
