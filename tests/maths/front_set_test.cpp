#include "maths/front_set.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "support/output.h"
#include "support/thrown.h"

namespace {

using Maths::common_angle;
using Maths::FrontSet;
using Maths::HarmonicFront;
using Maths::reduced_length;
using Maths::RunData;
using Testing::printed;
using Testing::thrown;

FrontSet slots(std::uint64_t count) {
  FrontSet set;
  set.reset(count);
  return set;
}

// Harmonics `low` to 400 of 10 s.
RunData run_from(std::uint64_t low) {
  RunData run;
  run.init(10.0, 100.0, static_cast<double>(low) / 10.0, 40.0, false);
  return run;
}

TEST(FrontRecords, HaveTheFrequencyFirst) {
  const Synthesis::Front front(0.5, 1.0, 2.0, 3.0);
  EXPECT_EQ(front.freq, 0.5);
  EXPECT_EQ(front.amp, 1.0);
  EXPECT_EQ(front.angle, 2.0);
  EXPECT_EQ(front.phase, 3.0);
  const Maths::DisplayFront shown(0.5, 1.0, 2.0, 3.0);
  EXPECT_EQ(shown.freq, 0.5);
  EXPECT_EQ(shown.amp, 1.0);
  EXPECT_EQ(shown.angle, 2.0);
  EXPECT_EQ(shown.phase, 3.0);
}

TEST(FrontRecords, AreZeroByDefault) {
  const Synthesis::Front front;
  EXPECT_EQ(front.amp, 0.0);
  EXPECT_EQ(front.angle, 0.0);
  EXPECT_EQ(front.phase, 0.0);
  EXPECT_EQ(front.freq, 0.0);
  const Maths::TransferFront sent;
  EXPECT_EQ(sent.amp, 0.0);
  EXPECT_EQ(sent.angle, 0.0);
  EXPECT_EQ(sent.phase, 0.0);
  EXPECT_EQ(sent.harmonic, 0u);
}

TEST(FrontSet, KeepsTheFrontsOfAHarmonicInOrder) {
  FrontSet set = slots(4);
  set.add_front(3, {1.0, 0.1, 0.2});
  set.add_front(3, {-2.0, 0.3, 0.4});
  ASSERT_EQ(set.slots[3].size(), 2u);
  EXPECT_EQ(set.slots[3][0].amp, 1.0);
  EXPECT_EQ(set.slots[3][1].amp, -2.0);
  EXPECT_EQ(set.slots[3][1].angle, 0.3);
  EXPECT_EQ(set.slots[3][1].phase, 0.4);
  EXPECT_TRUE(set.slots[2].empty());
}

TEST(FrontSet, DiscardsAFrontOfZeroAmplitude) {
  FrontSet set = slots(2);
  set.add_front(1, {0.0, 0.1, 0.2});
  set.add_front(1, {-0.0, 0.1, 0.2});
  EXPECT_TRUE(set.slots[1].empty());
  set.add_front(1, {1e-300, 0.1, 0.2});
  EXPECT_EQ(set.slots[1].size(), 1u);
}

TEST(FrontSet, ASlotBeyondTheSetIsPrintedAndRefused) {
  FrontSet set = slots(4);
  const auto refusal = [&](std::uint64_t slot, double amp) {
    return printed([&] {
      EXPECT_EQ(thrown([&] { set.add_front(slot, {amp, 0.0, 0.0}); }), "Help");
    });
  };
  EXPECT_EQ(refusal(4, 1.0), "front error 4 4\n");
  EXPECT_EQ(refusal(70, 0.0), "front error 70 4\n");
}

TEST(FrontSet, ResetEmptiesAllSlots) {
  FrontSet set = slots(4);
  set.add_front(2, {1.0, 0.0, 0.0});
  set.reset(3);
  ASSERT_EQ(set.slots.size(), 3u);
  for (const auto& slot : set.slots) EXPECT_TRUE(slot.empty());
}

TEST(FrontSet, RefusesMoreSlotsThanMemoryHolds) {
  FrontSet set;
  EXPECT_EQ(
      thrown([&] { set.reset(std::numeric_limits<std::uint64_t>::max()); }),
      "Front set::18446744073709551615 harmonics are more than the 67108864 that can be held");
}

TEST(FrontSet, DisplayFrontsHaveTheirFrequency) {
  FrontSet set = slots(8);
  set.add_front(7, {3.0, 0.3, 0.6});
  set.add_front(2, {1.0, 0.1, 0.2});
  set.add_front(2, {2.0, 0.2, 0.4});
  std::vector<Synthesis::Front> out(1);
  set.display_fronts(out, run_from(5));  // slot 2 is below the lowest harmonic
  ASSERT_EQ(out.size(), 4u);
  EXPECT_EQ(out[1].amp, 1.0);
  EXPECT_EQ(out[1].freq, 0.2);
  EXPECT_EQ(out[2].amp, 2.0);
  EXPECT_EQ(out[2].angle, 0.2);
  EXPECT_EQ(out[2].phase, 0.4);
  EXPECT_EQ(out[3].amp, 3.0);
  EXPECT_EQ(out[3].freq, 0.7);
}

TEST(FrontSet, TransferFrontsHaveTheirHarmonic) {
  FrontSet set = slots(8);
  set.add_front(7, {3.0, 0.3, 0.6});
  set.add_front(2, {1.0, 0.1, 0.2});
  std::vector<Maths::TransferFront> out(1);
  set.transfer_fronts(out);
  ASSERT_EQ(out.size(), 3u);
  EXPECT_EQ(out[1].harmonic, 2u);
  EXPECT_EQ(out[1].angle, 0.1);
  EXPECT_EQ(out[2].harmonic, 7u);
  EXPECT_EQ(out[2].amp, 3.0);
  EXPECT_EQ(out[2].phase, 0.6);
}

TEST(CommonAngle, IsTheAngleOfTheFirstFront) {
  FrontSet set = slots(4);
  set.add_front(1, {1.0, 0.5, 0.0});
  set.add_front(1, {1.0, 0.5, 0.0});
  set.add_front(3, {1.0, 0.5 * (1 + 0.9e-6), 0.0});
  double angle = 9.0;
  EXPECT_TRUE(common_angle(set, angle));
  EXPECT_EQ(angle, 0.5);
}

TEST(CommonAngle, OnlyAGreaterAngleDiffers) {
  double angle = 9.0;
  FrontSet set = slots(4);
  set.add_front(1, {1.0, 0.5, 0.0});
  set.add_front(2, {1.0, 0.2, 0.0});
  set.add_front(3, {1.0, -0.5, 0.0});
  EXPECT_TRUE(common_angle(set, angle));
  set.add_front(3, {1.0, 0.5 * (1 + 1.1e-6), 0.0});
  EXPECT_FALSE(common_angle(set, angle));
  EXPECT_EQ(angle, 0.5);
}

TEST(CommonAngle, OnlyAPositiveAngleDiffersFromZero) {
  double angle = 9.0;
  FrontSet set = slots(2);
  set.add_front(1, {1.0, 0.0, 0.0});
  set.add_front(1, {1.0, 0.0, 0.0});
  set.add_front(1, {1.0, -0.3, 0.0});
  EXPECT_TRUE(common_angle(set, angle));
  set.add_front(1, {1.0, 1e-9, 0.0});
  EXPECT_FALSE(common_angle(set, angle));
  EXPECT_EQ(angle, 0.0);
}

TEST(CommonAngle, WithoutFrontsTheAngleIsUnchanged) {
  double angle = 9.0;
  EXPECT_TRUE(common_angle(slots(4), angle));
  EXPECT_EQ(angle, 9.0);
}

TEST(ReducedLength, IsZeroWithoutFrontsAndTheWholeLengthWithSeveral) {
  FrontSet set = slots(40);
  EXPECT_EQ(reduced_length(set, 1000, run_from(5)), 0u);
  set.add_front(10, {1.0, 0.0, 0.0});
  set.add_front(20, {1.0, 0.0, 0.0});
  EXPECT_EQ(reduced_length(set, 1000, run_from(5)), 1000u);
}

TEST(ReducedLength, DividesByPrimesOfTheSlotPlusTheLowestHarmonic) {
  FrontSet set = slots(200);
  set.add_front(115, {1.0, 0.0, 0.0});
  set.add_front(115, {1.0, 0.5, 0.0});
  // 115 + 5 = 2 * 2 * 2 * 3 * 5 removes 2^3 and 5 from 1000 = 2^3 * 5^3.
  EXPECT_EQ(reduced_length(set, 1000, run_from(5)), 25u);
  // 115 + 1 = 2 * 2 * 29.
  EXPECT_EQ(reduced_length(set, 1000, run_from(1)), 250u);
  // 115 + 39 = 2 * 7 * 11 removes 2, 7 and 11 from 2 * 3 * 7 * 11 * 13.
  EXPECT_EQ(reduced_length(set, 2 * 3 * 7 * 11 * 13, run_from(39)), 39u);
}

TEST(ReducedLength, AcceptsALengthOrSlotOfZero) {
  FrontSet set = slots(4);
  set.add_front(0, {1.0, 0.0, 0.0});
  EXPECT_EQ(reduced_length(set, 0, RunData{}), 0u);
  EXPECT_EQ(reduced_length(set, 0, run_from(8)), 0u);
  EXPECT_EQ(reduced_length(set, 26, RunData{}), 13u);
}

}  // namespace
