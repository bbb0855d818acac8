#include "point/point_stats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "point/two_d.h"
#include "support/test_run.h"
#include "support/thrown.h"
#include "support/wave_group.h"

namespace {

using Synthesis::TwoD;
using Testing::BuiltRun;
using Testing::Given;
using Testing::point_params;
using Testing::rate_params;
using Testing::SiteText;
using Testing::thrown;
using Testing::WaveGroup;

constexpr double pi = std::numbers::pi;

// A run whose statistics at a point are read back from the parameters.
struct PointStats : BuiltRun {
  explicit PointStats(Given fronts) : BuiltRun(SiteText{}, std::move(fronts)) {}

  Base::Params stats(double rate, double x = 3.0, double y = -1.0) {
    Base::Params params = rate_params(rate);
    params.insert("x", x, "m");
    params.insert("y", y, "m");
    definition.twod_stats(params);
    return params;
  }
};

std::vector<std::string> names(const Base::Params& params) {
  std::vector<std::string> result;
  for (const auto& [name, quantity] : params.entries()) result.push_back(name);
  return result;
}

TEST(PointStats, ARegularWaveIsReportedByHeightAndPeriod) {
  PointStats run({{8, {0.04, 0.3, 0.7}}});
  const Base::Params params = run.stats(100.0);
  EXPECT_EQ(names(params),
            (std::vector<std::string>{"Hs", "Ts", "Var", "rate", "reg_h", "reg_t", "x", "y"}));
  EXPECT_NEAR(params.get("reg_t", "s"), 1.25, 1e-4);
  // A crest may lie half a sample beside the nearest sample.
  EXPECT_NEAR(params.get("reg_h", "m"), 0.08, 0.08 * (1 - std::cos(2 * pi * 0.8 * 0.005)));
  EXPECT_NEAR(params.get("Hs", "m"), 2 * std::sqrt(2.0) * 0.04, 1e-12);
  EXPECT_NEAR(params.get("Ts", "s"), 1.25, 1e-12);
  EXPECT_NEAR(params.get("Var", ""), std::sqrt(0.04 / std::sqrt(2.0)), 1e-12);
}

TEST(PointStats, FewerThanSixWavesAreRefused) {
  EXPECT_EQ(thrown([] {
              PointStats({{5, {0.04, 0.0, 0.0}}}).stats(100.0);
            }),
            "Insufficient zero crossings in time series");
  EXPECT_NEAR(PointStats({{6, {0.04, 0.0, 0.7}}}).stats(100.0).get("reg_t", "s"), 10.0 / 6, 1e-4);
  EXPECT_EQ(thrown([] { PointStats({}).stats(100.0); }),
            "Insufficient zero crossings in time series");
  // A record without samples has no crossings.
  EXPECT_EQ(thrown([] {
              PointStats({{8, {0.04, 0.0, 0.0}}}).stats(0.01);
            }),
            "Insufficient zero crossings in time series");
}

// The first sample is above 0 and the last below, of `count` waves.
Base::Params stats_across_the_seam(std::uint64_t count) {
  return PointStats({{count, {0.04, 0.0, 0.01 - pi / 2}}}).stats(50.0, 0.0, 0.0);
}

TEST(PointStats, ACrossingBetweenTheLastAndTheFirstSampleIsNotCounted) {
  EXPECT_EQ(thrown([] { stats_across_the_seam(6); }), "Insufficient zero crossings in time series");
  const Base::Params params = stats_across_the_seam(7);
  // The wave across the seam is left out.
  EXPECT_NEAR(params.get("reg_t", "s"), 10.0 / 7, 1e-4);
  EXPECT_NEAR(params.get("reg_h", "m"), 0.08, 0.08 * (1 - std::cos(2 * pi * 0.7 * 0.01)));
}

// The significant wave is the one at two thirds of all waves by rising height.
TEST(PointStats, AnIrregularSeaIsReportedByItsSignificantAndItsHighestWave) {
  PointStats run({{5, {WaveGroup::amp, 0.0, WaveGroup::phase_of_5}},
                  {8, {WaveGroup::amp, 0.0, WaveGroup::phase_of_8}}});
  const Base::Params params = run.stats(WaveGroup::rate, 0.0, 0.0);
  EXPECT_EQ(names(params), (std::vector<std::string>{"Hs", "Ts", "Var", "max_amp", "rate", "sig_h",
                                                     "sig_t", "x", "y"}));
  const std::vector<WaveGroup::Wave> waves = WaveGroup::waves();
  ASSERT_EQ(waves.size(), 8u);
  EXPECT_NEAR(params.get("sig_h", "m"), waves[5].height, 1e-12);
  EXPECT_NEAR(params.get("sig_t", "s"), waves[5].period, 2 * WaveGroup::crossing_error);
  EXPECT_NEAR(params.get("max_amp", "m"), waves[7].height, 1e-12);
}

TEST(PointStats, TheMomentsAreThoseOfTheFronts) {
  const Given irregular = {{7, {0.020, 0.3, 0.1}},
                           {9, {0.030, -0.2, 2.0}},
                           {11, {0.035, 0.0, -1.0}},
                           {13, {0.015, 0.5, 0.4}}};
  double m0 = 0.0;
  double m1 = 0.0;
  for (const auto& [h, front] : irregular) {
    m0 += front.amp * front.amp / 2;
    m1 += static_cast<double>(h) / 10 * front.amp * front.amp / 2;
  }
  const Base::Params params = PointStats(irregular).stats(50.0);
  EXPECT_NEAR(params.get("Hs", "m"), 4 * std::sqrt(m0), 1e-12);
  EXPECT_NEAR(params.get("Ts", "s"), m0 / m1, 1e-12);
  EXPECT_NEAR(params.get("Var", ""), std::pow(m0, 0.25), 1e-12);
}

TEST(PointStats, TheRateIsFittedAndWrittenBack) {
  PointStats run({{8, {0.04, 0.0, 0.0}}});
  const Base::Params params = run.stats(5.16);
  EXPECT_EQ(params.get("rate", "Hz"), 5.2);
  EXPECT_EQ(params.comment_size(), 0u);
  Base::Params slow = run.stats(2.44);
  EXPECT_EQ(slow.get("rate", "Hz"), 2.4);
  ASSERT_EQ(slow.comment_size(), 1u);
  EXPECT_EQ(slow.comment(0), "Warning::Poor match");
}

TEST(PointStats, AllSpecificationsAreIncluded) {
  PointStats run({{8, {0.04, 0.0, 0.0}}});
  Testing::Part second({{9, {0.03, 0.0, 0.0}}}, Testing::at(0, 0, 0));
  run.definition.add_specification(second.specification);
  run.definition.run_build();
  EXPECT_NEAR(run.stats(100.0).get("Hs", "m"), 4 * 0.05 / std::sqrt(2.0), 1e-12);
}

TEST(PointStats, TheRateMayBeAnAngularOne) {
  PointStats run({{8, {0.04, 0.0, 0.0}}});
  Base::Params params;
  params.insert("rate", 200.0 * pi, "rad/s");
  params.insert("x", 300.0, "cm");
  params.insert("y", 0.0, "m");
  run.definition.twod_stats(params);
  EXPECT_NEAR(params.get("reg_t", "s"), 1.25, 1e-4);
  EXPECT_NEAR(params.get("Ts", "s"), 1.25, 1e-12);
}

TEST(PointStats, TheLastBuildIsUnchanged) {
  PointStats run({{8, {0.04, 0.0, 0.0}}});
  run.stats(100.0);
  for (int type = 0; type < 4; ++type) EXPECT_TRUE(run.definition.twod_data(type).empty());
  Base::Params point = point_params(20.0, 0.0, 0.0);
  run.definition.twod_build(point);
  run.stats(100.0);
  EXPECT_EQ(run.definition.twod_data(TwoD::time).size(), 200u);
}

TEST(PointStats, RefusesWhatAPointRefuses) {
  PointStats run({{8, {0.04, 0.0, 0.0}}});
  Base::Params params;
  const auto wants = [&](const std::string& text, const char* name, double value,
                         const char* units) {
    EXPECT_EQ(thrown([&] { run.definition.twod_stats(params); }), text);
    params.insert(name, value, units);
  };
  wants("rate::Not found", "rate", 20.0, "Hz");
  wants("x::Not found", "x", 50.0, "m");
  wants("y::Not found", "y", 0.0, "m");
  EXPECT_EQ(thrown([&] { run.definition.twod_stats(params); }),
            "Value x=50 is outside dimensions of tank");
  EXPECT_EQ(thrown([&] { run.stats(-20.0); }),
            "rate::-20 Hz gives no usable number of samples in a repeat time of 10 s");
  Synthesis::Definition unset("unset", run.site.context());
  EXPECT_EQ(thrown([&] { unset.twod_stats(params); }), "Repeat time zero or less");
}

TEST(PointStats, ParametersThatAlreadyHoldAResultAreRefused) {
  PointStats run({{8, {0.04, 0.0, 0.0}}});
  Base::Params params = run.stats(100.0);
  EXPECT_EQ(thrown([&] { run.definition.twod_stats(params); }), "\"reg_t\"::Duplicate parameter:");
}

}  // namespace
