#include "jobs/sea_spectrum.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "gtest/gtest.h"
#include "jobs/judged_job.h"
#include "support/integral.h"

using namespace Testing;

namespace {

// Bretschneider: the variance between two frequencies in closed form.
double variance(double hs, double fp, double low, double high) {
  const auto part = [&](double f) { return std::exp(-1.25 * std::pow(fp / f, 4)); };
  return hs * hs / 16 * (part(high) - part(low));
}

struct Chart {
  explicit Chart(const JudgedJob& job, double repeat)
      : spectrum(job.judgement.spectrum.value()),
        width(static_cast<double>(spectrum.harmonics) / repeat) {}

  double low(std::size_t band) const { return spectrum.f[band] - width / 2; }
  double high(std::size_t band) const { return spectrum.f[band] + width / 2; }
  double area(const std::vector<double>& density) const {
    return std::accumulate(density.begin(), density.end(), 0.0) * width;
  }

  Jobs::SeaSpectrum spectrum;
  double width;
};

const std::string storm = "[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3);

}  // namespace

TEST(SeaSpectrum, EachBandHasTheMeanOfTheDensityAskedFor) {
  const Chart chart(JudgedJob(flume_job(storm)), 64);
  ASSERT_EQ(chart.spectrum.asked.size(), chart.spectrum.f.size());
  EXPECT_EQ(chart.spectrum.harmonics, 1u);
  for (std::size_t b = 0; b < chart.spectrum.f.size(); ++b) {
    const double v = variance(0.06, 1 / 1.6, chart.low(b), chart.high(b));
    EXPECT_NEAR(chart.spectrum.asked[b] * chart.width, v, 1e-6 * v + 1e-16) << chart.spectrum.f[b];
  }
  EXPECT_TRUE(chart.spectrum.lines.empty());
}

TEST(SeaSpectrum, AreasAreTheVariances) {
  const JudgedJob job(flume_job(storm));
  const Chart chart(job, 64);
  const double fp = 1 / 1.6;
  const double v = 0.06 * 0.06 / 16;
  const auto& f = chart.spectrum.f;
  EXPECT_NEAR(
      chart.area(chart.spectrum.asked) / variance(0.06, fp, chart.low(0), chart.high(f.size() - 1)),
      1, 1e-6);
  // At least 99.5 % of what was asked for is shown.
  EXPECT_GE(chart.area(chart.spectrum.asked), 0.995 * v);
  EXPECT_NEAR(chart.area(chart.spectrum.made) / job.made("m0"), 1, 3e-6);
  EXPECT_EQ(chart.spectrum.at.x, 0.0);
}

TEST(SeaSpectrum, ALongRunHasBandsOfHarmonicsWithTheSameAreas) {
  const JudgedJob job(flume_job(storm, "1800 s"));
  const Chart chart(job, 1800);
  EXPECT_GT(chart.spectrum.harmonics, 3u);
  EXPECT_LE(chart.spectrum.f.size(), 500u);
  EXPECT_GT(chart.spectrum.f.size(), 250u);
  EXPECT_NEAR(chart.area(chart.spectrum.made) / job.made("m0"), 1, 3e-6);
  EXPECT_GE(chart.area(chart.spectrum.asked), 0.995 * 0.06 * 0.06 / 16);
  for (std::size_t b = 0; b < chart.spectrum.f.size(); ++b) {
    const double v = variance(0.06, 1 / 1.6, chart.low(b), chart.high(b));
    EXPECT_NEAR(chart.spectrum.asked[b] * chart.width, v, 1e-6 * v + 1e-16) << chart.spectrum.f[b];
  }
}

TEST(SeaSpectrum, ShowsWhatWasAskedForBeyondTheBand) {
  // The flume ends at 2 Hz. A sea of 0.6 s has its peak at 1.67 Hz and a third of its variance
  // above 2 Hz.
  const JudgedJob job(flume_job("[[sea]]\n" + bretschneider("20 mm", "0.6 s") + random_phases(3)));
  const Chart chart(job, 64);
  const double end = chart.high(chart.spectrum.f.size() - 1);
  EXPECT_NEAR(end, 6.0, 0.1);  // three times 2 Hz
  EXPECT_NEAR(chart.area(chart.spectrum.asked) / variance(0.02, 1 / 0.6, chart.low(0), end), 1,
              1e-6);
  EXPECT_NEAR(chart.area(chart.spectrum.made) / job.made("m0"), 1, 3e-6);
  for (std::size_t b = 0; b < chart.spectrum.f.size(); ++b) {
    if (chart.low(b) < 2.02) continue;
    EXPECT_EQ(chart.spectrum.made[b], 0.0) << chart.spectrum.f[b];
  }
}

