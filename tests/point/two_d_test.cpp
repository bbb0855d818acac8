#include "point/two_d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <numeric>
#include <vector>

#include "support/test_run.h"
#include "support/test_surface.h"

namespace {

using Synthesis::TwoD;
using Testing::BuiltRun;
using Testing::Given;
using Testing::point_params;
using Testing::SiteText;
using Testing::sloping_site;
using Testing::wave_number;

constexpr double pi = std::numbers::pi;

// A run of 10 s, and its results at a point.
struct PointRun : BuiltRun {
  explicit PointRun(Given fronts) : BuiltRun(SiteText{}, std::move(fronts)) {}

  Base::Params build(Base::Params params) {
    definition.twod_build(params);
    return params;
  }
  const std::vector<double>& time() { return definition.twod_data(TwoD::time); }
  const std::vector<double>& spectrum() { return definition.twod_data(TwoD::spectrum); }
  const std::vector<double>& variance() { return definition.twod_data(TwoD::variance); }
  const std::vector<double>& direction() { return definition.twod_data(TwoD::direction); }
};

// The shares of m sectors for a front of that direction.
std::vector<double> shares(double angle, int m) {
  PointRun run({{8, {0.04, angle, 0.0}}});
  run.build(point_params(20.0, 0.0, 0.0, 2 * pi / m));
  return run.direction();
}

std::vector<double> all_in(std::size_t sector, std::size_t m) {
  std::vector<double> result(m);
  result[sector] = 1.0;
  return result;
}

TEST(TwoD, TheResultsAreReadByNumber) {
  PointRun run({{8, {0.04, 0.0, 0.0}}});
  run.build(point_params(20.0, 0.0, 0.0, 2 * pi / 12));
  EXPECT_EQ(run.definition.twod_data(0).size(), 200u);
  EXPECT_EQ(run.definition.twod_data(1).size(), 101u);
  EXPECT_EQ(run.definition.twod_data(2).size(), 101u);
  EXPECT_EQ(run.definition.twod_data(3).size(), 12u);
  EXPECT_NEAR(run.definition.twod_data(1)[8], 0.04, 1e-15);
  EXPECT_NEAR(run.definition.twod_data(2)[8], 0.04 * 0.04 / 2 * 10.0, 1e-15);
}

TEST(TwoD, TheTimeHistoryIsTheSumOfItsWaves) {
  const Given given = {{5, {0.03, 0.0, 0.2}}, {8, {0.04, 0.5, -0.7}}, {8, {0.02, -2.0, 1.0}}};
  PointRun run(given);
  const double x = 11.5;
  const double y = -3.2;
  run.build(point_params(32.0, x, y));
  ASSERT_EQ(run.time().size(), 320u);
  for (std::size_t j = 0; j < run.time().size(); ++j) {
    double eta = 0.0;
    for (const auto& [h, front] : given) {
      const double omega = 2 * pi * static_cast<double>(h) / 10.0;
      const double way = x * std::cos(front.angle) + y * std::sin(front.angle);
      eta += front.amp * std::cos(omega * static_cast<double>(j) / 32.0 + front.phase -
                                  wave_number(omega, 1.0) * way);
    }
    EXPECT_NEAR(run.time()[j], eta, 1e-12) << j;
  }
}

TEST(TwoD, OverASlopeTheTimeHistoryIsTheSumOfTheRefractedWaves) {
  const Given given = {{5, {0.03, 0.0, 0.2}}, {8, {0.04, 0.5, -0.7}}, {11, {0.02, -0.8, 1.0}}};
  BuiltRun run(sloping_site(), given);
  for (const double x : {0.0, 3.0, 5.0, 11.5, 30.0}) {
    Base::Params params = point_params(32.0, x, 2.5);
    run.definition.twod_build(params);
    const std::vector<double>& eta = run.definition.twod_data(TwoD::time);
    const auto arrivals =
        Testing::arrivals(run.site.context().tank_config(), run.definition.fronts(true), x);
    for (std::size_t j = 0; j < eta.size(); ++j) {
      EXPECT_NEAR(eta[j], Testing::surface(arrivals, 2.5, static_cast<double>(j) / 32.0), 1e-12)
          << x << " " << j;
    }
  }
}

TEST(TwoD, TheVarianceIsThatOfTheTimeHistory) {
  PointRun run({{5, {0.03, 0.0, 0.2}}, {8, {0.04, 0.5, -0.7}}, {11, {0.02, -2.0, 1.0}}});
  run.build(point_params(32.0, 4.0, 1.0));
  double square = 0.0;
  for (const double eta : run.time()) square += eta * eta / 320;
  const double total =
      std::accumulate(run.variance().begin(), run.variance().end(), 0.0) / 10.0;  // times df
  EXPECT_NEAR(total, square, 1e-15);
  EXPECT_NEAR(run.variance()[11], 0.02 * 0.02 / 2 * 10.0, 1e-15);
  EXPECT_NEAR(run.spectrum()[5], 0.03, 1e-15);
  EXPECT_EQ(run.spectrum()[7], 0.0);
}

TEST(TwoD, TheRateIsFittedAndWrittenBack) {
  PointRun run({});
  const auto fitted = [&](double rate) { return run.build(point_params(rate, 0.0, 0.0)); };
  Base::Params same = fitted(20.0);
  EXPECT_EQ(same.get("rate", "Hz"), 20.0);
  EXPECT_EQ(same.comment_size(), 0u);
  Base::Params near = fitted(20.04);
  EXPECT_EQ(near.get("rate", "Hz"), 20.0);
  EXPECT_EQ(near.comment_size(), 0u);
  EXPECT_EQ(run.time().size(), 200u);
  Base::Params far = fitted(1.26);
  EXPECT_EQ(far.get("rate", "Hz"), 1.3);
  ASSERT_EQ(far.comment_size(), 1u);
  EXPECT_EQ(far.comment(0), "Warning::Poor match");
  EXPECT_EQ(run.time().size(), 13u);

  // In the host's units.
  Base::Params angular = point_params(20.0, 0.0, 0.0);
  angular.at("rate") = Base::Quantity(40 * pi, Base::resolve_units("rad/s"), {});
  angular = run.build(angular);
  EXPECT_EQ(run.time().size(), 200u);
  EXPECT_NEAR(angular.get("rate", "Hz"), 20.0, 1e-12);
  EXPECT_NEAR(angular.at("rate").value, 40 * pi, 1e-12);
}

TEST(TwoD, TheSectorIsFittedToTheCircleWithoutAComment) {
  PointRun run({});
  Base::Params params = point_params(20.0, 0.0, 0.0);
  params.at("delta_angle") = Base::Quantity(50.0, Base::resolve_units("deg"), {});
  params = run.build(params);
  EXPECT_EQ(run.direction().size(), 7u);  // 7.2 of them would fit
  EXPECT_NEAR(params.get("delta_angle", "rad"), 2 * pi / 7, 1e-12);
  EXPECT_NEAR(params.at("delta_angle").value, 360.0 / 7, 1e-4);  // a rounded degree
  EXPECT_EQ(params.comment_size(), 0u);
  params.at("delta_angle").value = 47.0;  // 7.66
  params = run.build(params);
  EXPECT_EQ(run.direction().size(), 8u);
}

TEST(TwoD, ASectorIsCentredOnAMultipleOfItsWidth) {
  const double step = 2 * pi / 12;
  EXPECT_EQ(shares(0.0, 12), all_in(0, 12));
  EXPECT_EQ(shares(0.49 * step, 12), all_in(0, 12));
  EXPECT_EQ(shares(0.51 * step, 12), all_in(1, 12));
  EXPECT_EQ(shares(3 * step, 12), all_in(3, 12));
  EXPECT_EQ(shares(pi, 12), all_in(6, 12));
  EXPECT_EQ(shares(-0.1 * step, 12), all_in(0, 12));
  EXPECT_EQ(shares(-step, 12), all_in(11, 12));
  EXPECT_EQ(shares(-5 * step, 12), all_in(7, 12));
  EXPECT_EQ(shares(0.3, 1), all_in(0, 1));
}

TEST(TwoD, EachSectorHasItsShareOfTheVariance) {
  PointRun run({{6, {0.03, 0.0, 0.0}}, {8, {0.04, pi / 2, 0.5}}, {10, {0.05, -pi / 2, 1.0}}});
  run.build(point_params(20.0, 9.0, 4.0, pi / 2));
  ASSERT_EQ(run.direction().size(), 4u);
  EXPECT_NEAR(run.direction()[0], 9.0 / 50, 1e-12);
  EXPECT_NEAR(run.direction()[1], 16.0 / 50, 1e-12);
  EXPECT_EQ(run.direction()[2], 0.0);
  EXPECT_NEAR(run.direction()[3], 25.0 / 50, 1e-12);
}

TEST(TwoD, SharesOfATinyVarianceAreNotScaled) {
  const double variance = 4e-4 * 4e-4 / 2 * 10;  // 8e-7 m2s
  PointRun quiet({{8, {4e-4, 0.0, 0.0}}});
  quiet.build(point_params(20.0, 0.0, 0.0, pi / 2));
  EXPECT_NEAR(quiet.direction()[0], variance, 1e-18);
  PointRun louder({{8, {5e-4, 0.0, 0.0}}});  // 1.25e-6
  louder.build(point_params(20.0, 0.0, 0.0, pi / 2));
  EXPECT_NEAR(louder.direction()[0], 1.0, 1e-15);
}

TEST(TwoD, ANodeAddsNothingToAnySector) {
  PointRun run({{8, {0.04, 0.0, 0.7}}, {8, {-0.04, pi, 0.7}}, {9, {0.04, pi, 0.0}}});
  run.build(point_params(20.0, 0.0, 0.0, pi / 2));
  EXPECT_EQ(run.spectrum()[8], 0.0);
  EXPECT_EQ(run.direction(), all_in(2, 4));
}

TEST(TwoD, WithoutFrontsThereIsStillWaterEverywhere) {
  PointRun run({});
  for (const double x : {0.0, 12.0, 1e6}) {
    run.build(point_params(20.0, x, 0.0, pi / 2));
    EXPECT_EQ(run.time(), std::vector<double>(200));
    EXPECT_EQ(run.spectrum(), std::vector<double>(101));
    EXPECT_EQ(run.variance(), std::vector<double>(101));
    EXPECT_EQ(run.direction(), std::vector<double>(4));
  }
}

TEST(TwoD, ARateTooLowCutsTheTopHarmonics) {
  PointRun run({{5, {0.03, 0.0, 0.0}}, {11, {0.04, 0.0, 0.0}}});
  run.build(point_params(2.0, 0.0, 0.0));
  ASSERT_EQ(run.time().size(), 20u);
  ASSERT_EQ(run.spectrum().size(), 11u);
  for (std::size_t j = 0; j < 20; ++j) {
    EXPECT_NEAR(run.time()[j], 0.03 * std::cos(2 * pi * 5 * static_cast<double>(j) / 20), 1e-15);
  }
}

TEST(TwoD, ARateTooLowForASampleGivesEmptyResults) {
  PointRun run({{5, {0.03, 0.0, 0.0}}});
  Base::Params params = run.build(point_params(0.04, 0.0, 0.0, pi / 2));
  EXPECT_EQ(params.get("rate", "Hz"), 0.0);
  EXPECT_EQ(params.comment(0), "Warning::Poor match");
  EXPECT_TRUE(run.time().empty());
  EXPECT_EQ(run.spectrum(), std::vector<double>(1));
  EXPECT_EQ(run.variance().size(), 1u);
  EXPECT_EQ(run.direction(), std::vector<double>(4));
  // A single sample has only a mean.
  run.build(point_params(0.1, 0.0, 0.0, pi / 2));
  EXPECT_EQ(run.time(), std::vector<double>(1));
  EXPECT_EQ(run.variance(), std::vector<double>(1));
  EXPECT_EQ(run.direction(), std::vector<double>(4));
}

TEST(TwoD, EachBuildReplacesAllResultsAndARunBuildNone) {
  PointRun run({{8, {0.04, 0.0, 0.0}}});
  for (int type = 0; type < 4; ++type) EXPECT_TRUE(run.definition.twod_data(type).empty());
  run.build(point_params(20.0, 0.0, 0.0, pi / 2));
  run.part.component.fronts = {{6, {0.02, pi / 2, 0.0}}};
  const std::vector<double> before = run.time();
  run.definition.run_build();
  EXPECT_EQ(run.time(), before);
  EXPECT_EQ(run.direction(), all_in(0, 4));
  run.build(point_params(40.0, 0.0, 0.0, pi));
  EXPECT_EQ(run.time().size(), 400u);
  EXPECT_NEAR(run.time()[0], 0.02, 1e-15);
  EXPECT_EQ(run.spectrum().size(), 201u);
  EXPECT_EQ(run.spectrum()[8], 0.0);
  EXPECT_EQ(run.variance()[8], 0.0);
  EXPECT_EQ(run.direction().size(), 2u);
}

TEST(TwoD, TheSectorsStartFromZeroAtEachBuild) {
  PointRun run({{8, {0.04, 0.0, 0.0}}});
  run.build(point_params(20.0, 0.0, 0.0, pi / 2));
  run.part.component.fronts = {{6, {0.02, pi / 2, 0.0}}};
  run.definition.run_build();
  run.build(point_params(20.0, 0.0, 0.0, pi / 2));
  EXPECT_EQ(run.direction(), all_in(1, 4));
}

TEST(TwoD, AWaveThatIsTurnedBackOnItsWayGivesNan) {
  SiteText deepening;
  deepening.depths = {"0.2@m", "1@m"};
  deepening.breaks = {10.0};
  BuiltRun run(deepening, {{4, {0.04, 1.2, 0.0}}, {8, {0.05, pi / 2 - 1.2, 0.0}}});
  Base::Params params = point_params(20.0, 5.0, 0.0, pi / 2);
  run.definition.twod_build(params);
  EXPECT_TRUE(std::isfinite(run.definition.twod_data(TwoD::time)[0]));
  params = point_params(20.0, 20.0, 0.0, pi / 2);
  run.definition.twod_build(params);
  for (const double eta : run.definition.twod_data(TwoD::time)) EXPECT_TRUE(std::isnan(eta));
  EXPECT_TRUE(std::isnan(run.definition.twod_data(TwoD::spectrum)[4]));
  EXPECT_GT(run.definition.twod_data(TwoD::spectrum)[8], 0.01);
  const std::vector<double>& shares = run.definition.twod_data(TwoD::direction);
  EXPECT_TRUE(std::isnan(shares[0]));
  EXPECT_EQ(shares[1], 0.0);
}

}  // namespace
