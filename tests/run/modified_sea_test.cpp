// Modifiers in specifications and runs.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "sea/angle_spread.h"
#include "sea/angle_sweep.h"
#include "sea/change.h"
#include "sea/phase_noise.h"
#include "sea/phase_random.h"
#include "support/draws.h"
#include "support/modifiers.h"
#include "support/test_run.h"
#include "support/thrown.h"

namespace {

using Synthesis::Modifier;
using Synthesis::Specification;
using Testing::at;
using Testing::Draws;
using Testing::GivenFronts;
using Testing::Part;
using Testing::pi;
using Testing::run_params;
using Testing::Sea;
using Testing::set;
using Testing::Site;
using Params = Testing::Filled;

Params generator() { return Params().member("ran_gen", "Default", "RanGen"); }

// The gain doubles, the sweep makes three fronts of each, and then each front gets its phase.
TEST(ModifiedSea, GainThenAngleThenPhaseWhateverTheOrderOfAdding) {
  Synthesis::GainChangeModifier gain("2");
  Synthesis::AngleSweepModifier sweep("1");
  Synthesis::PhaseRandomModifier phase("");
  set(sweep, Params().with("delta_angle", 0.5, "rad"));
  set(phase, generator());
  std::array<Modifier*, 3> modifiers = {&gain, &sweep, &phase};
  std::sort(modifiers.begin(), modifiers.end());
  int orders = 0;
  do {
    Sea sea;
    sea.tank.min_angle = -0.5;
    sea.tank.max_angle = 0.5;
    Specification specification;
    for (Modifier* modifier : modifiers) specification.add_modifier(*modifier);
    GivenFronts component({{4, {0.3, 0.0, 9.0}}, {6, {0.6, 0.0, 9.0}}});
    specification.add_component(component);
    specification.set(at(0, 0, 0));
    specification.evaluate(sea.fronts, {sea.run, sea.tank, sea.messages});
    Draws draws(4);
    for (const std::size_t h : {4U, 6U}) {
      ASSERT_EQ(sea.at(h).size(), 3U);
      for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(sea.at(h)[i].amp, h == 4 ? 0.2 : 0.4, 1e-15);
        EXPECT_NEAR(sea.at(h)[i].angle, 0.5 * static_cast<double>(i) - 0.5, 1e-15);
        EXPECT_NEAR(sea.at(h)[i].phase, draws.symmetric() * pi, 1e-14);
      }
    }
    ++orders;
  } while (std::next_permutation(modifiers.begin(), modifiers.end()));
  EXPECT_EQ(orders, 6);
}

TEST(ModifiedSea, ASpecificationTakesOneModifierPerSlot) {
  Specification specification;
  Synthesis::AngleSpreadModifier spread("1");
  Synthesis::AngleChangeModifier change("1@deg");
  Synthesis::PhaseRandomModifier random("");
  Synthesis::PhaseWNoiseModifier noise("");
  specification.add_modifier(spread);
  specification.add_modifier(random);
  const std::string refused = "Trying to overide an existing modifier";
  EXPECT_EQ(Testing::thrown([&] { specification.add_modifier(change); }), refused);
  EXPECT_EQ(Testing::thrown([&] { specification.add_modifier(noise); }), refused);
}

TEST(ModifiedSea, TheSweepTakesTheAnglesOfTheSite) {
  Testing::SiteText text;
  text.min_angle = -20.0;
  text.max_angle = 40.0;
  Testing::BuiltRun built(text, {{4, {0.3, 0.0, 0.0}}});
  Synthesis::AngleSweepModifier sweep("1");
  set(sweep, Params().with("delta_angle", 30, "deg"));
  built.part.specification.add_modifier(sweep);
  const auto& fronts = built.definition.run_build().sets[0].slots[4];
  ASSERT_EQ(fronts.size(), 3U);
  EXPECT_NEAR(fronts[0].angle, -pi / 9, 1e-12);
  EXPECT_NEAR(fronts[1].angle, pi / 18, 1e-12);
  EXPECT_NEAR(fronts[2].angle, pi / 4.5, 1e-12);
}

