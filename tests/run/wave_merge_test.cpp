// How the specifications of a run share the harmonics.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "support/draws.h"
#include "support/test_run.h"
#include "support/thrown.h"

namespace {

using Synthesis::Definition;
using Testing::at;
using Testing::Part;
using Testing::run_params;
using Testing::set;
using Testing::Site;

double energy(const std::vector<Maths::HarmonicFront>& fronts) {
  double sum = 0.0;
  for (const Maths::HarmonicFront& front : fronts) sum += front.amp * front.amp;
  return sum;
}

// Three specifications at different places, with different energies at each harmonic. The second
// has two fronts per harmonic.
struct ThreeParts {
  explicit ThreeParts(Site& site) : definition("run", site.context()) {
    for (std::uint64_t h = 2; h <= 20; ++h) {
      const double s = static_cast<double>(h);
      one.component.fronts.push_back({h, {0.01 * s, 0.1, 0.5}});
      two.component.fronts.push_back({h, {0.08, 0.3, 1.0}});
      two.component.fronts.push_back({h, {0.05, -0.3, 2.0}});
      three.component.fronts.push_back({h, {0.3 / s, -0.1, 1.5}});
    }
    for (Part* part : {&one, &two, &three}) definition.add_specification(part->specification);
    for (std::uint64_t h = 2; h <= 20; ++h) {
      const double s = static_cast<double>(h);
      energies.push_back({1e-4 * s * s, 0.08 * 0.08 + 0.05 * 0.05, 0.09 / (s * s)});
    }
  }

  // Checks that each harmonic belongs wholly to its owner.
  void expect_owners(const std::vector<std::size_t>& owners) {
    const std::vector<Part*> parts = {&one, &two, &three};
    const std::vector<double> angles = {0.1, 0.3, -0.1};
    const Maths::RunFronts& run = definition.run_build();
    for (std::uint64_t h = 2; h <= 20; ++h) {
      const std::vector<double>& e = energies[h - 2];
      for (std::size_t s = 0; s < 3; ++s) {
        const std::vector<Maths::HarmonicFront>& slot = run.sets[s].slots[h];
        ASSERT_EQ(slot.size(), s == owners[h - 2] ? 1u : 0u) << h << " of " << s;
        if (slot.empty()) continue;
        EXPECT_NEAR(slot[0].amp, std::sqrt(e[0] + e[1] + e[2]), 1e-14);
        EXPECT_EQ(slot[0].angle, angles[s]);
      }
      EXPECT_EQ(run.merged.slots[h].size(), 1u);
    }
  }

