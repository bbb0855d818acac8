// Sharing the harmonics between sets.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "drawn.h"
#include "maths/run_fronts.h"
#include "support/thrown.h"

namespace {

using Maths::FrontSet;
using Maths::HarmonicFront;
using Maths::PureRandom;
using Maths::RunFronts;
using Testing::thrown;

PureRandom unit_value(double unit) {
  return generator_of(static_cast<std::uint32_t>(unit * 4294967295.0));
}

// Harmonics 1 to 40 of 10 s.
RunFronts sets_of(std::size_t count) {
  RunFronts fronts;
  fronts.run.init(10.0, 100.0, 0.1, 4.0, false);
  fronts.resize(count);
  return fronts;
}

double slot_energy(const FrontSet& set, std::size_t slot) {
  double sum = 0.0;
  for (const HarmonicFront& front : set.slots[slot]) sum += front.amp * front.amp;
  return sum;
}

TEST(RunFronts, ResizeMakesEmptySlotsUpToTheHighestHarmonic) {
  RunFronts fronts = sets_of(3);
  ASSERT_EQ(fronts.sets.size(), 3u);
  fronts.sets[1].add_front(40, {1.0, 0.0, 0.0});
  fronts.sets[1].position = {1.0, 2.0, 3.0};
  fronts.resize(2);
  ASSERT_EQ(fronts.sets.size(), 2u);
  for (const FrontSet& set : fronts.sets) {
    EXPECT_EQ(set.slots.size(), 41u);
    EXPECT_TRUE(set.slots[40].empty());
    EXPECT_EQ(set.position.x, 0.0);
  }
}

TEST(RunFronts, ResizeNeedsTheHarmonicGrid) {
  RunFronts fronts;
  EXPECT_EQ(thrown([&] { fronts.resize(1); }), "Calling size when not initialised");
}

TEST(MergeRms, EqualCreditsGoToTheLowestSet) {
  RunFronts fronts = sets_of(2);
  for (std::size_t slot = 1; slot <= 4; ++slot) {
    for (FrontSet& set : fronts.sets) set.add_front(slot, {1.0, 0.25, 0.5});
  }
  fronts.merge_rms();
  // Credits of the two sets before each choice: 1 1, 0 2, 1 1, 0 2.
  for (std::size_t slot = 1; slot <= 4; ++slot) {
    const std::size_t owner = slot % 2 == 1 ? 0 : 1;
    ASSERT_EQ(fronts.sets[owner].slots[slot].size(), 1u) << slot;
    EXPECT_TRUE(fronts.sets[1 - owner].slots[slot].empty()) << slot;
    EXPECT_NEAR(fronts.sets[owner].slots[slot][0].amp, std::sqrt(2.0), 1e-15);
    EXPECT_EQ(fronts.sets[owner].slots[slot][0].angle, 0.25);
    EXPECT_EQ(fronts.sets[owner].slots[slot][0].phase, 0.5);
  }
}

TEST(MergeRms, KeepsTheEnergyOfEachHarmonicAndTheShareOfEachSet) {
  RunFronts fronts = sets_of(2);
  for (std::size_t slot = 1; slot <= 40; ++slot) {
    fronts.sets[0].add_front(slot, {std::sqrt(2.0), 0.1, 0.2});
    fronts.sets[0].add_front(slot, {-1.0, 0.3, 0.4});
    fronts.sets[1].add_front(slot, {1.0, 0.5, 0.6});
  }
  fronts.merge_rms();
  int of_first = 0;
  for (std::size_t slot = 1; slot <= 40; ++slot) {
    EXPECT_NEAR(slot_energy(fronts.sets[0], slot) + slot_energy(fronts.sets[1], slot), 4.0, 1e-12);
    EXPECT_EQ(fronts.sets[0].slots[slot].size() + fronts.sets[1].slots[slot].size(), 1u);
    if (fronts.sets[0].slots[slot].empty()) continue;
    ++of_first;
    EXPECT_EQ(fronts.sets[0].slots[slot][0].angle, 0.1);  // of its first front
  }
  EXPECT_EQ(of_first, 30);  // three quarters of the energy
}

TEST(MergeRms, ASetInDebtStillTakesAHarmonicThatOnlyItHas) {
  // The first harmonic leaves the first set with a debt of its amplitude squared. The debt may be
  // at most a million.
  const auto fronts_left = [](double amp) {
    RunFronts fronts = sets_of(2);
    for (FrontSet& set : fronts.sets) set.add_front(1, {amp, 0.0, 0.0});
    fronts.sets[0].add_front(2, {0.3, 0.1, 0.0});
    fronts.sets[0].add_front(2, {0.4, 0.2, 0.0});
    fronts.merge_rms();
    EXPECT_NEAR(fronts.sets[0].slots[2].at(0).amp, fronts.sets[0].slots[2].size() == 1 ? 0.5 : 0.3,
                1e-12);
    return fronts.sets[0].slots[2].size();
  };
  EXPECT_EQ(fronts_left(1.0), 1u);
  EXPECT_EQ(fronts_left(999.9), 1u);
  EXPECT_EQ(fronts_left(1000.1), 2u);
}

TEST(MergeRms, OnlySetsWithFrontsAreMerged) {
  RunFronts fronts = sets_of(3);
  fronts.sets[1].add_front(5, {2.0, 0.0, 0.0});
  fronts.merge_rms();
  EXPECT_TRUE(fronts.sets[0].slots[5].empty());
  ASSERT_EQ(fronts.sets[1].slots[5].size(), 1u);
  EXPECT_EQ(fronts.sets[1].slots[5][0].amp, 2.0);
  EXPECT_TRUE(fronts.sets[1].slots[6].empty());
}

TEST(MergeRms, WithoutSetsDoesNothing) {
  RunFronts fronts;
  fronts.merge_rms();
  fronts.merge_random(unit_value(0.5));
  EXPECT_TRUE(fronts.sets.empty());
}

TEST(MergeRandom, DrawsTheSetInProportionToEnergy) {
  // With energies 1, 2 and 1 the sets take unit values up to 1/4, 3/4 and 1.
  for (const double unit : {0.1, 0.24, 0.26, 0.5, 0.74, 0.76, 0.99}) {
    RunFronts fronts = sets_of(3);
    fronts.sets[0].add_front(3, {1.0, 0.1, 0.0});
    fronts.sets[1].add_front(3, {1.0, 0.2, 0.0});
    fronts.sets[1].add_front(3, {1.0, 0.2, 0.0});
    fronts.sets[2].add_front(3, {-1.0, 0.3, 0.0});
    fronts.merge_random(unit_value(unit));
    const std::size_t chosen = unit < 0.25 ? 0 : unit < 0.75 ? 1 : 2;
    for (std::size_t s = 0; s < 3; ++s) {
      if (s == chosen) {
        ASSERT_EQ(fronts.sets[s].slots[3].size(), 1u) << unit;
        EXPECT_EQ(fronts.sets[s].slots[3][0].amp, 2.0) << unit;
      } else {
        EXPECT_TRUE(fronts.sets[s].slots[3].empty()) << unit;
      }
    }
  }
}

TEST(MergeRandom, OneRandomValueDecidesEveryHarmonic) {
  RunFronts fronts = sets_of(2);
  for (std::size_t slot = 1; slot <= 40; ++slot) {
    fronts.sets[0].add_front(slot, {1.0, 0.1, 0.0});
    fronts.sets[1].add_front(slot, {1.0, 0.2, 0.0});
  }
  PureRandom random = generator(42);
  const double before = random.unit();
  const std::size_t chosen = before * 2 <= 1 ? 0 : 1;
  fronts.merge_random(random);
  EXPECT_EQ(random.unit(), before);
  for (std::size_t slot = 1; slot <= 40; ++slot) {
    EXPECT_NEAR(slot_energy(fronts.sets[chosen], slot), 2.0, 1e-12);
    EXPECT_TRUE(fronts.sets[1 - chosen].slots[slot].empty());
  }
}

TEST(MergeRandom, ALaterSetWithAllTheEnergyIsChosenToo) {
  RunFronts fronts = sets_of(2);
  fronts.sets[0].slots[3].push_back({0.0, 0.1, 0.0});
  fronts.sets[1].add_front(3, {3.0, 0.2, 0.0});
  fronts.merge_random(unit_value(0.0));
  ASSERT_EQ(fronts.sets[0].slots[3].size(), 1u);
  EXPECT_EQ(fronts.sets[0].slots[3][0].amp, 3.0);
  ASSERT_EQ(fronts.sets[1].slots[3].size(), 1u);
  EXPECT_EQ(fronts.sets[1].slots[3][0].amp, 3.0);
}

TEST(MergeRandom, ASetWithoutFrontsStaysEmpty) {
  RunFronts fronts = sets_of(2);
  fronts.sets[1].add_front(3, {3.0, 0.2, 0.0});
  fronts.merge_random(unit_value(0.0));
  EXPECT_TRUE(fronts.sets[0].slots[3].empty());
  ASSERT_EQ(fronts.sets[1].slots[3].size(), 1u);
  EXPECT_EQ(fronts.sets[1].slots[3][0].amp, 3.0);
}

}  // namespace
