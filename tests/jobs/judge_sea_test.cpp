#include <cmath>

#include "gtest/gtest.h"
#include "jobs/judged_job.h"
#include "support/integral.h"

using namespace Testing;

namespace {

constexpr double degree = M_PI / 180;

// Bretschneider and Pierson-Moskowitz: S = 5/16 hs^2 fp^4 f^-5 exp(-5/4 (fp/f)^4).
double density(double hs, double fp, double f) {
  return 5.0 / 16 * hs * hs * std::pow(fp, 4) / std::pow(f, 5) *
         std::exp(-1.25 * std::pow(fp / f, 4));
}
// Its moments over all frequencies, and its variance between two.
double moment(double hs, double fp, double n) {
  const double B = 1.25 * std::pow(fp, 4);
  return hs * hs / 16 * B * std::pow(B, n / 4 - 1) * std::tgamma(1 - n / 4);
}
double variance(double hs, double fp, double low, double high) {
  const auto part = [&](double f) { return std::exp(-1.25 * std::pow(fp / f, 4)); };
  return hs * hs / 16 * (part(high) - part(low));
}

// The flume makes harmonics 6 to 128 of 64 s, so its band ends half a harmonic beyond them.
const double band_low = 5.5 / 64;
const double band_high = 128.5 / 64;

}  // namespace

TEST(JudgeSea, ARegularWaveHasItsHeightAndPeriod) {
  const JudgedJob job(
      flume_job("[[sea]]\n[[sea.wave]]\nkind = \"regular\"\nheight = \"50 mm\"\n"
                "period = \"1.6 s\"\n"));
  EXPECT_NEAR(job.asked("height"), 0.05, 1e-12);
  EXPECT_NEAR(job.made("height"), 0.05, 1e-12);
  EXPECT_EQ(job.at("height").made_text, "50.0 mm");
  EXPECT_NEAR(job.made("period"), 1.6, 1e-12);  // harmonic 40
  EXPECT_EQ(job.at("period").remark, "");
  EXPECT_FALSE(job.has("hs"));
  EXPECT_FALSE(job.has("waves_per_run"));
  EXPECT_FALSE(job.has("direction"));
  EXPECT_EQ(job.judgement.looks, 0);
}

TEST(JudgeSea, APeriodBetweenHarmonicsIsReported) {
  // 10 s: harmonics 16 and 17 have 0.625 s and 0.588 s.
  const JudgedJob job(flume_job("[[sea]]\n" + single("1.65 Hz", "10 mm"), "10 s"));
  EXPECT_TRUE(job.look("period"));
  EXPECT_NEAR(job.asked("period"), 1 / 1.65, 1e-12);
  EXPECT_NEAR(job.made("period"), 10.0 / 17, 1e-12);
  EXPECT_NE(job.at("period").remark.find("a repeat of 10.303 s fits"), std::string::npos);
}

TEST(JudgeSea, ANegativeAmplitudeIsAHeight) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.5 Hz", "-20 mm")));
  EXPECT_NEAR(job.asked("height"), 0.04, 1e-12);
  EXPECT_NEAR(job.made("height"), 0.04, 1e-12);
}

TEST(JudgeSea, TwoWavesAreJudgedOneByOne) {
  const JudgedJob job(
      flume_job("[[sea]]\n" + single("0.5 Hz", "20 mm") + single("0.625 Hz", "10 mm")));
  EXPECT_NEAR(job.made("height.1"), 0.04, 1e-12);
  EXPECT_NEAR(job.made("height.2"), 0.02, 1e-12);
  EXPECT_NEAR(job.made("period.2"), 1.6, 1e-12);
}

TEST(JudgeSea, AWaveAboveTheBandIsNotMade) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("3 Hz", "20 mm")));
  EXPECT_TRUE(job.look("height"));
  EXPECT_EQ(job.made("height"), 0);
  EXPECT_NEAR(job.made("cut_above"), 100, 1e-9);
  EXPECT_TRUE(job.look("cut_above"));
}

