#include "outputs/kept_paddles.h"

#include <gtest/gtest.h>

#include <numeric>

#include "outputs/page_facts.h"

namespace Outputs {
namespace {

using Numbers = std::vector<std::size_t>;

TEST(Thinning, LeavesTenSamplesPerPeriod) {
  EXPECT_EQ(thinning(64.0, 2.0), 3U);   // 21.3 Hz
  EXPECT_EQ(thinning(100.0, 2.0), 5U);  // 20 Hz, exactly 10
  EXPECT_EQ(thinning(99.0, 2.0), 4U);
  EXPECT_EQ(thinning(10.0, 2.0), 1U);
  for (double rate = 1.0; rate < 300.0; rate += 0.37) {
    const std::size_t every = thinning(rate, 1.3);
    if (every > 1) {
      EXPECT_GE(rate / static_cast<double>(every) * (1.0 + 1e-9), 13.0);
    }
    EXPECT_LT(rate / static_cast<double>(every + 1), 13.0);
  }
}

TEST(DriveBudget, KeepsEveryPaddleThatFits) {
  const DriveBudget budget = drive_budget({40, 8}, 1000, 4, 12'000);
  EXPECT_EQ(budget.every, 4U);
  EXPECT_EQ(budget.paddles, (Numbers{40, 8}));
}

TEST(DriveBudget, SharesWhatFitsAmongTheBanks) {
  const DriveBudget budget = drive_budget({1000, 500, 2, 0}, 57'600, 3, 1'200'000);
  EXPECT_EQ(budget.every, 3U);
  // 62 signals of 19,200 samples fit. A bank of fewer than four paddles keeps them besides.
  EXPECT_EQ(budget.paddles, (Numbers{41, 20, 2, 0}));
}

TEST(DriveBudget, ThinsFurtherIfAFewPaddlesAreTooMuch) {
  const DriveBudget budget = drive_budget({1000}, 10'000'000, 2, 1'000'000);
  EXPECT_EQ(budget.paddles, (Numbers{4}));
  EXPECT_LE(4 * thinned(10'000'000, budget.every), 1'125'000U);
  EXPECT_GT(4 * thinned(10'000'000, budget.every - 1), 1'125'000U);
}

TEST(KeptPaddles, AreAllOfASmallBank) {
  EXPECT_EQ(kept_paddles(3, 3, {1}), (Numbers{0, 1, 2}));
  EXPECT_EQ(kept_paddles(1, 1, {0, 0}), (Numbers{0}));
}

TEST(KeptPaddles, AreTheWorstAndOthersInEvenSteps) {
  const Numbers kept = kept_paddles(1000, 26, {617, 300});
  EXPECT_EQ(kept.size(), 26U);
  EXPECT_EQ(kept.front(), 0U);
  EXPECT_EQ(kept.back(), 999U);
  for (const std::size_t worst : {std::size_t{300}, std::size_t{617}}) {
    EXPECT_NE(std::find(kept.begin(), kept.end(), worst), kept.end());
  }
  for (std::size_t i = 1; i < kept.size(); ++i) {
    EXPECT_LT(kept[i - 1], kept[i]);
    EXPECT_LE(kept[i] - kept[i - 1], 44U);  // 999 / 23, rounded up
  }
}

TEST(KeptPaddles, AreFewerIfAWorstOneIsAnEvenStep) {
  EXPECT_EQ(kept_paddles(100, 4, {0, 99}), (Numbers{0, 99}));
  EXPECT_EQ(kept_paddles(100, 3, {7, 9}), (Numbers{7, 9, 50}));
}

TEST(KeptPaddles, AreTheWorstEvenIfTheyAreMoreThanFit) {
  EXPECT_EQ(kept_paddles(10, 1, {5, 2}), (Numbers{2, 5}));
}

}  // namespace
}  // namespace Outputs
