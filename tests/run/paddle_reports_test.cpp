// What is reported about signals besides their samples: clipping, huge strokes, failures.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "base/units.h"
#include "support/output.h"
#include "support/test_run.h"
#include "support/thrown.h"

namespace {

using Testing::BankText;
using Testing::BuiltRun;
using Testing::nothing_thrown;
using Testing::printed;
using Testing::rate_params;
using Testing::Site;
using Testing::SiteText;
using Testing::theory_ratio;
using Testing::thrown;
using Testing::wave_number;
using Testing::with_bank;

constexpr double pi = std::numbers::pi;

TEST(PaddleReports, ClippingIsCountedAndLeftInTheSignal) {
  BankText bank;
  bank.machine = "flap";
  bank.units = "deg";
  bank.clip_limit = 1.0;
  BuiltRun run(with_bank(bank), {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(200.0));
  const std::vector<double> clipped = run.signal();
  const double k = wave_number(2.0 * pi * 0.8, 1.0);
  const double peak = 0.04 / theory_ratio(k, 1.0, 1.0, true);
  const double limit = pi / 180.0;
  ASSERT_GT(peak, limit);
  EXPECT_NEAR(*std::max_element(clipped.begin(), clipped.end()), peak, 1e-4 * peak);

  Base::Params stats;
  stats.insert("left over", 1.0, "m");
  stats.add_comment(0, "left over");
  run.definition.paddle_motion_stats(0, stats);
  EXPECT_EQ(stats.comment_size(), 0u);
  ASSERT_EQ(stats.entries().size(), 2u);
  EXPECT_EQ(stats.at("clip_peak_ratio").value, 1.0);  // every half wave is clipped
  EXPECT_NEAR(stats.at("clip_power_ratio").value, 1.0 - limit * limit / (peak * peak), 1e-3);

  // A machine of larger stroke has the same signal and nothing to report.
  bank.clip_limit = 90.0;
  BuiltRun free(with_bank(bank), {{8, {0.04, 0.0, 0.0}}});
  free.definition.paddle_motion_build(rate_params(200.0));
  EXPECT_EQ(free.signal(), clipped);
  free.definition.paddle_motion_stats(0, stats);
  EXPECT_TRUE(stats.entries().empty());
}

TEST(PaddleReports, ClippingIsCountedOverAllPaddlesOfABankAndRestartedByEachBuild) {
  BankText bank;
  bank.clip_limit = 30.0;
  bank.units = "mm";
  const double k = wave_number(2.0 * pi * 0.8, 1.0);
  // Facing at 60 degrees, the second paddle moves about half as much.
  bank.paddle_width = 0.01;
  bank.paddles = {{0.0, 0.0, 0.0}, {0.0, 0.5, pi / 3.0}};
  const double a = 0.04 * theory_ratio(k, 1.0, 1.0, false);
  BuiltRun run(with_bank(bank), {{8, {a, 0.0, 0.0}}});
  for (int build = 0; build < 2; ++build) {
    run.definition.paddle_motion_build(rate_params(200.0));
    Base::Params stats;
    run.definition.paddle_motion_stats(0, stats);
    EXPECT_EQ(stats.at("clip_peak_ratio").value, 0.5);
  }
  run.part.component.fronts[0].second.amp *= 0.1;
  run.definition.run_build();
  run.definition.paddle_motion_build(rate_params(200.0));
  Base::Params stats;
  run.definition.paddle_motion_stats(0, stats);
  EXPECT_TRUE(stats.entries().empty());
}

TEST(PaddleReports, AnEdgeAtTheSurfaceGivesNanSignals) {
  BankText bank;
  bank.machine = "flap";
  bank.units = "rad";
  bank.dimension_type = "ToSurface";
  bank.critical_dimension = 0.0;
  BuiltRun run(with_bank(bank), {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  ASSERT_EQ(run.signal().size(), 200u);
  for (const double sample : run.signal()) EXPECT_TRUE(std::isnan(sample));
  Base::Params stats;
  run.definition.paddle_motion_stats(0, stats);
  EXPECT_TRUE(stats.entries().empty());
}

TEST(PaddleReports, HugeAmplitudesAreWrittenAndTheSignalIsMade) {
  SiteText text;
  BuiltRun run(text, {{8, {1e12, 0.0, 0.0}}});
  const std::string report =
      printed([&] { run.definition.paddle_motion_build(rate_params(20.0)); });
  EXPECT_EQ(report.front(), '(');
  EXPECT_EQ(report.substr(report.size() - 2), "):");
  EXPECT_EQ(report.find('\n'), std::string::npos);
  EXPECT_EQ(run.signal().size(), 200u);
}

TEST(PaddleReports, BanksOutOfRangeOrNotBuiltAreRefused) {
  BuiltRun run(SiteText{}, {{8, {0.04, 0.0, 0.0}}});
  const std::string text = "Bank out of range or paddle_motion not built";
  Base::Params stats;
  stats.insert("kept", 1.0, "m");
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_data(0, 0); }), text);
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_stats(0, stats); }), text);
  EXPECT_TRUE(stats.contains("kept"));
  run.definition.paddle_motion_build(rate_params(20.0));
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_data(1, 0); }), text);
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_stats(1, stats); }), text);
}

