// The memory of the sets of a run and of merging them.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "maths/run_fronts.h"
#include "support/own_process.h"
#include "support/thrown.h"

namespace {

using Maths::FrontSet;
using Maths::HarmonicFront;
using Maths::RunFronts;
using Maths::TankConfig;
using Testing::thrown;

// Water that is less deep at the low end of the tank than at the paddles, and changes behind them.
TankConfig uneven() {
  TankConfig tank;
  tank.g = 9.81;
  tank.x_low = -5.0;
  tank.x_high = 30.0;
  tank.paddle_depth = 1.0;
  tank.paddle_index = 1;
  tank.profile = {{0.6, -5.0}, {1.0, 0.0}, {1.0, 10.0}, {0.4, 30.0}};
  tank.has_walls = true;
  tank.width = 6.0;
  tank.y_ref = 1.0;
  return tank;
}

// Three sets at different positions, with up to three fronts in a slot.
RunFronts three_sets(bool dalrymple) {
  RunFronts fronts;
  fronts.run.init(60.0, 100.0, 0.1, 0.6, dalrymple);
  fronts.resize(3);
  std::uint32_t draw = 1;
  const auto next = [&draw] {
    draw = draw * 1664525U + 1013904223U;
    return static_cast<double>(draw) / 4294967296.0;
  };
  for (FrontSet& set : fronts.sets) {
    set.position = {20.0 * next(), next(), 5.0 * next()};
    for (std::size_t slot = 1; slot < set.slots.size(); ++slot) {
      const auto count = static_cast<int>(4.0 * next());
      for (int i = 0; i < count; ++i) set.add_front(slot, {next(), next() - 0.5, 6.0 * next()});
    }
    // The last slot of every set has a front, so that a state left by one set would show in the
    // next.
    set.slots.back() = {{0.1, 0.3, 0.2}};
  }
  return fronts;
}

void expect_same(const FrontSet& a, const FrontSet& b) {
  ASSERT_EQ(a.slots.size(), b.slots.size());
  for (std::size_t slot = 0; slot < a.slots.size(); ++slot) {
    ASSERT_EQ(a.slots[slot].size(), b.slots[slot].size()) << slot;
    for (std::size_t j = 0; j < a.slots[slot].size(); ++j) {
      EXPECT_EQ(a.slots[slot][j].amp, b.slots[slot][j].amp) << slot;
      EXPECT_EQ(a.slots[slot][j].angle, b.slots[slot][j].angle) << slot;
      EXPECT_EQ(a.slots[slot][j].phase, b.slots[slot][j].phase) << slot;
    }
  }
}

TEST(MergeMemory, TheSumDoesNotDependOnTheSizeOfTheCopies) {
  for (const bool dalrymple : {false, true}) {
    RunFronts whole = three_sets(dalrymple);
    whole.build_merged(uneven());
    for (const std::uint64_t copied : {1, 2, 7, 50}) {
      RunFronts parts = three_sets(dalrymple);
      parts.build_merged(uneven(), copied);
      expect_same(parts.merged, whole.merged);
      for (std::size_t s = 0; s < 3; ++s) {
        expect_same(parts.sets[s], three_sets(dalrymple).sets[s]);
        EXPECT_EQ(parts.sets[s].position.x, whole.sets[s].position.x);
      }
    }
  }
}

TEST(MergeMemory, CopiesOfPartsTakeLessMemoryThanASet) {
  if (Testing::sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  EXPECT_TRUE(Testing::good_alone([] {
    RunFronts fronts;
    fronts.run.init(250000.0, 10.0, 0.1, 4.0, false);
    fronts.resize(2);
    for (FrontSet& set : fronts.sets) {
      for (std::size_t slot = 1; slot < set.slots.size(); ++slot) set.slots[slot] = {{0.1, 0, 0}};
    }
    const double before = Testing::peak_memory();
    fronts.build_merged(uneven(), 1 << 14);
    const double growth = Testing::peak_memory() - before;
    // The sum has a million slots with one front each; the copy has as many slots and few fronts.
    const double slots = 1e6 * sizeof(fronts.merged.slots[0]);
    return fronts.merged.front_count() == 1000000 && growth < 2 * slots + 1e6 * 32 + 8e6;
  }));
}

TEST(MergeMemory, SetsBeyondTheMemoryAreRefused) {
  RunFronts fronts;
  fronts.run.init(67108863.0, 10.0, 0.1, 1.0, false);
  const double before = Testing::peak_memory();
  const std::string message = thrown([&] { fronts.resize(1 << 16); });
  EXPECT_TRUE(message.starts_with(
      "Front set::67108864 harmonics in 65536 sets need 98304.00 GiB of memory, "))
      << message;
  EXPECT_LT(Testing::peak_memory() - before, 5e7);
}

TEST(MergeMemory, AMergedSetBeyondTheMemoryIsRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([] {
    RunFronts fronts;
    fronts.run.init(1e6, 10.0, 0.1, 4.0, false);
    fronts.resize(1);
    fronts.sets[0].add_front(7, {0.1, 0.2, 0.3});
    fronts.build_merged(uneven());
    Testing::leave_room(5e7);
    const std::string message = thrown([&] { fronts.build_merged(uneven()); });
    // The slots need 96 MB. The previous sum is kept.
    return message.starts_with("Front set::the merged fronts need 0.09 GiB of memory, 0.0") &&
           fronts.merged.slots.size() == 4000001 && fronts.merged.slots[7].size() == 1;
  }));
}

TEST(MergeMemory, FrontsBeyondTheMemoryAreRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([] {
    FrontSet set;
    set.reset(10);
    Testing::leave_room(2.5e8);
    const std::string message = thrown([&] {
      for (std::uint64_t i = 0;; ++i) set.add_front(1 + i % 8, {0.1, 0.2, 0.3});
    });
    return message.starts_with("Front set::more fronts need 0.06 GiB of memory, 0.0") &&
           set.front_count() > 1000000;
  }));
}

