#include "maths/random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support.h"

namespace {

using Maths::PureRandom;
using Maths::RanGen;

// The sequence x[n] = x[n - 54] + x[n - 23] written out as one growing list. The seeds come from
// the congruential sequence, entered at its 24th number and wrapped.
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

// Holds one number.
class Held final : public RanGen {
 public:
  explicit Held(std::uint32_t value) : RanGen(0) { value_ = value; }
  void init() override {}
  std::uint32_t step() override { return value_; }
};

TEST(Random, FirstNumbersFollowTheRecurrence) {
  for (const std::uint32_t seed : {0u, 1u, 4u, 5u, 42u, 4294967295u}) {
    PureRandom generator(seed);
    generator.init();
    for (const std::uint32_t expected : sequence(seed, 200)) {
      EXPECT_EQ(generator.unit(), expected * 2.3283064370807974e-10) << seed;
      EXPECT_EQ(generator.symmetric(), expected * 4.656612874161595e-10 - 1.0) << seed;
      generator.advance();
    }
  }
}

TEST(Random, StepReturnsTheNumberDrawn) {
  PureRandom generator(42);
  generator.init();
  const std::vector<std::uint32_t> expected = sequence(42, 11);
  for (std::size_t i = 1; i < expected.size(); ++i) EXPECT_EQ(generator.step(), expected[i]);
}

TEST(Random, ReadingDoesNotDraw) {
  PureRandom generator(4);
  generator.init();
  const double first = generator.unit();
  EXPECT_EQ(generator.unit(), first);
  EXPECT_NEAR(generator.symmetric(), 2 * first - 1, 1e-15);
  generator.advance();
  EXPECT_NE(generator.unit(), first);
}

TEST(Random, SeedRestartsTheSequence) {
  PureRandom generator(1);
  generator.init();
  for (int round = 0; round < 2; ++round) {
    generator.seed(5);
    for (const std::uint32_t expected : sequence(5, 10)) {
      EXPECT_EQ(generator.unit(), expected * 2.3283064370807974e-10);
      generator.advance();
    }
  }
}

TEST(Random, RangesIncludeBothEnds) {
  EXPECT_EQ(Held(0).unit(), 0.0);
  EXPECT_EQ(Held(0).symmetric(), -1.0);
  EXPECT_NEAR(Held(4294967295u).unit(), 1.0, 1e-15);
  EXPECT_NEAR(Held(4294967295u).symmetric(), 1.0, 1e-15);
  EXPECT_NEAR(Held(2147483648u).symmetric(), 0.0, 1e-9);
}

TEST(Random, BeforeASeedEverythingThrows) {
  PureRandom generator;
  EXPECT_EQ(thrown_text([&] { generator.unit(); }),
            "Unit value requested for random number generator before being initialised");
  EXPECT_EQ(thrown_text([&] { generator.symmetric(); }),
            "Unit value requested for random number generator before being initialised");
  EXPECT_EQ(thrown_text([&] { generator.advance(); }),
            "Advance called for random number generator before being initialised");
  EXPECT_EQ(thrown_text([&] { generator.step(); }),
            "Pure random number generator selected before it has been initialised");
  generator.seed(1);
  EXPECT_EQ(generator.unit(), sequence(1, 1).front() * 2.3283064370807974e-10);
}

}  // namespace