TEST(PaddleReports, APaddleOutOfRangeIsRefused) {
  BuiltRun run(SiteText{}, {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_data(0, 1); }),
            "Paddle out of range in paddle_motion_data::bank 0 has no signal of paddle 1");
}

TEST(PaddleReports, TheRateMustBeAFrequencyWithAValue) {
  BuiltRun run(SiteText{}, {});
  const auto build = [&](const Base::Params& in) {
    return thrown([&] { run.definition.paddle_motion_build(in); });
  };
  Base::Params in;
  EXPECT_EQ(build(in), "rate::Not found");
  in.declare("rate", Base::default_units(Base::Category::frequency));
  EXPECT_EQ(build(in), "Invalid value");
  in.clear();
  in.insert("rate", 0.1, "s");
  EXPECT_EQ(build(in), "rate::not convertable");
}

TEST(PaddleReports, ARateWithoutAUsableNumberOfSamplesIsRefused) {
  BuiltRun run(SiteText{}, {});
  for (const auto& [rate, text] : std::vector<std::pair<double, std::string>>{
           {-5.0, "-5"},
           {std::numeric_limits<double>::quiet_NaN(), "nan"},
           {1e300, "1e+300"},
           {1.35e7, "1.35e+07"},
           {std::numeric_limits<double>::infinity(), "inf"}}) {
    const Base::Params params = rate_params(rate);
    EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(params); }),
              "rate::" + text + " Hz gives no usable number of samples in a repeat time of 10 s");
  }
}

TEST(PaddleReports, BeforeAnySetThereIsNoRepeatTime) {
  Site site;
  Synthesis::Definition definition("run", site.context());
  // The repeat time is checked before the rate.
  EXPECT_EQ(thrown([&] { definition.paddle_motion_build(Base::Params()); }),
            "Repeat time zero or less");
}

TEST(PaddleReports, SignalsStayUntilTheyAreBuiltAgain) {
  BuiltRun run(SiteText{}, {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  const std::vector<double> before = run.signal();
  run.part.component.fronts[0].second.amp = 0.08;
  run.definition.run_build();
  EXPECT_EQ(run.signal(), before);
  run.definition.paddle_motion_build(rate_params(20.0));
  for (std::size_t j = 0; j < before.size(); ++j) {
    EXPECT_NEAR(run.signal()[j], 2.0 * before[j], 1e-14);
  }
}

TEST(PaddleReports, BanksBeforeAFailingOneAreComplete) {
  SiteText text;
  text.banks = {BankText{}, BankText{}, BankText{}};
  BuiltRun run(text, {{8, {0.04, 0.0, 0.0}}});
  run.site.context().wavemaker_bank[1].machine().dimension_type.number = 7;
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(20.0)); }),
            "Unsupported critical dimension type found");
  EXPECT_EQ(run.signal(0, 0).size(), 200u);
  for (const std::uint32_t bank : {1u, 2u}) {
    EXPECT_EQ(thrown([&] { run.signal(bank, 0); }),
              "Paddle out of range in paddle_motion_data::bank " + std::to_string(bank) +
                  " has no signal of paddle 0");
  }
}

TEST(PaddleReports, BanksAfterAFailingOneKeepTheirSignals) {
  SiteText text;
  text.banks = {BankText{}, BankText{}, BankText{}};
  BuiltRun run(text, {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  run.site.context().wavemaker_bank[1].machine().dimension_type.number = 7;
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(40.0)); }),
            "Unsupported critical dimension type found");
  EXPECT_EQ(run.signal(0, 0).size(), 400u);
  EXPECT_NE(thrown([&] { run.signal(1, 0); }), nothing_thrown);
  EXPECT_EQ(run.signal(2, 0).size(), 200u);
}

}  // namespace
