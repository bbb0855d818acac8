// Summing sets.
#include "maths/merge_sets.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <string>

#include "base/constants.h"
#include "support/thrown.h"

namespace {

using Maths::FrontSet;
using Maths::merge_sets;
using Testing::nothing_thrown;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

FrontSet three_slots() {
  FrontSet set;
  set.reset(3);
  return set;
}

TEST(MergeSets, SumsFrontsOfEqualAngleAtTheSameIndex) {
  FrontSet a = three_slots();
  FrontSet b = three_slots();
  a.slots[1] = {{2.0, 0.3, 0.5}};
  b.slots[1] = {{-1.0, 0.3, 1.2}};
  merge_sets(a, b);
  const std::complex<double> sum =
      2.0 * std::exp(std::complex<double>(0, 0.5)) - std::exp(std::complex<double>(0, 1.2));
  ASSERT_EQ(a.slots[1].size(), 1u);
  EXPECT_NEAR(a.slots[1][0].amp, std::abs(sum), 1e-15);
  EXPECT_NEAR(a.slots[1][0].phase, std::arg(sum), 1e-15);
  EXPECT_EQ(a.slots[1][0].angle, 0.3);
}

TEST(MergeSets, AFrontOfZeroAmplitudeAddsNothing) {
  const double inf = std::numeric_limits<double>::infinity();
  for (const double phase : {nan, inf, 0.7}) {
    for (const bool first : {false, true}) {
      FrontSet a = three_slots();
      FrontSet b = three_slots();
      (first ? a : b).slots[1] = {{0.0, 0.3, phase}};
      (first ? b : a).slots[1] = {{-2.0, 0.3, 0.5}};
      merge_sets(a, b);
      ASSERT_EQ(a.slots[1].size(), 1u);
      EXPECT_NEAR(a.slots[1][0].amp, 2.0, 1e-15);
      EXPECT_NEAR(a.slots[1][0].phase, 0.5 - Base::Pi, 1e-15);
      EXPECT_EQ(a.slots[1][0].angle, 0.3);
    }
  }
}

TEST(MergeSets, TwoFrontsOfZeroAmplitudeHaveAmplitudeAndPhaseZero) {
  FrontSet a = three_slots();
  FrontSet b = three_slots();
  a.slots[1] = {{0.0, 0.3, nan}};
  b.slots[1] = {{0.0, 0.3, nan}};
  merge_sets(a, b);
  ASSERT_EQ(a.slots[1].size(), 1u);
  EXPECT_EQ(a.slots[1][0].amp, 0.0);
  EXPECT_EQ(a.slots[1][0].angle, 0.3);
  EXPECT_EQ(a.slots[1][0].phase, 0.0);
}

TEST(MergeSets, ANaNPhaseStaysNaN) {
  FrontSet a = three_slots();
  FrontSet b = three_slots();
  a.slots[1] = {{0.0, 0.3, nan}};
  b.slots[1] = {{1.0, 0.3, nan}};
  merge_sets(a, b);
  EXPECT_TRUE(std::isnan(a.slots[1][0].amp));
}

TEST(MergeSets, AppendsFrontsOfOtherAngles) {
  FrontSet a = three_slots();
  FrontSet b = three_slots();
  a.slots[1] = {{1.0, 0.1, 0.0}, {1.0, 0.2, 0.0}};
  b.slots[1] = {{1.0, 0.2, 0.0}, {1.0, std::nextafter(0.2, 1.0), 0.0}};
  b.slots[2] = {{4.0, 0.7, 0.1}};
  merge_sets(a, b);
  // Fronts of equal angle at different indices are not summed.
  ASSERT_EQ(a.slots[1].size(), 4u);
  EXPECT_EQ(a.slots[1][2].angle, 0.2);
  EXPECT_EQ(a.slots[1][3].angle, std::nextafter(0.2, 1.0));
  ASSERT_EQ(a.slots[2].size(), 1u);
  EXPECT_EQ(a.slots[2][0].amp, 4.0);
  EXPECT_EQ(a.slots[2][0].phase, 0.1);
}

TEST(MergeSets, AnAppendedFrontIsSummedWithTheNextIndex) {
  FrontSet a = three_slots();
  FrontSet b = three_slots();
  a.slots[1] = {{1.0, 0.1, 0.0}};
  b.slots[1] = {{1.0, 0.4, 0.0}, {2.0, 0.4, 0.0}};
  merge_sets(a, b);
  ASSERT_EQ(a.slots[1].size(), 2u);
  EXPECT_EQ(a.slots[1][1].angle, 0.4);
  EXPECT_NEAR(a.slots[1][1].amp, 3.0, 1e-15);
}

TEST(MergeSets, PositionsMustBeEqual) {
  const auto refused = [](Maths::Position p, Maths::Position q) {
    FrontSet a = three_slots();
    FrontSet b = three_slots();
    a.position = p;
    b.position = q;
    const std::string message = thrown([&] { merge_sets(a, b); });
    if (message == nothing_thrown) return false;
    EXPECT_EQ(message, "Error in position when merging fronts");
    return true;
  };
  EXPECT_FALSE(refused({}, {}));
  EXPECT_FALSE(refused({2.0, -3.0, 4.0}, {2.0, -3.0, 4.0}));
  EXPECT_FALSE(refused({2.0 * (1 + 0.9e-6), 0, 0}, {2.0, 0, 0}));
  EXPECT_TRUE(refused({2.0 * (1 + 1.1e-6), 0, 0}, {2.0, 0, 0}));
  EXPECT_TRUE(refused({0, 1.0, 0}, {0, -1.0, 0}));
  EXPECT_TRUE(refused({0, 0, 1.0}, {0, 0, 0}));
  EXPECT_TRUE(refused({0, 0, 0}, {0, 0, 1e-20}));
  EXPECT_FALSE(refused({0, 0, 0.99e-19}, {0, 0, 0}));
  EXPECT_TRUE(refused({0, 0, 1e-19}, {0, 0, 0}));
  EXPECT_FALSE(refused({0, 0, 0}, {0, 0, 0.9e-20}));
}

TEST(MergeSets, SlotCountsMustBeEqualAndAreCheckedAfterPositions) {
  FrontSet a = three_slots();
  FrontSet b;
  b.reset(4);
  EXPECT_EQ(thrown([&] { merge_sets(a, b); }), "Mismatched sizes in front sets");
  b.position.y = 1.0;
  EXPECT_EQ(thrown([&] { merge_sets(a, b); }), "Error in position when merging fronts");
}

}  // namespace
