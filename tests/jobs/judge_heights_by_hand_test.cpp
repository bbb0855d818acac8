#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "jobs/hand_judged.h"

using Jobs::SeaKind;
using Testing::HandJudged;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// A random sea of Hs = 40 mm, of which Hs = `made` are made, in m.
struct Sea : HandJudged {
  explicit Sea(double made, const std::vector<Jobs::Loss>& losses = {}, double high = infinity)
      : HandJudged(SeaKind::irregular) {
    judged.all.m0 = judged.band.m0 = 1e-4;
    judged.asked.high = high;
    judged.made_moments.m0 = made * made / 16;
    judge_heights(judged, losses, findings);
  }
};

Jobs::Loss loss(const std::string& key, double share) {
  return {key, "", "lies above 2 Hz", "", 0.0, share};
}

}  // namespace

TEST(JudgeHeights, WavesThatAreNotMadeAreReported) {
  EXPECT_TRUE(Sea(0.0).look("hs"));
  EXPECT_EQ(Sea(0.0).at("hs").remark, "no wave is made");
  EXPECT_EQ(Sea(0.0, {loss("cut_above", 1.0)}).at("hs").remark,
            "no wave is made: 100 % of the variance lies above 2 Hz");
}

TEST(JudgeHeights, ALowHeightIsExplainedByTheGreatestLoss) {
  EXPECT_TRUE(Sea(0.03).look("hs"));
  EXPECT_EQ(Sea(0.03, {loss("cut_above", 0.25)}).at("hs").remark,
            "25 % of the variance lies above 2 Hz");
  EXPECT_EQ(Sea(0.03).at("hs").remark, "fewer waves than asked for reach the paddles");
  // Waves that are made in another direction are not lost.
  EXPECT_EQ(Sea(0.03, {loss("redirected", 0.25)}).at("hs").remark,
            "fewer waves than asked for reach the paddles");
}

TEST(JudgeHeights, AGreatHeightComesFromChangesOrFromLimits) {
  EXPECT_TRUE(Sea(0.05).look("hs"));
  EXPECT_EQ(Sea(0.05).at("hs").remark,
            "the fronts hold more than the formula; see the changes of the sea");
  EXPECT_EQ(Sea(0.05, {}, 1.0).at("hs").remark,
            "limits of a formula move to whole harmonics; a longer repeat comes nearer");
}

TEST(JudgeHeights, AHeightThatIsNaNIsNotJudged) {
  const Sea sea(NAN);
  EXPECT_EQ(sea.at("hs").verdict, Jobs::Verdict::none);
  EXPECT_EQ(sea.at("hs").asked, 0.04);
}

TEST(JudgeHeights, ASeaOfInfiniteVarianceAsksForNoHeight) {
  HandJudged sea(SeaKind::irregular);
  sea.judged.all.m0 = infinity;
  sea.judged.made_moments.m0 = 1e-4;
  judge_heights(sea.judged, {}, sea.findings);
  EXPECT_EQ(sea.at("hs").asked, std::nullopt);
  EXPECT_EQ(sea.at("hs").made, 0.04);
  EXPECT_EQ(sea.at("hs").verdict, Jobs::Verdict::none);
  EXPECT_FALSE(sea.has("hs_band"));
}

TEST(JudgeHeights, TheRecordIsNotJudgedBetweenReflectingWalls) {
  HandJudged sea(SeaKind::irregular);
  sea.judged.record_m0 = 1e-4;
  judge_heights(sea.judged, {}, sea.findings);
  // No wave arrives, so that chance explains nothing.
  EXPECT_TRUE(sea.look("hs_record"));
  EXPECT_EQ(sea.at("hs_record").criterion, "within 2 %");

  HandJudged mirrored(SeaKind::irregular);
  mirrored.judged.record_m0 = 1e-4;
  mirrored.judged.path.tank.has_walls = true;
  mirrored.judged.path.run.init(64, 20, 0.1, 2, true);
  judge_heights(mirrored.judged, {}, mirrored.findings);
  EXPECT_EQ(mirrored.at("hs_record").verdict, Jobs::Verdict::none);
}

TEST(JudgeHeights, AWaveLongerThanTheRepeatIsNotMade) {
  HandJudged waves(SeaKind::lines);
  waves.judged.repeat = 10;
  waves.judged.made.assign(30, 0.0);
  waves.judged.made[0] = waves.judged.made[10] = 1e-4;
  waves.judged.made_moments.add(1.0, 1e-4);
  waves.judged.asked.lines = {{0.01, 1e-4}, {1.0, 1e-4}, {2.0, 0.0}};
  judge_heights(waves.judged, {}, waves.findings);
  EXPECT_TRUE(waves.look("height.1"));
  EXPECT_EQ(waves.at("height.1").made, 0.0);
  EXPECT_TRUE(waves.good("height.2"));
  EXPECT_FALSE(waves.has("height.3")) << "still water has no height";
}

TEST(JudgeHeights, FiveWavesAreJudgedTogether) {
  HandJudged waves(SeaKind::lines);
  waves.judged.repeat = 10;
  waves.judged.made.assign(30, 0.0);
  for (const double f : {1.0, 1.1, 1.2, 1.3, 1.4}) waves.judged.asked.lines.push_back({f, 2e-5});
  waves.judged.all.m0 = waves.judged.band.m0 = waves.judged.made_moments.m0 = 1e-4;
  judge_heights(waves.judged, {}, waves.findings);
  EXPECT_TRUE(waves.good("hs"));
  EXPECT_FALSE(waves.has("height.1"));
}

TEST(JudgeLost, AnInfiniteTailIsNoPartOfTheWhole) {
  HandJudged sea(SeaKind::irregular);
  sea.judged.path.run.init(64, 20, 0.1, 2, false);
  sea.judged.above.m0 = infinity;
  sea.judged.below.m0 = 1e-4;
  sea.judged.fates.asked = 3e-4;
  for (const Jobs::Loss& lost : losses_of(sea.judged)) {
    if (lost.key == "cut_below") {
      EXPECT_DOUBLE_EQ(lost.share, 0.25);
    }
  }
}

TEST(JudgeLost, RandomAmplitudesSayNothingAboutTheBandOfARecord) {
  for (const bool random : {false, true}) {
    HandJudged sea(SeaKind::irregular);
    sea.judged.path.run.init(64, 20, 0.1, 2, false);
    sea.judged.asked.other = 4e-4;
    sea.judged.fates.asked = 3e-4;
    sea.judged.random_amplitudes = random;
    const std::vector<Jobs::Loss> losses = losses_of(sea.judged);
    ASSERT_EQ(losses.size(), random ? 0u : 1u);
    if (!random) {
      EXPECT_NEAR(losses[0].share, 0.25, 1e-12);
    }
  }
}