TEST(SeaSpectrum, ANarrowSeaIsShownClosely) {
  // Seven deviations about 0.625 Hz hold all of it.
  const Chart chart(
      JudgedJob(flume_job("[[sea]]\n[[sea.wave]]\nkind = \"gaussian_swell\"\nhs = \"40 mm\"\n"
                          "tp = \"1.6 s\"\nwidth = \"0.02 Hz\"\n" +
                          random_phases(3))),
      64);
  EXPECT_GT(chart.low(0), 0.5 * (0.625 - 0.16));
  EXPECT_LT(chart.high(chart.spectrum.f.size() - 1), 1.2 * (0.625 + 0.16));
  EXPECT_NEAR(chart.area(chart.spectrum.asked) / (0.04 * 0.04 / 16), 1, 1e-5);
}

TEST(SeaSpectrum, ARegularWaveIsOneLine) {
  const Chart chart(JudgedJob(flume_job("[[sea]]\n" + single("0.5 Hz", "-20 mm"))), 64);
  ASSERT_EQ(chart.spectrum.lines.size(), 1u);
  EXPECT_NEAR(chart.spectrum.lines[0].frequency, 0.5, 1e-12);
  EXPECT_NEAR(chart.spectrum.lines[0].amplitude, 0.02, 1e-12);
  EXPECT_TRUE(chart.spectrum.asked.empty());
  EXPECT_NEAR(chart.low(0), 0.25, 1.0 / 64);
  EXPECT_NEAR(chart.high(chart.spectrum.f.size() - 1), 0.6, 1.5 / 64);
  EXPECT_NEAR(chart.area(chart.spectrum.made), 0.02 * 0.02 / 2, 1e-12);
  const auto made = std::max_element(chart.spectrum.made.begin(), chart.spectrum.made.end());
  EXPECT_NEAR(chart.spectrum.f[made - chart.spectrum.made.begin()], 0.5, 1e-12);
}

TEST(SeaSpectrum, AWaveThatIsNotMadeIsStillShown) {
  const Chart chart(JudgedJob(flume_job("[[sea]]\n" + single("3 Hz", "20 mm"))), 64);
  ASSERT_EQ(chart.spectrum.lines.size(), 1u);
  EXPECT_GT(chart.high(chart.spectrum.f.size() - 1), 3.0);
  EXPECT_EQ(chart.area(chart.spectrum.made), 0.0);
}

TEST(SeaSpectrum, OfManyWavesKeepsTheHighest) {
  const JobFolder folder;
  // 250 waves, the first 50 of them the lowest.
  std::string fronts = "f [Hz],a [mm]\n";
  for (int i = 0; i < 250; ++i) {
    fronts += std::to_string(16.0 / 64 + i / 256.0) + "," + (i < 50 ? "0.1" : "1") + "\n";
  }
  folder.write("fronts.csv", fronts);
  const JudgedJob job(
      folder,
      flume_job("[[sea]]\n[[sea.wave]]\nkind = \"fronts\"\nfile = \"fronts.csv\"\n", "256 s"));
  const auto& lines = job.judgement.spectrum.value().lines;
  ASSERT_EQ(lines.size(), 200u);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_NEAR(lines[i].frequency, 0.25 + static_cast<double>(i + 50) / 256, 1e-6);
    EXPECT_NEAR(lines[i].amplitude, 1e-3, 1e-12);
  }
}

TEST(SeaSpectrum, StillWaterHasNone) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.5 Hz", "0 mm")));
  EXPECT_FALSE(job.judgement.spectrum.has_value());
}

TEST(SeaSpectrum, IsThatOfTheReferencePoint) {
  // The second sea holds in 0.5 m of water; the spectrum is that at the first, in 1 m. In the same
  // depth both ask for the same.
  const std::string sea = bretschneider("60 mm", "1.6 s");
  const std::string first = "[[sea]]\nholds = { x = \"2 m\", y = \"1 m\" }\n" + sea;
  const std::string second = "[[sea]]\nholds = { x = \"30 m\", y = \"0 m\" }\n" + sea;
  const JudgedJob job =
      judged(sloping_site(), first + random_phases(1) + second + random_phases(2));
  const Chart chart(job, 64);
  EXPECT_EQ(chart.spectrum.at.x, 2.0);
  EXPECT_EQ(chart.spectrum.at.y, 1.0);
  // Linear shoaling: the ratio of the group velocities, d omega / d k.
  const auto group_velocity = [](double f, double depth) {
    const double omega = 2 * M_PI * f;
    double k = omega * omega / 9.81;
    for (int i = 0; i < 200; ++i) k = 0.5 * (k + omega * omega / (9.81 * std::tanh(k * depth)));
    return 0.5 * omega / k * (1 + 2 * k * depth / std::sinh(2 * k * depth));
  };
  for (const double f : {0.5, 0.625, 0.8}) {
    const auto b = static_cast<std::size_t>((f - chart.low(0)) / chart.width);
    const double middle = chart.spectrum.f[b];
    const double own = variance(0.06, 1 / 1.6, chart.low(b), chart.high(b)) / chart.width;
    const double ratio = group_velocity(middle, 0.5) / group_velocity(middle, 1.0);
    EXPECT_NEAR(chart.spectrum.asked[b] / (own * (1 + ratio)), 1, 1e-3) << f;
  }
}
