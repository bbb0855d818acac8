// Findings about a run that is filled by hand, such as one exactly at a limit.
#include <gtest/gtest.h>

#include <cmath>

#include "jobs/judge_parts.h"

namespace {

Jobs::Finding judged(const std::string& key, double repeat) {
  Jobs::Run run;
  Jobs::JudgedRun judged(run, nullptr);
  judged.asked.kind = Jobs::SeaKind::irregular;
  judged.repeat = repeat;
  judged.made_moments.add(1.0, 0.25);  // periods of 1 s
  judged.peak.emplace();
  judged.peak->width = 0.125;
  Jobs::Findings findings;
  judge_statistics(judged, findings);
  for (const Jobs::Finding& finding : findings) {
    if (finding.key == key) return finding;
  }
  ADD_FAILURE() << "no finding " << key;
  return {};
}

}  // namespace

TEST(JudgeStatistics, FiveHundredWavesAreEnough) {
  EXPECT_EQ(judged("waves_per_run", 500.0).verdict, Jobs::Verdict::good);
  EXPECT_EQ(judged("waves_per_run", 500.0).made, 500.0);
  EXPECT_EQ(judged("waves_per_run", 500.0).remark, "");
  EXPECT_EQ(judged("waves_per_run", 499.0).verdict, Jobs::Verdict::look);
  EXPECT_EQ(judged("waves_per_run", 499.0).remark, "repeat of 500 s would do");
}

TEST(JudgeStatistics, FiveHarmonicsInThePeakAreEnough) {
  EXPECT_EQ(judged("peak_harmonics", 40.0).verdict, Jobs::Verdict::good);
  EXPECT_EQ(judged("peak_harmonics", 40.0).made, 5.0);
  EXPECT_EQ(judged("peak_harmonics", 39.0).verdict, Jobs::Verdict::look);
  EXPECT_EQ(judged("peak_harmonics", 39.0).remark, "repeat of 40 s would draw its shape");
}

TEST(JudgeDirections, DrawnOnesScatterAroundTheirLaw) {
  Jobs::Run run;
  Jobs::JudgedRun judged(run, nullptr);
  judged.spread_by_law = true;
  judged.fates.asked_directions.add(0.0, 1.0);
  // Four equal waves 1.5 deg from the law: the mean scatters by a half of their spread.
  const double middle = 1.5 * M_PI / 180;
  for (const double side : {-0.1, 0.1, -0.1, 0.1}) {
    judged.fates.made_directions.add(middle + side, 1.0);
  }
  Jobs::Findings findings;
  judge_directions(judged, findings);
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(findings[0].key, "direction");
  EXPECT_EQ(findings[0].verdict, Jobs::Verdict::good);
  // sqrt(2 (1 - cos 0.1)) / 2 = 0.04998 rad.
  EXPECT_EQ(findings[0].remark, "drawn for 4 waves that matter, which scatter the mean by 2.9 deg");
}

TEST(JudgeStatistics, OnlySpectraHaveAPeak) {
  Jobs::Run run;
  Jobs::JudgedRun lines(run, nullptr);
  lines.asked.kind = Jobs::SeaKind::lines;
  lines.peak.emplace();
  Jobs::Findings findings;
  judge_statistics(lines, findings);
  EXPECT_TRUE(findings.empty());
}

TEST(JudgeStatistics, NoRepeatDrawsAPeakWithoutAWidth) {
  Jobs::Run run;
  Jobs::JudgedRun judged(run, nullptr);
  judged.asked.kind = Jobs::SeaKind::group;
  judged.repeat = 64;
  judged.peak.emplace();
  Jobs::Findings findings;
  judge_statistics(judged, findings);
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(findings[0].verdict, Jobs::Verdict::look);
  EXPECT_EQ(findings[0].remark, "within half of the greatest density");
}