TEST(ModifiedSea, ARepeatedBuildRepeatsItsDraws) {
  Testing::BuiltRun built({}, {{4, {0.3, 0.0, 0.0}}, {5, {0.2, 0.0, 0.0}}});
  Synthesis::PhaseWNoiseModifier noise("");
  set(noise, generator().with("rate", 20, "Hz"));
  built.part.specification.add_modifier(noise);
  const Maths::FrontSet first = built.definition.run_build().merged;
  const Maths::FrontSet second = built.definition.run_build().merged;
  for (const std::size_t h : {4U, 5U}) {
    EXPECT_EQ(first.slots[h][0].amp, second.slots[h][0].amp);
    EXPECT_EQ(first.slots[h][0].phase, second.slots[h][0].phase);
  }
}

TEST(ModifiedSea, TwoModifiersOfAClassDrawTheSameNumbers) {
  Site site;
  Part one({{4, {0.3, 0.0, 0.0}}}, at(0, 0, 0));
  Part two({{4, {0.1, 0.0, 0.0}}}, at(0, 0, 0));
  Synthesis::PhaseRandomModifier first("");
  Synthesis::PhaseRandomModifier second("");
  set(first, generator());
  set(second, generator());
  one.specification.add_modifier(first);
  two.specification.add_modifier(second);
  Synthesis::Definition definition("run", site.context());
  definition.add_specification(one.specification);
  definition.add_specification(two.specification);
  Testing::set(definition, run_params(10.0));
  const Maths::RunFronts& run = definition.run_build();
  EXPECT_EQ(run.sets[0].slots[4][0].phase, run.sets[1].slots[4][0].phase);
}

// Three seas over the same harmonics, at different places and times: one with a gain, one turned
// and shifted, one with three fronts per harmonic and spread directions.
struct ThreeSeas {
  explicit ThreeSeas(Site& site, const char* merge) : definition("run", site.context()) {
    for (std::uint64_t h = 2; h <= 20; ++h) {
      const double s = static_cast<double>(h);
      one.component.fronts.push_back({h, {0.01 * s, 0.1, 0.5}});
      two.component.fronts.push_back({h, {0.1, -0.1, 1.0}});
      for (int i = 0; i < 3; ++i) three.component.fronts.push_back({h, {0.2 / s, 0.0, 1.5}});
    }
    set(turn, Params().member("set", "False", "Bool"));
    set(shift, Params().member("set", "True", "Bool"));
    set(spread, Params()
                    .member("function", "CosS", "SpreadFunc")
                    .with("angle", 0, "deg")
                    .with("min_angle", -60, "deg")
                    .with("max_angle", 60, "deg")
                    .member("ran_gen", "Default", "RanGen"));
    one.specification.add_modifier(gain);
    two.specification.add_modifier(turn);
    two.specification.add_modifier(shift);
    three.specification.add_modifier(spread);
    for (Part* part : {&one, &two, &three}) definition.add_specification(part->specification);
    Testing::set(definition, run_params(10.0, merge));
  }
  // The energies of the three at a harmonic.
  static std::array<double, 3> energies(std::uint64_t h) {
    const double s = static_cast<double>(h);
    return {std::pow(0.01 * s * 0.2 * s, 2), 0.01, 3 * std::pow(0.2 / s, 2)};
  }

  Synthesis::GainChangeModifier gain{"2*$[Hz]"};
  Synthesis::AngleChangeModifier turn{"0.07*$[Hz]@rad"};
  Synthesis::PhaseChangeModifier shift{"2*$[Hz]@rad"};
  Synthesis::AngleSpreadModifier spread{"1"};
  Part one{{}, at(1, 0, 0)};
  Part two{{}, at(2, 1, 5)};
  Part three{{}, at(3, -1, 7)};
  Synthesis::Definition definition;
};

// Where and when the phases of the three hold: x, y, t.
constexpr std::array<std::array<double, 3>, 3> places = {{{1, 0, 0}, {2, 1, 5}, {3, -1, 7}}};

