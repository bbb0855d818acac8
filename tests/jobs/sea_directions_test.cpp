#include "jobs/sea_directions.h"

#include <cmath>
#include <numeric>

#include "gtest/gtest.h"
#include "jobs/judged_job.h"
#include "support/integral.h"

using namespace Testing;
using Jobs::sector_edge;
using Jobs::sector_of;
using Jobs::Sectors;

namespace {

constexpr double degree = M_PI / 180;

double sum(const Sectors& sectors) { return std::accumulate(sectors.begin(), sectors.end(), 0.0); }

double all_of(const Jobs::SeaDirections& directions) {
  double all = 0;
  for (const Sectors& row : directions.variance) all += sum(row);
  return all;
}

Jobs::SeaDirections directions_of(const JudgedJob& job) { return job.judgement.directions.value(); }

std::string cos2s(const std::string& s, const std::string& angle, const std::string& rest = "") {
  return "[[sea.change]]\nkind = \"cos2s\"\ns = " + s + "\nangle = \"" + angle + "\"\nseed = 2\n" +
         rest;
}

}  // namespace

TEST(SeaDirections, AnObliqueWaveIsInItsSector) {
  const auto directions =
      directions_of(JudgedJob(basin_job("[[sea]]\n" + single("0.5 Hz", "20 mm", "30 deg"))));
  ASSERT_EQ(directions.variance.size(), 1u);
  EXPECT_NEAR(directions.f[0], 31.5 / 64, 1e-12);
  EXPECT_NEAR(directions.f[1], 32.5 / 64, 1e-12);
  EXPECT_NEAR(directions.variance[0][sector_of(30 * degree)], 0.02 * 0.02 / 2, 1e-12);
  EXPECT_NEAR(all_of(directions), 0.02 * 0.02 / 2, 1e-12);
  ASSERT_TRUE(directions.asked);
  EXPECT_NEAR((*directions.asked)[sector_of(30 * degree)], 0.02 * 0.02 / 2, 1e-12);
  EXPECT_NEAR(sum(*directions.asked), 0.02 * 0.02 / 2, 1e-12);
}

TEST(SeaDirections, EachFrequencyHasItsOwn) {
  const auto directions = directions_of(JudgedJob(basin_job(
      "[[sea]]\n" + single("0.5 Hz", "20 mm", "30 deg") + single("1 Hz", "10 mm", "-10 deg"))));
  ASSERT_EQ(directions.variance.size(), 32u);
  ASSERT_EQ(directions.f.size(), 33u);
  EXPECT_NEAR(directions.f.front(), 31.5 / 64, 1e-12);
  EXPECT_NEAR(directions.f.back(), 64.5 / 64, 1e-12);
  for (std::size_t row = 0; row < 32; ++row) {
    EXPECT_LT(directions.f[row], directions.f[row + 1]);
    const double low = row == 0 ? 0.02 * 0.02 / 2 : 0;
    const double high = row == 31 ? 0.01 * 0.01 / 2 : 0;
    EXPECT_NEAR(directions.variance[row][sector_of(30 * degree)], low, 1e-12);
    EXPECT_NEAR(directions.variance[row][sector_of(-10 * degree)], high, 1e-12);
  }
  EXPECT_NEAR((*directions.asked)[sector_of(30 * degree)], 0.02 * 0.02 / 2, 1e-12);
  EXPECT_NEAR((*directions.asked)[sector_of(-10 * degree)], 0.01 * 0.01 / 2, 1e-12);
}

TEST(SeaDirections, HoldTheVarianceOfTheFronts) {
  for (const std::string repeat : {"64 s", "1800 s"}) {
    const JudgedJob job(basin_job(
        "[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3) + cos2s("10", "15 deg"),
        repeat));
    const auto directions = directions_of(job);
    EXPECT_EQ(directions.variance.size(), 32u);
    EXPECT_NEAR(all_of(directions) / job.made("m0"), 1, 3e-6);
  }
}

TEST(SeaDirections, AskedForAreThoseOfTheLaw) {
  const JudgedJob job(basin_job("[[sea]]\n" + bretschneider("60 mm", "1.6 s") + random_phases(3) +
                                cos2s("10", "15 deg")));
  const Sectors asked = directions_of(job).asked.value();
  // Bretschneider between half a harmonic below 0.1 Hz and half a harmonic above 2 Hz; the library
  // integrates each band to a thousandth of its density.
  const auto below = [](double f) { return std::exp(-1.25 * std::pow(1 / (1.6 * f), 4)); };
  const double v = 0.06 * 0.06 / 16 * (below(128.5 / 64) - below(5.5 / 64));
  EXPECT_NEAR(sum(asked) / v, 1, 1e-3);
  const auto law = [](double theta) {
    return std::pow(std::cos(std::remainder(theta - 15 * degree, 2 * M_PI) / 2), 20);
  };
  const double whole = simpson(law, -M_PI, M_PI, 20000);
  for (std::size_t i = 0; i < Jobs::sector_count; ++i) {
    const double share = simpson(law, sector_edge(i), sector_edge(i + 1), 400) / whole;
    EXPECT_NEAR(asked[i] / sum(asked), share, 1e-6) << i;
  }
}