  Part one{{}, at(1, 0, 0)};
  Part two{{}, at(2, 1, 5)};
  Part three{{}, at(3, -1, 10)};
  Definition definition;
  std::vector<std::vector<double>> energies;
};

TEST(WaveMerge, NullKeepsAllFronts) {
  Site site;
  ThreeParts parts(site);
  set(parts.definition, run_params(10.0, "Null"));
  const Maths::RunFronts& run = parts.definition.run_build();
  for (std::uint64_t h = 2; h <= 20; ++h) {
    const std::vector<double>& e = parts.energies[h - 2];
    EXPECT_EQ(run.merged.slots[h].size(), 4u);
    EXPECT_NEAR(energy(run.merged.slots[h]), e[0] + e[1] + e[2], 1e-14);
  }
}

// A specification is owed its own energy so far, less the energy of the harmonics that it received.
// Computed by hand for harmonics 2 to 20.
TEST(WaveMerge, RmsGivesEachHarmonicToTheSpecificationThatIsOwedMost) {
  Site site;
  ThreeParts parts(site);
  set(parts.definition, run_params(10.0, "RMS"));
  parts.expect_owners({2, 1, 1, 2, 0, 1, 1, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0});
}

// One draw of 0.2508 decides every harmonic. The first specification has less than that share of
// the energy up to harmonic 6, where it and the second together have more.
TEST(WaveMerge, RandomDecidesByOneDrawOfAFixedSeedAndRepeats) {
  Site site;
  ThreeParts parts(site);
  set(parts.definition, run_params(10.0, "Random"));
  ASSERT_NEAR(Testing::Draws(42).unit(), 0.2508, 1e-4);
  const std::vector<std::size_t> owners = {1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  parts.expect_owners(owners);
  parts.expect_owners(owners);  // a second build
}

TEST(WaveMerge, BuildsOnUnchangedObjectsAreIdentical) {
  for (const char* merge : {"Null", "RMS", "Random"}) {
    Site site;
    ThreeParts parts(site);
    set(parts.definition, run_params(10.0, merge));
    parts.definition.run_build();
    const std::vector<Synthesis::Front> first = parts.definition.fronts(true);
    parts.definition.run_build();
    const std::vector<Synthesis::Front>& second = parts.definition.fronts(true);
    ASSERT_EQ(first.size(), second.size());
    for (std::size_t i = 0; i < first.size(); ++i) {
      EXPECT_EQ(first[i].amp, second[i].amp);
      EXPECT_EQ(first[i].angle, second[i].angle);
      EXPECT_EQ(first[i].phase, second[i].phase);
      EXPECT_EQ(first[i].freq, second[i].freq);
    }
  }
}

TEST(WaveMerge, RmsOfOneSpecificationKeepsTheFirstFrontWithAllTheEnergy) {
  Site site;
  Definition definition("run", site.context());
  Part part({{5, {0.3, 0.1, 0.2}}, {5, {0.4, -0.1, 0.7}}}, at(0, 0, 0));
  definition.add_specification(part.specification);
  set(definition, run_params(10.0, "RMS"));
  definition.run_build();
  ASSERT_EQ(definition.fronts(0u).size(), 1u);
  EXPECT_NEAR(definition.fronts(0u)[0].amp, 0.5, 1e-15);
  EXPECT_EQ(definition.fronts(0u)[0].angle, 0.1);
  EXPECT_EQ(definition.fronts(0u)[0].phase, 0.2);
}

TEST(WaveMerge, AMergeKeepsThePositionOfEachSpecification) {
  for (const char* merge : {"Null", "RMS", "Random"}) {
    Site site;
    ThreeParts parts(site);
    set(parts.definition, run_params(10.0, merge));
    const Maths::RunFronts& run = parts.definition.run_build();
    EXPECT_EQ(parts.definition.position(0).x, 1.0);
    EXPECT_EQ(parts.definition.position(1).y, 1.0);
    EXPECT_EQ(parts.definition.position(2).t, 10.0);
    EXPECT_EQ(run.merged.position.x, 0.0);
    EXPECT_EQ(run.merged.position.t, 0.0);
  }
}

TEST(WaveMerge, AFailedBuildKeepsTheMergedFronts) {
  Site site;
  Part near({{4, {0.1, 0.0, 0.0}}}, at(0, 0, 0));
  Part far({{6, {0.3, 0.0, 0.0}}}, at(5, 0, 0));
  Definition definition("run", site.context());
  definition.add_specification(near.specification);
  definition.add_specification(far.specification);
  set(definition, run_params(10.0));
  definition.run_build();

  near.component.fronts = {{4, {0.2, 0.0, 0.0}}};
  far.specification.set(at(1000, 0, 0));
  EXPECT_EQ(Testing::thrown([&] { definition.run_build(); }),
            "Value x=1000 is outside dimensions of tank");
  const std::vector<Synthesis::Front>& merged = definition.fronts(true);
  ASSERT_EQ(merged.size(), 2u);
  EXPECT_EQ(merged[0].amp, 0.1);
  EXPECT_EQ(merged[1].freq, 0.6);
}

// A trench in front of the specification's place turns oblique waves back, so that they have no
// phase at the paddles. The angle limits of the site refuse them.
TEST(WaveMerge, ARefusedFrontOfEachSpecificationDoesNotAffectTheDrive) {
  Testing::SiteText text;
  text.depths = {"0.5@m", "3@m", "0.5@m"};
  text.breaks = {5.0, 10.0};
  text.min_angle = -60.0;
  text.max_angle = 60.0;
  Site site(text);
  Definition definition("run", site.context());
  Part one({{4, {0.1, 1.3, 0.0}}, {8, {0.03, 0.0, 0.4}}}, at(15, 0, 0));
  Part two({{4, {0.2, 1.3, 0.5}}, {8, {0.02, 0.0, 1.9}}}, at(15, 0, 0));
  for (Part* part : {&one, &two}) definition.add_specification(part->specification);
  const auto drive = [&] {
    set(definition, run_params(10.0));
    definition.run_build();
    definition.paddle_motion_build(Testing::rate_params(20.0));
    return definition.paddle_motion_data(0, 0);
  };
  const std::vector<double> with = drive();
  const Synthesis::Front steep = definition.fronts(true).at(0);
  EXPECT_EQ(steep.amp, 0.0);
  EXPECT_NEAR(steep.angle, 1.3, 1e-12);
  EXPECT_EQ(steep.phase, 0.0);

  for (Part* part : {&one, &two}) part->component.fronts.erase(part->component.fronts.begin());
  const std::vector<double> without = drive();
  ASSERT_EQ(definition.fronts(true).size(), 1u);
  ASSERT_EQ(with.size(), 200u);
  double top = 0.0;
  for (const double sample : without) top = std::max(top, sample);
  EXPECT_GT(top, 0.005);
  EXPECT_EQ(with, without);
}

}  // namespace