TEST(JudgeSea, HeightsAreComparedFromTheFormulaToTheRecord) {
  const JudgedJob job(flume_job("[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3)));
  const double fp = 1 / 1.6;
  const double in_band = 4 * std::sqrt(variance(0.06, fp, band_low, band_high));
  EXPECT_NEAR(job.asked("hs"), 0.06, 1e-7);
  EXPECT_NEAR(job.made("hs_band") / in_band, 1, 1e-6);
  // The library integrates each band to a thousandth of its density.
  EXPECT_NEAR(job.made("hs_fronts") / in_band, 1, 1e-3);
  EXPECT_NEAR(job.made("hs") / in_band, 1, 1e-3);
  EXPECT_NEAR(job.made("hs_record") / in_band, 1, 1e-3);
  EXPECT_NEAR(job.asked("m0") / (0.06 * 0.06 / 16), 1, 1e-6);
  EXPECT_TRUE(job.good("hs"));
  EXPECT_TRUE(job.good("hs_record"));
}

TEST(JudgeSea, MeanPeriodsAreThoseOfTheMoments) {
  const JudgedJob job(flume_job("[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3)));
  const double fp = 1 / 1.6;
  const auto asked = [&](double n) { return moment(0.06, fp, n); };
  EXPECT_NEAR(job.asked("tm01") / (asked(0) / asked(1)), 1, 1e-6);
  EXPECT_NEAR(job.asked("tm02") / std::sqrt(asked(0) / asked(2)), 1, 1e-6);
  EXPECT_NEAR(job.asked("tm_10") / (asked(-1) / asked(0)), 1, 1e-6);
  const auto made = [&](int n) {
    const auto f_n = [&](double f) { return std::pow(f, n) * density(0.06, fp, f); };
    return simpson(f_n, band_low, band_high, 4000);
  };
  EXPECT_NEAR(job.made("tm01") / (made(0) / made(1)), 1, 1e-3);
  EXPECT_NEAR(job.made("tm02") / std::sqrt(made(0) / made(2)), 1, 1e-3);
  EXPECT_NEAR(job.made("tm_10") / (made(-1) / made(0)), 1, 1e-3);
  EXPECT_NEAR(job.asked("tp"), 1.6, 1e-4);
  EXPECT_TRUE(job.good("tp"));
}

TEST(JudgeSea, APeakThatIsNotMadeIsExplained) {
  // The flume makes harmonics 6 to 128 of 1/64 Hz. This peak lies at 2.5 Hz.
  const JudgedJob outside(
      flume_job("[[sea]]\n" + bretschneider("60 mm", "0.4 s") + random_phases(3)));
  EXPECT_TRUE(outside.look("tp"));
  EXPECT_EQ(outside.at("tp").remark, "the peak lies outside the band, 0.0859 Hz to 2.01 Hz");
  // This peak lies at 1.25 Hz, above half the rate of the drive.
  const JudgedJob lost(flume_job("[[sea]]\n" + bretschneider("60 mm", "0.8 s") + random_phases(3) +
                                 "[drive]\nrate = \"2 Hz\"\n"));
  EXPECT_TRUE(lost.look("tp"));
  EXPECT_EQ(lost.at("tp").remark, "the waves at the peak are lost; see the losses");
}

TEST(JudgeSea, AGainBelongsToWhatIsAsked) {
  const JudgedJob job(flume_job("[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3) +
                                "[[sea.change]]\nkind = \"gain\"\nfactor = 0.5\n"));
  EXPECT_NEAR(job.asked("hs"), 0.03, 1e-6);
  EXPECT_TRUE(job.good("hs"));
}

TEST(JudgeSea, RandomAmplitudesHaveARangeOfChanceAndASmoothedPeak) {
  const JudgedJob job(flume_job("[[sea]]\n" + bretschneider("60 mm", "1.6 s") +
                                    "[[sea.change]]\nkind = \"PhaseWNoise\"\nrate = \"50 Hz\"\n"
                                    "seed = 5\n",
                                "600 s"));
  EXPECT_NE(job.at("hs").criterion.find("(chance)"), std::string::npos);
  EXPECT_NE(job.at("tp").remark.find("smoothed"), std::string::npos);
  EXPECT_NEAR(job.made("tp"), 1.6, 0.16);
}

TEST(JudgeSea, SeasOfTheSameSeedMeetInStep) {
  const std::string sea = "[[sea]]\n" + bretschneider("40 mm", "1.6 s");
  const JudgedJob same(flume_job(sea + random_phases(3) + sea + random_phases(3)));
  // Amplitudes add up instead of energies.
  EXPECT_NEAR(same.made("hs_record") / same.made("hs_fronts"), std::sqrt(2), 1e-3);
  EXPECT_TRUE(same.look("hs_record"));
  const JudgedJob other(flume_job(sea + random_phases(3) + sea + random_phases(4)));
  EXPECT_TRUE(other.good("hs_record"));
  EXPECT_NEAR(other.asked("hs"), 0.04 * std::sqrt(2), 1e-6);
}

TEST(JudgeSea, DirectionsAreComparedWithTheirLaw) {
  const JudgedJob job(basin_job("[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3) +
                                    "[[sea.change]]\nkind = \"cos2s\"\ns = 40\n"
                                    "angle = \"10 deg\"\nseed = 2\n",
                                "600 s"));
  EXPECT_NEAR(job.asked("direction"), 10 * degree, 1e-6);
  EXPECT_NEAR(job.asked("spread"), std::sqrt(2.0 / 41), 1e-6);
  EXPECT_NEAR(job.made("direction"), 10 * degree, 2 * degree);
  EXPECT_NEAR(job.made("spread") / std::sqrt(2.0 / 41), 1, 0.1);
}

TEST(JudgeSea, TwoDirectionsHaveAMeanAndASpread) {
  const JudgedJob job(basin_job("[[sea]]\n" + single("0.5 Hz", "20 mm", "30 deg") +
                                single("0.625 Hz", "20 mm", "-10 deg")));
  // The library's degree is good to six digits.
  EXPECT_NEAR(job.asked("direction"), 10 * degree, 1e-6);
  EXPECT_NEAR(job.made("direction"), 10 * degree, 1e-6);
  EXPECT_NEAR(job.made("spread"), std::sqrt(2 * (1 - std::cos(20 * degree))), 1e-6);
}

TEST(JudgeSea, LimitsThatCutALawAreNamed) {
  const JudgedJob job(basin_job("[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3) +
                                    "[[sea.change]]\nkind = \"cos2s\"\ns = 4\n"
                                    "angle = \"30 deg\"\nseed = 2\n",
                                "600 s"));
  EXPECT_NEAR(job.asked("spread"), std::sqrt(2.0 / 5), 1e-6);
  EXPECT_TRUE(job.look("spread"));
}

TEST(JudgeSea, AFocusedGroupHasItsCrest) {
  const JudgedJob job(
      flume_job("[[sea]]\nholds = { x = \"10 m\", t = \"32 s\" }\n"
                "[[sea.wave]]\nkind = \"focused\"\ncrest = \"120 mm\"\n"
                "tp = \"1.6 s\"\n"));
  EXPECT_NEAR(job.asked("crest"), 0.12, 1e-12);
  EXPECT_NEAR(job.made("crest"), 0.12, 1e-4);
  EXPECT_TRUE(job.good("crest"));
  EXPECT_FALSE(job.has("waves_per_run"));
}

TEST(JudgeSea, ACrestThatAChangeMovesIsFound) {
  const JudgedJob job(
      flume_job("[[sea]]\nholds = { x = \"10 m\", t = \"32 s\" }\n"
                "[[sea.wave]]\nkind = \"focused\"\ncrest = \"120 mm\"\n"
                "tp = \"1.6 s\"\n[[sea.change]]\nkind = \"PhaseChange\"\n"
                "formula = \"60@deg\"\n"));
  EXPECT_NEAR(job.made("crest"), 0.12 * std::cos(60 * degree), 1e-4);
  EXPECT_TRUE(job.look("crest"));
}

TEST(JudgeSea, AFanIsJudgedByTheWaveInWhichItMeets) {
  // All directions weigh the same, and their amplitudes add up to 20 mm at the sea's position.
  const JudgedJob job(basin_job("[[sea]]\nholds = { x = \"4 m\", y = \"10 m\" }\n" +
                                single("0.5 Hz", "20 mm") +
                                "[[sea.change]]\nkind = \"AngleSweep\"\nformula = \"1\"\n"
                                "delta_angle = \"10 deg\"\n"));
  EXPECT_NEAR(job.made("hs"), 4 * 0.02 / std::sqrt(2), 1e-6);
  EXPECT_TRUE(job.good("hs"));
}

TEST(JudgeSea, StillWaterNeedsNoLook) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.5 Hz", "0 mm")));
  EXPECT_EQ(job.asked("hs"), 0);
  EXPECT_EQ(job.made("hs"), 0);
  EXPECT_EQ(job.judgement.looks, 0);
}

TEST(JudgeSea, FrontsThatAreInfiniteAreNamed) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.5 Hz", "20 mm") + single("1 Hz", "20 mm") +
                                "[[sea.change]]\nkind = \"GainAdjust\"\n"
                                "formula = \"1/($[Hz]-0.5)\"\n"),
                      false);
  EXPECT_TRUE(job.look("undefined"));
  EXPECT_EQ(job.made("undefined"), 1);
  EXPECT_NE(job.at("undefined").remark.find("harmonic 32"), std::string::npos);
}

TEST(JudgeSea, ARunOfOneHarmonicIsJudged) {
  SiteText site;
  site.min_freq = 0.4;
  site.max_freq = 0.6;
  const JudgedJob job = judged(site, "[[sea]]\n" + bretschneider("60 mm", "2 s"), "2 s");
  EXPECT_TRUE(job.look("peak_harmonics"));
  EXPECT_GT(job.made("hs"), 0);
}

TEST(JudgeSea, AGroupOfRandomPhasesHasNoCrest) {
  const JudgedJob job(
      flume_job("[[sea]]\n[[sea.wave]]\nkind = \"focused\"\ncrest = \"120 mm\"\n"
                "tp = \"1.6 s\"\n" +
                random_phases(3)));
  EXPECT_FALSE(job.has("crest"));
  EXPECT_TRUE(job.has("waves_per_run"));
}
