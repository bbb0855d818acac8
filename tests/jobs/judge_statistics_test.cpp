// Whether a run is long and fine enough, exactly at the limits.
#include <gtest/gtest.h>

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