// The fronts that the three make at a harmonic: one, one and three. The third takes three draws.
std::array<std::vector<Maths::HarmonicFront>, 3> fronts_of(std::uint64_t h, Draws& draws) {
  const double s = static_cast<double>(h);
  const double f = 0.1 * s;
  const auto spread = [&] {
    const double share = 2 * draws.unit() - 1;
    return Maths::HarmonicFront{0.2 / s, std::asin(share * std::sin(60 * Testing::degree)), 1.5};
  };
  return {{{{0.01 * s * 2 * f, 0.1, 0.5}},
           {{0.1, -0.1 + 0.07 * f, 2 * f}},
           {spread(), spread(), spread()}}};
}

// Expects the front at the paddle line, in a depth of 1 m, to be the one that sea `s` made.
void expect_at_paddles(const Maths::HarmonicFront& found, const Maths::HarmonicFront& made,
                       std::size_t s, std::uint64_t h) {
  const auto& [x, y, t] = places.at(s);
  const double omega = 2 * pi * 0.1 * static_cast<double>(h);
  const double k = Testing::wave_number(omega, 1.0);
  const double phase =
      made.phase + k * (x * std::cos(made.angle) + y * std::sin(made.angle)) - omega * t;
  EXPECT_NEAR(found.amp, made.amp, 1e-9) << h;
  EXPECT_NEAR(found.angle, made.angle, 1e-9) << h;
  EXPECT_NEAR(std::remainder(found.phase - phase, 2 * pi), 0.0, 1e-6) << h;
}

// Expects a harmonic to belong wholly to its owner, whose first front has all the energy.
void expect_owned(const Maths::RunFronts& run, std::uint64_t h, std::size_t owner, Draws& draws) {
  for (std::size_t s = 0; s < 3; ++s) {
    EXPECT_EQ(run.sets[s].slots[h].size(), s == owner ? 1U : 0U) << h << " of " << s;
  }
  ASSERT_EQ(run.merged.slots[h].size(), 1U);
  const std::array<double, 3> e = ThreeSeas::energies(h);
  Maths::HarmonicFront made = fronts_of(h, draws)[owner][0];
  made.amp = std::sqrt(e[0] + e[1] + e[2]);
  expect_at_paddles(run.merged.slots[h][0], made, owner, h);
}

// The sea that is owed most energy receives the harmonic. It is owed its own energy so far, less
// the energy of the harmonics that it received. Computed by hand for harmonics 2 to 20.
TEST(ModifiedSea, RmsMergesThreeSeasOfModifiersWithTheirPositions) {
  Site site;
  ThreeSeas seas(site, "RMS");
  const Maths::RunFronts& run = seas.definition.run_build();
  const std::size_t owners[] = {2, 1, 2, 1, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  Draws draws(1);
  for (std::uint64_t h = 2; h <= 20; ++h) expect_owned(run, h, owners[h - 2], draws);
}

TEST(ModifiedSea, NullKeepsAllFrontsOfModifiedSeas) {
  Site site;
  ThreeSeas seas(site, "Null");
  const Maths::RunFronts& run = seas.definition.run_build();
  Draws draws(1);
  for (std::uint64_t h = 2; h <= 20; ++h) {
    const auto made = fronts_of(h, draws);
    const std::vector<Maths::HarmonicFront>& found = run.merged.slots[h];
    ASSERT_EQ(found.size(), 5U);
    for (std::size_t i = 0; i < 5; ++i) {
      const std::size_t s = std::min<std::size_t>(i, 2);
      expect_at_paddles(found[i], made[s][i - s], s, h);
    }
  }
}

// One draw of 0.2508 decides every harmonic. The first sea has less than that share of the energy
// up to harmonic 5, where it and the second together have more.
TEST(ModifiedSea, RandomGivesEachHarmonicToOneModifiedSea) {
  Site site;
  ThreeSeas seas(site, "Random");
  const Maths::RunFronts& run = seas.definition.run_build();
  ASSERT_NEAR(Draws(42).unit(), 0.2508, 1e-4);
  Draws draws(1);
  for (std::uint64_t h = 2; h <= 20; ++h) expect_owned(run, h, h <= 5 ? 1 : 0, draws);
}

}  // namespace
