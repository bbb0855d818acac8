// Directions, crests, steepness and refraction of runs that are filled by hand.
#include <gtest/gtest.h>

#include <cmath>

#include "jobs/hand_judged.h"
#include "support/test_site.h"

using Jobs::SeaKind;
using Testing::HandJudged;

namespace {

// Waves of equal variance in m2 from those directions in rad.
struct Directions : HandJudged {
  Directions(std::initializer_list<double> asked, std::initializer_list<double> made,
             double variance = 1.0)
      : HandJudged(SeaKind::irregular) {
    for (const double a : asked) judged.fates.asked_directions.add(a, variance);
    for (const double a : made) judged.fates.made_directions.add(a, variance);
    judged.spread_by_law = variance < 1.0;
    judge_directions(judged, findings);
  }
};

}  // namespace

TEST(JudgeDirections, WavesThatAreNotMadeHaveNone) {
  EXPECT_TRUE(Directions({0.5}, {}).findings.empty());
  EXPECT_TRUE(Directions({}, {0.5}).findings.empty());
}

TEST(JudgeDirections, WavesAlongTheTankAreComparedIfOthersAreMade) {
  EXPECT_TRUE(Directions({0.0}, {0.0}).findings.empty());
  EXPECT_TRUE(Directions({0.0}, {0.1}).look("direction"));
  EXPECT_EQ(Directions({0.0}, {0.1}).at("direction").remark,
            "the reference point lies at another depth than the sea");
}

TEST(JudgeDirections, ASpreadIsJudgedOnlyIfOneIsAskedFor) {
  const Directions spread({0.0}, {-0.05, 0.05});
  EXPECT_TRUE(spread.good("direction"));
  EXPECT_NEAR(spread.at("spread").made.value_or(0), std::sqrt(2 * (1 - std::cos(0.05))), 1e-9);
  EXPECT_EQ(spread.at("spread").verdict, Jobs::Verdict::none);
}

// The squares of their variances are below the smallest number.
TEST(JudgeDirections, TheTiniestWavesSayNothingAboutScatter) {
  const Directions tiny({0.0}, {0.03}, 1e-200);
  EXPECT_TRUE(tiny.good("direction"));
  EXPECT_EQ(tiny.at("direction").remark, "");
}

TEST(DirectionStats, IgnoreAMomentThatIsNaN) {
  Jobs::DirectionStats stats;
  stats.add(std::complex<double>(0.6, 0.8), 2.0);
  stats.add(std::complex<double>(NAN, 0.0), 3.0);
  stats.add(std::complex<double>(0.0, 1.0), NAN);
  EXPECT_EQ(stats.variance, 2.0);
  EXPECT_NEAR(stats.mean(), std::atan2(0.8, 0.6), 1e-12);
}

TEST(JudgeCrests, OfSeveralGroupsAreNamedAndNotJudged) {
  HandJudged groups(SeaKind::group);
  groups.judged.crests = {{"swell", 0.1, 0.12, false}, {"wind", 0.2, 0.19, false}};
  judge_crests(groups.judged, groups.findings);
  EXPECT_EQ(groups.at("crest.swell").asked, 0.1);
  EXPECT_EQ(groups.at("crest.wind").made, 0.19);
  EXPECT_EQ(groups.at("crest.wind").quantity, "crest of wind");
  EXPECT_EQ(groups.at("crest.swell").remark, "other waves or a gain change it");
  EXPECT_EQ(groups.at("crest.swell").verdict, Jobs::Verdict::none);
}

namespace {

// A random sea of 1 Hz and Hs = 4 mm.
struct Water : HandJudged {
  explicit Water(double depth) : HandJudged(SeaKind::irregular) {
    judged.depth = judged.path.tank.paddle_depth = depth;
    judged.g = 9.81;
    judged.repeat = 10;
    judged.made.assign(11, 0.0);
    judged.made[10] = 1e-6;
    judged.made_moments.add(1.0, 1e-6);
  }
  Water& judge() {
    judge_steepness(judged, findings);
    return *this;
  }
};

}  // namespace

TEST(JudgeSteepness, NamesShallowAndDeepWater) {
  // Shallow means a depth below a twentieth of the length: kd = 2 pi f sqrt(d / g) is 0.2.
  EXPECT_EQ(Water(0.01).judge().at("relative_depth").remark, "shallow water");
  EXPECT_EQ(Water(0.2).judge().at("relative_depth").remark, "intermediate");
  EXPECT_EQ(Water(2.0).judge().at("relative_depth").remark, "deep water");
}

TEST(JudgeSteepness, AHighestWaveWithoutAPeriodHasNoSteepness) {
  Water water(0.5);
  water.judged.highest = Jobs::ZeroCrossingWave{0.1, 0.0};
  water.judge();
  EXPECT_FALSE(water.has("steepness_highest"));
  EXPECT_DOUBLE_EQ(water.at("height_to_depth").made.value_or(0), 0.2);
}

TEST(JudgeSteepness, WithoutWaterAtThePaddlesThereIsNoUrsellNumber) {
  Water water(0.5);
  water.judged.path.tank.paddle_depth = 0.0;
  EXPECT_TRUE(water.judge().has("relative_depth"));
  EXPECT_FALSE(water.has("ursell"));
}

TEST(JudgeSteepness, IgnoresPointsOutsideTheTank) {
  Testing::Site site;  // 1 m of water from 0 to 40 m
  Water water(1.0);
  water.judged.path.tank = site.context().tank_config();
  water.judged.path.run.init(10, 20, 0.1, 2, false);
  water.run.points = {{"far", 1000.0, 0.0, 20.0, 0.1}, {"near", 10.0, 0.0, 20.0, 0.1}};
  EXPECT_EQ(water.judge().at("ursell").remark, "at the paddles, 1.0 m deep");
}

TEST(JudgeTheory, WavesThatAreHigherThanShownAreReported) {
  for (const double ratio : {1.21, 0.81}) {  // of the variances
    HandJudged sea(SeaKind::irregular);
    sea.judged.fates.made = {0.0, 1e-4};
    sea.judged.fates.refracted = ratio * 1e-4;
    judge_theory(sea.judged, sea.findings);
    EXPECT_TRUE(sea.look("refraction"));
    EXPECT_NEAR(sea.at("refraction").made.value_or(0), ratio > 1 ? 10 : -10, 1e-9);
    EXPECT_EQ(sea.at("refraction").remark,
              ratio > 1 ? "the theory lacks refraction: real waves are higher than shown; ask for "
                          "0.909 times the height"
                        : "the theory lacks refraction: real waves are lower than shown; ask for "
                          "1.11 times the height");
  }
}

TEST(JudgeTheory, PaddlesWithoutAWidthSetNoShortestWave) {
  HandJudged sea(SeaKind::irregular);
  sea.judged.g = 9.81;
  sea.judged.path.tank.paddle_depth = 1.0;
  sea.judged.path.banks = {Jobs::BankFaces{}};
  sea.judged.repeat = 10;
  sea.judged.fates.arriving = {0.0, 1e-4};
  judge_theory(sea.judged, sea.findings);
  EXPECT_TRUE(sea.findings.empty());
}
