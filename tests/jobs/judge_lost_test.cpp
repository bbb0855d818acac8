#include <cmath>

#include "gtest/gtest.h"
#include "jobs/judged_job.h"
#include "support/wave_number.h"

using namespace Testing;

namespace {

// Per cent of the variance, of two amplitudes.
double share(double lost, double made) { return 100 * lost * lost / (lost * lost + made * made); }

}  // namespace

TEST(JudgeLost, TheTailAboveTheBand) {
  const JudgedJob job(flume_job("[[sea]]\n" + bretschneider("60 mm", "0.8 s") + random_phases(3)));
  const auto below = [](double f) { return std::exp(-1.25 * std::pow(1 / 0.8 / f, 4)); };
  EXPECT_NEAR(job.made("cut_above"), 100 * (1 - below(128.5 / 64)), 1e-2);
  EXPECT_TRUE(job.look("cut_above"));
  EXPECT_EQ(job.at("cut_above").quantity, "above 2.00 Hz");
  EXPECT_NE(job.at("hs").remark.find("of the variance lies above 2.00 Hz"), std::string::npos);
  EXPECT_FALSE(job.has("cut_below"));
}

TEST(JudgeLost, TheShareOfARecordAboveTheBand) {
  // 20 mm at 0.5 Hz, and 10 mm at 3 Hz, which the flume does not make.
  std::string record = "time [s],eta [mm]\n";
  for (int i = 0; i < 1024; ++i) {
    const double t = i / 16.0;
    const double eta = 20 * std::cos(2 * M_PI * 0.5 * t) + 10 * std::cos(2 * M_PI * 3 * t);
    record += std::to_string(t) + "," + std::to_string(eta) + "\n";
  }
  const JobFolder folder;
  folder.write("probe.csv", record);
  const JudgedJob job(folder, flume_job("[[sea]]\n[[sea.wave]]\nkind = \"record\"\n"
                                        "file = \"probe.csv\"\n"));
  EXPECT_NEAR(job.made("cut_record"), share(10, 20), 1e-5);
  EXPECT_TRUE(job.look("cut_record"));
  EXPECT_EQ(job.at("cut_record").quantity, "outside the band");
}

TEST(JudgeLost, FrontsOutsideTheAngleLimits) {
  const JudgedJob job(basin_job("[[sea]]\n" + single("0.5 Hz", "30 mm", "20 deg") +
                                single("0.625 Hz", "10 mm", "70 deg")));
  EXPECT_NEAR(job.made("outside_limits"), share(10, 30), 1e-9);
  EXPECT_TRUE(job.look("outside_limits"));
  EXPECT_EQ(job.at("outside_limits").made_text, "10 % (Hs 28 mm)");
  EXPECT_TRUE(job.look("height.2"));
  EXPECT_EQ(job.made("height.2"), 0);
  EXPECT_TRUE(job.good("height.1"));
}

TEST(JudgeLost, HarmonicsAboveHalfTheRate) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.5 Hz", "30 mm") + single("1.5 Hz", "5 mm") +
                                "[drive]\nrate = \"2 Hz\"\n"));
  EXPECT_NEAR(job.made("above_half_rate"), share(5, 30), 1e-9);
  EXPECT_TRUE(job.look("above_half_rate"));
  EXPECT_NE(job.at("above_half_rate").remark.find("a rate of 5 Hz would do"), std::string::npos);
}

TEST(JudgeLost, ObliqueWavesWithheldByWidePaddles) {
  // The basin's paddles are 0.5 m wide.
  const double k = exact_wave_number(2 * M_PI * 1.75, 2.0);
  ASSERT_GT(40 * M_PI / 180, std::asin(M_PI / (k * 0.5)));
  const JudgedJob job(basin_job("[[sea]]\n" + single("0.5 Hz", "30 mm", "20 deg") +
                                single("1.75 Hz", "10 mm", "40 deg")));
  EXPECT_NEAR(job.made("withheld.main"), share(10, 30), 1e-9);
  EXPECT_TRUE(job.look("withheld.main"));
  EXPECT_TRUE(job.look("shortest_wave.main"));
  EXPECT_NEAR(job.made("shortest_wave.main"), 2 * M_PI / k, 1e-4);
}

TEST(JudgeLost, NothingIsReportedWhereNothingIsLost) {
  const JudgedJob job(basin_job("[[sea]]\n" + single("0.5 Hz", "30 mm", "20 deg")));
  for (const Jobs::Finding& finding : job.judgement.findings) EXPECT_NE(finding.group, "lost");
}

TEST(JudgeLost, ASmallShareIsMinor) {
  const JudgedJob job(basin_job("[[sea]]\n" + single("0.5 Hz", "30 mm", "20 deg") +
                                single("0.625 Hz", "1 mm", "70 deg")));
  EXPECT_NEAR(job.made("outside_limits"), share(1, 30), 1e-9);
  EXPECT_TRUE(job.good("outside_limits"));
  EXPECT_TRUE(job.at("outside_limits").minor);
}

TEST(JudgeLost, AShareJustAboveTheLimitIsNotShownAsTheLimit) {
  // 3.075 mm of 30 mm: 1.0397 % of the variance.
  const JudgedJob job(basin_job("[[sea]]\n" + single("0.5 Hz", "30 mm", "20 deg") +
                                single("0.625 Hz", "3.075 mm", "70 deg")));
  EXPECT_TRUE(job.look("outside_limits"));
  EXPECT_EQ(job.at("outside_limits").made_text, "1.04 % (Hs 8.7 mm)");
}
