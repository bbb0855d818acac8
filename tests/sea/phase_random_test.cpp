// Random phases.
#include "sea/phase_random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/draws.h"
#include "support/modifiers.h"
#include "support/thrown.h"

namespace {

using Synthesis::PhaseRandomModifier;
using Testing::Draws;
using Testing::Filled;
using Testing::nothing_thrown;
using Testing::pi;
using Testing::Sea;
using Testing::set;
using Testing::thrown;

Filled by_default() { return Filled().member("ran_gen", "Default", "RanGen"); }
Filled seeded(const char* member, double seed) {
  return Filled().member("ran_gen", member, "RanGen").number("seed", seed);
}

// The random phases of a front at each of the harmonics.
std::vector<double> phases(const Base::Params& params, const std::vector<std::size_t>& harmonics) {
  Sea sea;
  for (const std::size_t h : harmonics) sea.at(h).push_back({0.1, 0.2, 9.0});
  PhaseRandomModifier modifier("");
  set(modifier, params);
  sea.modify(modifier);
  std::vector<double> found;
  for (const auto& slot : sea.fronts.slots) {
    for (const Maths::HarmonicFront& front : slot) {
      EXPECT_EQ(front.amp, 0.1);
      EXPECT_EQ(front.angle, 0.2);
      found.push_back(front.phase);
    }
  }
  return found;
}

void expect_draws(const std::vector<double>& found, std::uint32_t seed) {
  Draws draws(seed);
  for (const double phase : found) EXPECT_NEAR(phase, draws.symmetric() * pi, 1e-14);
}

TEST(PhaseRandom, AcceptsAnyValidExpression) {
  EXPECT_EQ(PhaseRandomModifier("").name(), "PhaseModifier");
  EXPECT_EQ(PhaseRandomModifier("").slot(), Synthesis::Modifier::phase);
  EXPECT_EQ(thrown([] { PhaseRandomModifier("1@m"); }),
            "Incorrect output units in expression 0 m, 1");
  EXPECT_EQ(thrown([] { PhaseRandomModifier("1#1@s#1"); }),
            "Incorrect limit units in expression s, 11");
  Sea sea;
  sea.at(4) = {{0.1, 0.0, 0.0}};
  PhaseRandomModifier modifier("7*$[Hz]");
  set(modifier, by_default());
  sea.modify(modifier);
  expect_draws({sea.at(4)[0].phase}, 4);
}

TEST(PhaseRandom, DeclaresGeneratorAndSeed) {
  Base::Params out;
  PhaseRandomModifier("").query(out);
  ASSERT_EQ(out.entries().size(), 2U);
  EXPECT_EQ(out.at("ran_gen").enum_type(), Base::EnumType::RanGen);
  EXPECT_EQ(Base::category_of(out.at("seed").units), Base::Category::unit);
}

TEST(PhaseRandom, TheSeedIsRequiredOnlyWhenItIsUsed) {
  PhaseRandomModifier modifier("");
  Sea sea;
  EXPECT_EQ(thrown([&] { sea.modify(modifier); }), "ran_gen::Not found");
  EXPECT_EQ(thrown([&] { set(modifier); }), "ran_gen::Not found");
  EXPECT_EQ(thrown([&] { set(modifier, by_default()); }), nothing_thrown);
  PhaseRandomModifier other("");
  const auto bare = [](const char* member) { return Filled().member("ran_gen", member, "RanGen"); };
  EXPECT_EQ(thrown([&] { set(other, bare("FullRandom")); }), "seed::Not found");
  PhaseRandomModifier third("");
  EXPECT_EQ(thrown([&] { set(third, bare("Distribute")); }), "seed::Not found");
  PhaseRandomModifier fourth("");
  EXPECT_EQ(thrown([&] { set(fourth, Filled().member("ran_gen", "True", "Bool")); }),
            "ran_gen::wrong enum type");
}

TEST(PhaseRandom, DefaultIgnoresTheSeedAndUsesFour) {
  expect_draws(phases(by_default(), {2, 3, 7, 20}), 4);
  expect_draws(phases(seeded("Default", 99), {2, 3, 7, 20}), 4);
}

TEST(PhaseRandom, TheOtherTwoGeneratorsBothTakeTheSeedRounded) {
  for (const char* member : {"FullRandom", "Distribute"}) {
    expect_draws(phases(seeded(member, 77), {2, 3, 7}), 77);
    expect_draws(phases(seeded(member, 76.5), {2, 3, 7}), 77);
    expect_draws(phases(seeded(member, 76.49), {2, 3, 7}), 76);
    expect_draws(phases(seeded(member, 0), {2, 3, 7}), 0);
    expect_draws(phases(seeded(member, -1), {2, 3, 7}), 4294967295U);
    expect_draws(phases(seeded(member, 4294967297.0), {2, 3, 7}), 1);
  }
}

TEST(PhaseRandom, DrawsAreMadeInOrderOfHarmonicAndList) {
  expect_draws(phases(by_default(), {9, 2, 2, 5, 9, 9}), 4);
  // The mean takes a draw too.
  expect_draws(phases(by_default(), {0, 1, 2}), 4);
}

TEST(PhaseRandom, ABuildRepeatsItsDraws) {
  Sea sea;
  sea.at(4) = {{0.1, 0.0, 0.0}};
  PhaseRandomModifier modifier("");
  set(modifier, by_default());
  sea.modify(modifier);
  const double first = sea.at(4)[0].phase;
  sea.modify(modifier);
  EXPECT_EQ(sea.at(4)[0].phase, first);
}

TEST(PhaseRandom, AnExtraHarmonicShiftsAllLaterDraws) {
  const std::vector<double> few = phases(by_default(), {3, 5, 7});
  const std::vector<double> more = phases(by_default(), {3, 4, 5, 7});
  EXPECT_EQ(few[0], more[0]);
  EXPECT_EQ(few[1], more[1]);  // now of harmonic 4
  EXPECT_EQ(few[2], more[2]);
  EXPECT_NE(few[2], more[3]);
}

// Ten thousand harmonics in 50 bins. For uniform draws, chi square lies between 24 and 85.4 in 998
// of a thousand cases.
TEST(PhaseRandom, PhasesOfALongRunAreSpreadEvenly) {
  for (const double seed : {4.0, 1.0, 12345.0}) {
    Sea sea(10000.0, 1.0);
    for (std::size_t h = 1; h <= 10000; ++h) sea.at(h) = {{0.01, 0.0, 0.0}};
    PhaseRandomModifier modifier("");
    set(modifier, seeded("FullRandom", seed));
    sea.modify(modifier);
    std::vector<double> bins(50, 0.0);
    double lag = 0.0;
    for (std::size_t h = 1; h <= 10000; ++h) {
      const double phase = sea.at(h)[0].phase;
      ASSERT_LE(std::abs(phase), pi);
      bins[std::min<std::size_t>(49, static_cast<std::size_t>((phase + pi) / (2 * pi) * 50))] += 1;
      if (h > 1) lag += std::cos(phase - sea.at(h - 1)[0].phase);
    }
    double chi_square = 0.0;
    for (const double count : bins) chi_square += (count - 200) * (count - 200) / 200;
    EXPECT_GT(chi_square, 24.0) << seed;
    EXPECT_LT(chi_square, 85.4) << seed;
    // Neighbours are uncorrelated: the sum has a standard deviation of sqrt(10000 / 2).
    EXPECT_LT(std::abs(lag), 3.3 * std::sqrt(5000.0)) << seed;
  }
}

}  // namespace