TEST(SeaDirections, AskedForFollowALawThatDependsOnFrequency) {
  // Two waves; Goda's law has its power of 40 at the peak of 0.5 Hz, and 40 * 2^-2.5 at 1 Hz.
  const JudgedJob job(basin_job(
      "[[sea]]\n" + single("0.5 Hz", "20 mm") + single("1 Hz", "10 mm") +
      "[[sea.change]]\nkind = \"goda\"\ns_max = 40\ntp = \"2 s\"\nangle = \"0 deg\"\nseed = 1\n"));
  const Sectors asked = directions_of(job).asked.value();
  const auto share = [](double s, std::size_t i) {
    const auto law = [s](double theta) { return std::pow(std::cos(theta / 2), 2 * s); };
    return simpson(law, sector_edge(i), sector_edge(i + 1), 400) / simpson(law, -M_PI, M_PI, 20000);
  };
  for (std::size_t i = 1; i < Jobs::sector_count; ++i) {
    const double expected = 2e-4 * share(40, i) + 0.5e-4 * share(40 * std::pow(2, -2.5), i);
    EXPECT_NEAR(asked[i], expected, 1e-6 * 2e-4) << i;
  }
}

TEST(SeaDirections, OfSeveralSeasAddUp) {
  const std::string first = "[[sea]]\n" + single("0.5 Hz", "20 mm", "30 deg");
  const std::string second = "[[sea]]\n" + single("0.625 Hz", "10 mm", "30 deg");
  const auto directions = directions_of(JudgedJob(basin_job(first + second)));
  EXPECT_NEAR((*directions.asked)[sector_of(30 * degree)], 2e-4 + 0.5e-4, 1e-12);
  EXPECT_NEAR(all_of(directions), 2e-4 + 0.5e-4, 1e-12);
}

TEST(SeaDirections, AreThoseAtTheReferencePoint) {
  // In 0.5 m of water, where the sea holds, the wave travels at 20 degrees; at the paddles it is
  // more oblique.
  const JudgedJob job = judged(sloping_site(), "[[sea]]\nholds = { x = \"30 m\", y = \"0 m\" }\n" +
                                                   single("0.5 Hz", "10 mm", "20 deg"));
  const auto directions = directions_of(job);
  EXPECT_NEAR(directions.variance[0][sector_of(20 * degree)] / all_of(directions), 1, 1e-12);
  EXPECT_NEAR((*directions.asked)[sector_of(20 * degree)], 0.5e-4, 1e-12);
}

TEST(SeaDirections, AskedForLeaveOutFrontsThatAreInfinite) {
  // The gain is infinite at 0.5 Hz and 2 at 1 Hz.
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.5 Hz", "20 mm") + single("1 Hz", "20 mm") +
                                "[[sea.change]]\nkind = \"GainAdjust\"\n"
                                "formula = \"1/($[Hz]-0.5)\"\n"),
                      false);
  const auto directions = directions_of(job);
  ASSERT_TRUE(directions.asked);
  EXPECT_NEAR(sum(*directions.asked), 0.04 * 0.04 / 2, 1e-12);
  EXPECT_NEAR((*directions.asked)[sector_of(0)], 0.04 * 0.04 / 2, 1e-12);
}

TEST(SeaDirections, OfWavesThatAreNotMadeAreAbsent) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("3 Hz", "20 mm")));
  EXPECT_FALSE(job.judgement.directions.has_value());
}

// A variance beyond all numbers has no band of harmonics.
TEST(SeaDirections, WavesWithoutAFiniteVarianceAreRefused) {
  for (const char* amplitude : {"2e154 m", "1e160 m", "1e250 m"}) {
    const JobFolder folder;
    const auto run = folder.build(flume_job("[[sea]]\n" + single("0.5 Hz", amplitude)));
    try {
      Jobs::judge(*run, nullptr);
      ADD_FAILURE() << amplitude << " is judged";
    } catch (const Jobs::BadJob& bad) {
      EXPECT_EQ(bad.faults.at(0).fault, "the waves cannot be judged: their variance is not finite");
    }
  }
}
