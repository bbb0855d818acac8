#include <cmath>

#include "gtest/gtest.h"
#include "jobs/judged_job.h"
#include "support/integral.h"
#include "support/test_run.h"
#include "support/wave_number.h"

using namespace Testing;

namespace {

constexpr double degree = M_PI / 180;

double k_of(double f, double depth) { return exact_wave_number(2 * M_PI * f, depth); }

std::string holds(const std::string& place) { return "[[sea]]\nholds = " + place + "\n"; }

// 0.7 m of water at the paddles, and 0.2 m from x = 15 on.
SiteText beach() {
  SiteText site;
  site.depths = {"0.7@m", "0.7-($[m]-5)*0.05@m", "0.2@m"};
  site.breaks = {5.0, 15.0};
  return site;
}

}  // namespace

TEST(JudgeWaves, AShortRunHasFewWaves) {
  const JudgedJob job(flume_job("[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3)));
  const auto part = [](int n) {
    const auto f_n = [n](double f) {
      const double x = 1 / 1.6 / f;
      return std::pow(f, n - 5) * std::exp(-1.25 * std::pow(x, 4));
    };
    return simpson(f_n, 5.5 / 64, 128.5 / 64, 4000);
  };
  const double tm02 = std::sqrt(part(0) / part(2));
  EXPECT_NEAR(job.made("waves_per_run") / (64 / tm02), 1, 1e-3);
  EXPECT_TRUE(job.look("waves_per_run"));
  const double enough = std::ceil(500 * tm02 / 10) * 10;  // two digits
  EXPECT_EQ(job.at("waves_per_run").remark,
            "repeat of " + std::to_string(static_cast<int>(enough)) + " s would do");
}

TEST(JudgeWaves, ANarrowPeakNeedsALongRun) {
  const std::string swell =
      "[[sea]]\n[[sea.wave]]\nkind = \"gaussian_swell\"\nhs = \"40 mm\"\ntp = \"1.6 s\"\n"
      "width = \"0.01 Hz\"\n" +
      random_phases(3);
  // A Gaussian of that standard deviation is above half of its maximum over 2 sqrt(2 ln 2) of it.
  const double width = 2 * std::sqrt(2 * std::log(2)) * 0.01;
  const JudgedJob job(flume_job(swell));
  EXPECT_NEAR(job.made("peak_harmonics") / (width * 64), 1, 1e-3);
  EXPECT_TRUE(job.look("peak_harmonics"));
  EXPECT_TRUE(JudgedJob(flume_job(swell, "256 s")).good("peak_harmonics"));
}

TEST(JudgeWaves, SteepnessIsComparedWithMichesLimit) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("1 Hz", "40 mm")));
  const double k = k_of(1, 0.7);
  EXPECT_NEAR(job.made("steepness"), 0.08 * k / (2 * M_PI), 1e-5);
  EXPECT_TRUE(job.good("steepness"));
  const double limit = 0.142 * std::tanh(k * 0.7);
  char text[32];
  std::snprintf(text, sizeof text, "Miche %.2f", limit);
  EXPECT_EQ(job.at("steepness").criterion, text);
  const double too_high = 1.1 * limit * 2 * M_PI / k / 2;
  const JudgedJob breaking(
      flume_job("[[sea]]\n" + single("1 Hz", std::to_string(1000 * too_high) + " mm")));
  EXPECT_TRUE(breaking.look("steepness"));
}

TEST(JudgeWaves, HeightDepthAndUrsellNumber) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.25 Hz", "40 mm")));
  const double k = k_of(0.25, 0.7);
  const double length = 2 * M_PI / k;
  EXPECT_NEAR(job.made("relative_depth"), k * 0.7, 1e-4);
  EXPECT_NEAR(job.made("height_to_depth"), 0.08 / 0.7, 1e-4);
  EXPECT_TRUE(job.good("height_to_depth"));
  const JudgedJob high(flume_job("[[sea]]\n" + single("0.25 Hz", "200 mm")));
  EXPECT_TRUE(high.look("height_to_depth"));  // 0.4 m in 0.7 m is above 0.55
  EXPECT_NEAR(job.made("ursell") / (0.08 * length * length / std::pow(0.7, 3)), 1, 1e-3);
  EXPECT_TRUE(job.look("ursell"));
}

TEST(JudgeWaves, TheUrsellNumberIsThatOfTheShallowestPoint) {
  const JudgedJob job =
      judged(beach(), "[[sea]]\n" + single("0.5 Hz", "10 mm") +
                          "[[point]]\nname = \"toe\"\nx = \"20 m\"\ny = \"0 m\"\n");
  const auto flux = [](double depth) {
    const double k = k_of(0.5, depth);
    return (1 + 2 * k * depth / std::sinh(2 * k * depth)) / k;
  };
  const double height = 0.02 * std::sqrt(flux(0.7) / flux(0.2));
  const double length = 2 * M_PI / k_of(0.5, 0.2);
  EXPECT_NEAR(job.made("ursell") / (height * length * length / std::pow(0.2, 3)), 1, 1e-3);
  EXPECT_NE(job.at("ursell").remark.find("at toe"), std::string::npos);
}

