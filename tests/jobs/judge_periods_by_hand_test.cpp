#include <gtest/gtest.h>

#include "jobs/hand_judged.h"

using Jobs::SeaKind;
using Testing::HandJudged;

namespace {

Jobs::Moments at_frequencies(std::initializer_list<double> frequencies) {
  Jobs::Moments moments;
  for (const double f : frequencies) moments.add(f, 1.0);
  return moments;
}

// A random sea whose moments are those of waves of equal variance at those frequencies in Hz.
struct Means : HandJudged {
  Means(const Jobs::Moments& all, const Jobs::Moments& band, const Jobs::Moments& made,
        bool random_amplitudes = false)
      : HandJudged(SeaKind::irregular) {
    judged.all = all;
    judged.band = band;
    judged.made_moments = made;
    judged.random_amplitudes = random_amplitudes;
    judge_periods(judged, findings);
  }
};

// A random sea whose density rises by a factor at 1 Hz only. Made is one harmonic, in Hz.
struct Peak : HandJudged {
  explicit Peak(double made, double band_low = 0.5, double band_high = 3.0,
                bool random_amplitudes = false)
      : HandJudged(SeaKind::irregular) {
    judged.asked.density = [](double f) { return f == 1.0 ? 1.0 : 0.5; };
    judged.peak = Jobs::DensityPeak{1.0, 1.0, 0.0};
    judged.repeat = 10;
    judged.band_low = band_low;
    judged.band_high = band_high;
    judged.random_amplitudes = random_amplitudes;
    judged.made.assign(40, 0.0);
    if (made > 0.0) judged.made[static_cast<std::size_t>(made * 10 + 0.5)] = 1e-4;
    judge_periods(judged, findings);
  }
};

}  // namespace

TEST(JudgePeriods, StillWaterHasNone) {
  const Means still(at_frequencies({1.0}), at_frequencies({1.0}), {});
  EXPECT_TRUE(still.findings.empty());
}

TEST(JudgePeriods, ATailThatIsCutExplainsALongPeriod) {
  // Tm01 is 2 / (1 + 3) s with the tail and 1 s without.
  const auto one = at_frequencies({1.0});
  const Means cut(at_frequencies({1.0, 3.0}), one, one);
  EXPECT_TRUE(cut.look("tm01"));
  EXPECT_EQ(cut.at("tm01").asked, 0.5);
  EXPECT_EQ(cut.at("tm01").made, 1.0);
  EXPECT_EQ(cut.at("tm01").remark,
            "the tail of the spectrum is cut: in the band, 1.00 s is asked for");
}

TEST(JudgePeriods, WavesThatAreLostOrRandomExplainAPeriod) {
  const auto both = at_frequencies({1.0, 3.0});
  const Means lost(both, both, at_frequencies({1.0}));
  EXPECT_TRUE(lost.look("tm01"));
  EXPECT_EQ(lost.at("tm01").remark, "a part of the spectrum is lost; see the losses");
  const Means random(both, both, at_frequencies({1.0}), true);
  EXPECT_TRUE(random.look("tm01"));
  EXPECT_EQ(random.at("tm01").remark, "amplitudes are random; a longer repeat scatters less");
}

TEST(JudgePeriods, ThePeakIsMadeWithinAHarmonic) {
  EXPECT_TRUE(Peak(1.0).good("tp"));
  EXPECT_TRUE(Peak(1.1).good("tp"));
  EXPECT_TRUE(Peak(0.8).look("tp"));
  EXPECT_EQ(Peak(1.2).at("tp").remark, "the waves at the peak are lost; see the losses");
  EXPECT_FALSE(Peak(0.0).has("tp")) << "still water has no peak";
}

TEST(JudgePeriods, APeakOutsideTheBandIsReported) {
  EXPECT_EQ(Peak(1.5, 1.45, 3.0).at("tp").remark,
            "the peak lies outside the band, 1.45 Hz to 3.00 Hz");
  EXPECT_EQ(Peak(0.7, 0.25, 0.75).at("tp").remark,
            "the peak lies outside the band, 0.250 Hz to 0.750 Hz");
}

TEST(JudgePeriods, ThePeakOfRandomAmplitudesHasATenthOfRoom) {
  EXPECT_TRUE(Peak(1.1, 0.5, 3.0, true).good("tp"));
  EXPECT_TRUE(Peak(1.2, 0.5, 3.0, true).look("tp"));
  EXPECT_EQ(Peak(1.2, 0.5, 3.0, true).at("tp").criterion, "within 10 %");
}

TEST(JudgePeriods, AFlatDensityHasNoPeak) {
  for (const double lower : {0.0, 1.05}) {
    HandJudged sea(SeaKind::irregular);
    sea.judged.asked.density = [lower](double f) { return f > lower ? 1.0 : 0.5; };
    sea.judged.peak = Jobs::DensityPeak{1.0, 1.0, 0.0};
    sea.judged.repeat = 10;
    sea.judged.made.assign(40, 1e-4);
    judge_periods(sea.judged, sea.findings);
    EXPECT_FALSE(sea.has("tp")) << lower;
  }
}

TEST(CharacteristicFrequency, IsThatOfAPeakInTheBand) {
  HandJudged sea(SeaKind::irregular);
  sea.judged.made = {0.0, 0.0, 1e-4};
  sea.judged.made_moments = at_frequencies({1.0, 3.0});
  sea.judged.band_low = 0.5;
  sea.judged.band_high = 4.0;
  for (const double peak : {1.5, 0.25, 5.0}) {
    sea.judged.peak = Jobs::DensityPeak{peak, 1.0, 0.1};
    EXPECT_EQ(sea.judged.characteristic_frequency(), peak == 1.5 ? 1.5 : 2.0) << peak;
  }
}
