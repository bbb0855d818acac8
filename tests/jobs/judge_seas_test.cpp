// Judgements of several seas, and of seas with several waves or changes.
#include <cmath>
#include <string>

#include "gtest/gtest.h"
#include "jobs/judged_job.h"

using namespace Testing;

namespace {

std::string sea(const std::string& name, const std::string& parts) {
  return "[[sea]]\nname = \"" + name + "\"\nholds = { x = \"10 m\", t = \"32 s\" }\n" + parts;
}

std::string group(const std::string& crest) {
  return "[[sea.wave]]\nkind = \"focused\"\ncrest = \"" + crest + "\"\ntp = \"1.6 s\"\n";
}

std::string change(const std::string& keys) { return "[[sea.change]]\n" + keys + "\n"; }

}  // namespace

TEST(JudgeSeas, TheCrestsOfTwoGroupsAreReportedForEach) {
  const JudgedJob job(flume_job(sea("a", group("40 mm")) + sea("b", group("60 mm"))));
  EXPECT_NEAR(job.asked("crest.a"), 0.04, 1e-12);
  EXPECT_NEAR(job.asked("crest.b"), 0.06, 1e-12);
  // They meet in one place, where their crests add up.
  EXPECT_NEAR(job.made("crest.a"), 0.1, 1e-4);
  EXPECT_EQ(job.at("crest.b").remark, "other waves or a gain change it");
}

TEST(JudgeSeas, TwoGroupsOfOneSeaHaveOneCrest) {
  const JudgedJob job(flume_job(sea("a", group("40 mm") + group("60 mm"))));
  EXPECT_NEAR(job.asked("crest"), 0.1, 1e-12);
  EXPECT_TRUE(job.good("crest"));
}

TEST(JudgeSeas, AGainOrAnotherWaveChangesACrest) {
  const JudgedJob gain(flume_job(sea("a", group("40 mm") + change("kind = \"gain\"\nfactor = 2"))));
  EXPECT_NEAR(gain.made("crest"), 0.08, 1e-4);
  EXPECT_EQ(gain.at("crest").verdict, Jobs::Verdict::none);
  // The sine has its crest at the sea's position too.
  const JudgedJob other(flume_job(sea("a", group("40 mm") + single("0.5 Hz", "20 mm"))));
  EXPECT_NEAR(other.made("crest"), 0.06, 1e-4);
  EXPECT_EQ(other.at("crest").verdict, Jobs::Verdict::none);
}

TEST(JudgeSeas, OneSeaOfRandomAmplitudesMakesTheRunRandom) {
  const std::string noise = change("kind = \"PhaseWNoise\"\nrate = \"20 Hz\"\nseed = 3");
  const std::string waves = bretschneider("40 mm", "1.6 s");
  const JudgedJob job(flume_job("[[sea]]\n" + waves + noise + "[[sea]]\n" + waves));
  EXPECT_NE(job.at("hs").criterion.find("(chance)"), std::string::npos);
  EXPECT_EQ(JudgedJob(flume_job("[[sea]]\n" + waves)).at("hs").criterion, "within 2 %");
}

TEST(JudgeSeas, OneFanMakesTheRunAFan) {
  const JudgedJob job(
      basin_job("[[sea]]\nholds = { x = \"4 m\", y = \"10 m\" }\n" + single("0.5 Hz", "20 mm") +
                change("kind = \"AngleSweep\"\nformula = \"1\"\ndelta_angle = \"10 deg\"") +
                "[[sea]]\n" + single("1 Hz", "10 mm")));
  EXPECT_FALSE(job.has("height.1")) << "the waves of a fan are not judged one by one";
  EXPECT_TRUE(job.has("hs"));
}

TEST(JudgeSeas, RandomWavesThatAreNotMadeHaveNoChance) {
  const JudgedJob job(basin_job("[[sea]]\n" + bretschneider("40 mm", "1.6 s") +
                                change("kind = \"PhaseWNoise\"\nrate = \"20 Hz\"\nseed = 3") +
                                change("kind = \"direction\"\nangle = \"80 deg\"")));
  EXPECT_EQ(job.made("hs"), 0);
  EXPECT_TRUE(job.look("hs"));
  EXPECT_EQ(job.at("hs").criterion, "within 2 %");
}

TEST(JudgeSeas, AFrontOfAmplitudeZeroIsNoWave) {
  const JobFolder folder;
  folder.write("two.csv", "f [Hz],a [mm]\n0.5,20\n0.75,0\n");
  const JudgedJob job(folder,
                      flume_job("[[sea]]\n[[sea.wave]]\nkind = \"fronts\"\nfile = \"two.csv\"\n"));
  EXPECT_NEAR(job.asked("height.1"), 0.04, 1e-12);
  EXPECT_FALSE(job.has("height.2"));
  ASSERT_TRUE(job.judgement.spectrum.has_value());
  ASSERT_EQ(job.judgement.spectrum->lines.size(), 1u);
  EXPECT_EQ(job.judgement.spectrum->lines[0].frequency, 0.5);
}

TEST(JudgeSeas, ADensityOfZeroIsStillWater) {
  const JudgedJob job(
      flume_job("[[sea]]\n[[sea.wave]]\nkind = \"spectrum\"\nformula = \"0.5@Hz#0@m2s#1.5@Hz\"\n"));
  EXPECT_EQ(job.asked("hs"), 0);
  EXPECT_EQ(job.made("hs"), 0);
  EXPECT_FALSE(job.judgement.spectrum.has_value());
}

TEST(JudgeSeas, ADirectionThatIsInfiniteIsUndefined) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.5 Hz", "20 mm") + single("1 Hz", "20 mm") +
                                change("kind = \"AngleChange\"\nformula = \"1/($[Hz]-0.5)@deg\"")),
                      false);
  EXPECT_EQ(job.made("undefined"), 1);
  EXPECT_TRUE(job.judgement.directions.has_value());
}

// Each of them has a finite variance, but not all together. They are not made.
TEST(JudgeSeas, DirectionsWhoseVariancesHaveNoFiniteSumAreNotShown) {
  std::string waves = single("0.5 Hz", "20 mm");
  for (int i = 0; i < 4; ++i) waves += single("0.625 Hz", "1.2e154 m", "80 deg");
  const std::string second = "[[sea]]\n" + single("0.75 Hz", "1.8e154 m", "80 deg");
  const JudgedJob job(basin_job("[[sea]]\n" + waves + second + second), false);
  ASSERT_TRUE(job.judgement.directions.has_value());
  EXPECT_FALSE(job.judgement.directions->asked.has_value());
}