// A list doubles, which takes more at once than the fronts that were added since the last check.
TEST(MergeMemory, ALongListOfFrontsBeyondTheMemoryIsRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([] {
    FrontSet set;
    set.reset(10);
    Testing::leave_room(2.5e8);
    const std::string message = thrown([&] {
      for (;;) set.add_front(5, {0.1, 0.2, 0.3});
    });
    return message.starts_with("Front set::more fronts need 0.") && set.front_count() > 1000000;
  }));
}

// Two lists with different angles: the sum is longer than the copies that were checked before.
TEST(MergeMemory, AMergedListThatGrowsBeyondTheMemoryIsRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([] {
    RunFronts fronts;
    fronts.run.init(10.0, 10.0, 0.1, 4.0, false);
    fronts.resize(2);
    constexpr std::size_t count = 1 << 21;
    // 50 MB in each set, and as much in the sum and in the copy. The sum then moves to 101 MB.
    fronts.sets[0].slots[7].assign(count, {0.1, 0.2, 0.3});
    fronts.sets[1].slots[7].assign(count, {0.1, 0.4, 0.3});
    Testing::leave_room(1.5e8);
    const std::string message = thrown([&] { fronts.build_merged(uneven()); });
    return message.starts_with("Front set::more fronts need 0.09 GiB of memory, 0.0") &&
           fronts.merged.slots.empty();
  }));
}

// The treatment turns one front of a harmonic into up to 245 here, 160 MB in all.
TEST(MergeMemory, ModesBetweenTheSideWallsBeyondTheMemoryAreRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([] {
    RunFronts fronts;
    fronts.run.init(20000.0, 10.0, 0.1, 4.0, true);
    fronts.resize(1);
    for (std::size_t slot = 2000; slot < fronts.sets[0].slots.size(); ++slot) {
      fronts.sets[0].slots[slot] = {{0.1, 0.3, 0.2}};
    }
    Testing::leave_room(1e8);
    const std::string message = thrown([&] { fronts.build_merged(uneven()); });
    return message.starts_with("Front set::more fronts need 0.06 GiB of memory, 0.0") &&
           fronts.merged.slots.empty();
  }));
}

TEST(MergeMemory, TheSetsOfAnEarlierBuildMakeRoom) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([] {
    RunFronts fronts;
    fronts.run.init(1e6, 10.0, 0.1, 4.0, false);
    Testing::leave_room(1.5e8);
    // The slots need 96 MB each time.
    for (int build = 0; build < 3; ++build) fronts.resize(1);
    return fronts.sets[0].slots.size() == 4000001;
  }));
}

}  // namespace