// The errors that docs/from-wave-to-paddle.md states for this wave.
TEST(JudgeWaves, ObliqueWavesOverASlopeArriveTooLow) {
  for (const double angle : {20.0, 25.0}) {
    const JudgedJob job = judged(
        beach(),
        holds("{ x = \"20 m\" }") + single("0.45 Hz", "10 mm", std::to_string(angle) + " deg"),
        "60 s");
    const double there = angle * degree;
    const double paddles = std::asin(std::sin(there) * k_of(0.45, 0.2) / k_of(0.45, 0.7));
    const double error = 100 * (std::sqrt(std::cos(paddles) / std::cos(there)) - 1);
    EXPECT_NEAR(error, angle == 20.0 ? -7.5 : -13.5, 0.05);
    EXPECT_NEAR(job.made("refraction"), error, 0.01);
    EXPECT_TRUE(job.look("refraction"));
    EXPECT_FALSE(job.at("refraction").minor);
  }
}

TEST(JudgeWaves, ASmallErrorOfObliqueWavesIsMinor) {
  const JudgedJob job =
      judged(beach(), holds("{ x = \"20 m\" }") + single("0.45 Hz", "10 mm", "8 deg"), "60 s");
  const double there = 8 * degree;
  const double paddles = std::asin(std::sin(there) * k_of(0.45, 0.2) / k_of(0.45, 0.7));
  EXPECT_NEAR(job.made("refraction"), 100 * (std::sqrt(std::cos(paddles) / std::cos(there)) - 1),
              0.01);
  EXPECT_TRUE(job.good("refraction"));
  EXPECT_TRUE(job.at("refraction").minor);
}

TEST(JudgeWaves, NoRefractionIsReportedInConstantDepth) {
  const JudgedJob job(judged(SiteText(), "[[sea]]\n" + single("0.5 Hz", "10 mm", "30 deg")));
  EXPECT_FALSE(job.has("refraction"));
}

TEST(JudgeWaves, AFootBelowTheBedMakesLowWaves) {
  SiteText site;
  site.depths = {"0.7@m"};
  site.banks[0].critical_dimension = -0.1;
  const JudgedJob job = judged(site, "[[sea]]\n" + single("0.5 Hz", "10 mm"));
  const double k = k_of(0.5, 0.7);
  const double low = 1 - theory_ratio(k, 0.7, 0.7, false) / theory_ratio(k, 0.7, 0.8, false);
  EXPECT_NEAR(job.made("below_bed.bank"), -100 * low, 1e-2);
  EXPECT_TRUE(job.look("below_bed.bank"));
  EXPECT_FALSE(judged(SiteText(), "[[sea]]\n" + single("0.5 Hz", "10 mm")).has("below_bed.bank"));
}

TEST(JudgeWaves, AHingeBelowTheBedMakesLowWaves) {
  SiteText site;
  site.depths = {"0.7@m"};
  site.banks[0].machine = "flap";
  site.banks[0].units = "rad";
  site.banks[0].critical_dimension = -0.1;
  const JudgedJob job = judged(site, "[[sea]]\n" + single("0.5 Hz", "10 mm"));
  // The flap's shape z + 0.8 reaches down to the bed only.
  const double k = k_of(0.5, 0.7);
  const double kd = 0.7 * k;
  const double above_bed = Testing::simpson(
      [&](double z) { return (z + 0.8) * std::cosh(k * (z + 0.7)); }, -0.7, 0.0, 1000);
  const double ratio = 2 * std::sinh(kd) / (std::sinh(kd) * std::cosh(kd) + kd) * k * above_bed;
  const double low = 1 - ratio / theory_ratio(k, 0.7, 0.8, true);
  EXPECT_NEAR(job.made("below_bed.bank"), -100 * low, 1e-2);
  EXPECT_EQ(job.at("below_bed.bank").quantity, "hinge below the bed");
}

TEST(JudgeWaves, AFootJustBelowTheBedIsMinor) {
  SiteText site;
  site.banks[0].critical_dimension = -0.001;
  site.banks.push_back(site.banks[0]);
  const JudgedJob job = judged(site, "[[sea]]\n" + single("0.5 Hz", "10 mm"));
  EXPECT_TRUE(job.good("below_bed.bank"));
  EXPECT_EQ(job.at("below_bed.bank").quantity, "foot below the bed, bank");
  EXPECT_EQ(job.at("below_bed.bank").remark.find("a gain"), std::string::npos);
}

// The water at the bed is still: e^-789 of the motion at the surface.
TEST(JudgeWaves, WavesFarTooShortForTheirDepthHaveNoErrorOfTheFoot) {
  SiteText site;
  site.max_freq = 20;
  site.base_rate = 100;
  site.banks[0].critical_dimension = -0.1;
  EXPECT_FALSE(judged(site, "[[sea]]\n" + single("14 Hz", "0.1 mm"), "8 s").has("below_bed.bank"));
}
