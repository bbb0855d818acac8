#include "point/point_stats.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "point/two_d.h"
#include "support/test_run.h"

namespace {

using Synthesis::TwoD;
using Testing::BuiltRun;
using Testing::Given;
using Testing::point_params;
using Testing::rate_params;
using Testing::SiteText;
using Testing::thrown;

constexpr double pi = std::numbers::pi;

// The parameters of a point, with what stands in them after the statistics.
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

// Eleven waves of 10 s, no two alike.
Given irregular() {
  return {{7, {0.020, 0.3, 0.1}},
          {9, {0.030, -0.2, 2.0}},
          {11, {0.035, 0.0, -1.0}},
          {13, {0.015, 0.5, 0.4}}};
}

TEST(PointStats, ARegularWaveHasItsHeightAndItsPeriod) {
  PointStats run({{8, {0.04, 0.3, 0.7}}});
  const Base::Params params = run.stats(100.0);
  EXPECT_EQ(names(params),
            (std::vector<std::string>{"Hs", "Ts", "Var", "rate", "reg_h", "reg_t", "x", "y"}));
  EXPECT_NEAR(params.get("reg_t", "s"), 1.25, 1e-4);
  // Crests lie up to half a sample off.
  EXPECT_NEAR(params.get("reg_h", "m"), 0.08, 0.08 * (1 - std::cos(2 * pi * 0.8 * 0.005)));
  EXPECT_NEAR(params.get("Hs", "m"), 2 * std::sqrt(2.0) * 0.04, 1e-12);
  EXPECT_NEAR(params.get("Ts", "s"), 1.25, 1e-12);
  EXPECT_NEAR(params.get("Var", ""), std::sqrt(0.04 / std::sqrt(2.0)), 1e-12);
}

TEST(PointStats, FewerThanSixWavesAreTooFew) {
  EXPECT_EQ(thrown([] {
              PointStats({{5, {0.04, 0.0, 0.0}}}).stats(100.0);
            }),
            "Insufficient zero crossings in time series");
  EXPECT_NEAR(PointStats({{6, {0.04, 0.0, 0.7}}}).stats(100.0).get("reg_t", "s"), 10.0 / 6, 1e-4);
  EXPECT_EQ(thrown([] { PointStats({}).stats(100.0); }),
            "Insufficient zero crossings in time series");
  // Nor has a record without a sample any.
  EXPECT_EQ(thrown([] {
              PointStats({{8, {0.04, 0.0, 0.0}}}).stats(0.01);
            }),
            "Insufficient zero crossings in time series");
}

// The first sample is above 0 and the last below, of `count` waves.
Base::Params stats_across_the_seam(std::uint64_t count) {
  return PointStats({{count, {0.04, 0.0, 0.01 - pi / 2}}}).stats(50.0, 0.0, 0.0);
}

TEST(PointStats, ACrossingFromTheLastSampleToTheFirstIsNotSeen) {
  EXPECT_EQ(thrown([] { stats_across_the_seam(6); }), "Insufficient zero crossings in time series");
  const Base::Params params = stats_across_the_seam(7);
  // The wave of twice the length is left out.
  EXPECT_NEAR(params.get("reg_t", "s"), 10.0 / 7, 1e-4);
  EXPECT_NEAR(params.get("reg_h", "m"), 0.08, 0.08 * (1 - std::cos(2 * pi * 0.7 * 0.01)));
}

struct Height {
  double height;
  double period;
};

// The waves of a record that closes on itself, from up-crossing to up-crossing, by height.
std::vector<Height> waves_of(const std::vector<double>& eta, double dt) {
  const std::size_t n = eta.size();
  const auto sample = [&](std::size_t i) { return i < n ? eta[i] : eta[i - n]; };
  std::vector<std::size_t> ups;
  for (std::size_t i = 0; i < n; ++i) {
    if (sample(i + n - 1) <= 0 && eta[i] > 0) ups.push_back(i);
  }
  const auto instant = [&](std::size_t i) {
    const double before = sample(i + n - 1);
    return (static_cast<double>(i) - eta[i] / (eta[i] - before)) * dt;
  };
  std::vector<Height> waves;
  for (std::size_t w = 0; w < ups.size(); ++w) {
    const bool last = w + 1 == ups.size();
    const std::size_t end = last ? ups[0] + n : ups[w + 1];
    double crest = 0.0;
    double trough = 0.0;
    for (std::size_t i = ups[w]; i < end; ++i) {
      crest = std::max(crest, sample(i));
      trough = std::min(trough, sample(i));
    }
    const double stop = last ? instant(ups[0]) + static_cast<double>(n) * dt : instant(end);
    waves.push_back({crest - trough, stop - instant(ups[w])});
  }
  std::sort(waves.begin(), waves.end(),
            [](const Height& a, const Height& b) { return a.height < b.height; });
  return waves;
}

TEST(PointStats, AnIrregularSeaIsToldByTheWaveAtTwoThirds) {
  PointStats run(irregular());
  const Base::Params params = run.stats(50.0);
  EXPECT_EQ(names(params), (std::vector<std::string>{"Hs", "Ts", "Var", "max_amp", "rate", "sig_h",
                                                     "sig_t", "x", "y"}));
  Base::Params point = point_params(50.0, 3.0, -1.0);
  run.definition.twod_build(point);
  const std::vector<Height> waves = waves_of(run.definition.twod_data(TwoD::time), 0.02);
  ASSERT_GE(waves.size(), 6u);
  const Height& significant = waves[waves.size() * 2 / 3];
  EXPECT_NEAR(params.get("sig_h", "m"), significant.height, 1e-12);
  EXPECT_NEAR(params.get("sig_t", "s"), significant.period, 1e-12);
  EXPECT_NEAR(params.get("max_amp", "m"), waves.back().height, 1e-12);

  double m0 = 0.0;
  double m1 = 0.0;
  for (const auto& [h, front] : irregular()) {
    m0 += front.amp * front.amp / 2;
    m1 += static_cast<double>(h) / 10 * front.amp * front.amp / 2;
  }
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

TEST(PointStats, AllSpecificationsCount) {
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

TEST(PointStats, NothingOfTheLastBuildChanges) {
  PointStats run({{8, {0.04, 0.0, 0.0}}});
  run.stats(100.0);
  for (int type = 0; type < 4; ++type) EXPECT_TRUE(run.definition.twod_data(type).empty());
  Base::Params point = point_params(20.0, 0.0, 0.0);
  run.definition.twod_build(point);
  run.stats(100.0);
  EXPECT_EQ(run.definition.twod_data(TwoD::time).size(), 200u);
}

TEST(PointStats, WhatIsRefusedAtAPointIsRefusedHere) {
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

TEST(PointStats, ParametersThatHoldAResultAreRefused) {
  PointStats run({{8, {0.04, 0.0, 0.0}}});
  Base::Params params = run.stats(100.0);
  EXPECT_EQ(thrown([&] { run.definition.twod_stats(params); }), "\"reg_t\"::Duplicate parameter:");
}

}  // namespace
