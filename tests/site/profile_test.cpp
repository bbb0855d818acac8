// The tabulated depth profile of a tank's sections.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

#include "bottom.h"

namespace {

using Maths::ProfilePoint;
using Maths::TankConfig;

TEST(Profile, AConstantDepthHasTwoPoints) {
  const TankConfig config = config_of(sections({{"0", "Relative", "0.8"}}, "20"));
  expect_points(config, {{0.8, 0}, {0.8, 20}});
  EXPECT_EQ(config.paddle_index, 0u);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 0.8);
  EXPECT_EQ(config.x_low, 0.0);
  EXPECT_EQ(config.x_high, 20.0);
}

TEST(Profile, PaddlesAtTheEndOfTheTankAreAtTheLastPoint) {
  const TankConfig config =
      config_of(sections({{"-20", "Relative", "0.8"}, {"-10", "Relative", "1.2"}}, "0"));
  expect_points(config, {{0.8, -20}, {0.8, -10}, {1.2, -10}, {1.2, 0}});
  EXPECT_EQ(config.paddle_index, 3u);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 1.2);
}

TEST(Profile, PaddlesBelongToTheSectionThatBeginsThere) {
  const TankConfig config = config_of(
      sections({{"-5", "Relative", "0.8"}, {"0", "Relative", "1.2"}, {"3", "Relative", "1"}}, "9"));
  EXPECT_EQ(config.paddle_index, 2u);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 1.2);
}

TEST(Profile, PaddlesMayBeInsideASection) {
  const TankConfig config =
      config_of(sections({{"-5", "Relative", "0.8"}, {"-2", "Relative", "1.2"}}, "9"));
  EXPECT_EQ(config.paddle_index, 2u);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 1.2);
}

TEST(Profile, AStepInTheBottomIsKept) {
  const TankConfig config = config_of(sections(
      {{"0", "Relative", "1"}, {"5", "Relative", "0.75"}, {"5", "Relative", "0.5"}}, "20"));
  expect_points(config, {{1, 0}, {1, 5}, {0.75, 5}, {0.75, 5}, {0.5, 5}, {0.5, 20}});
}

TEST(Profile, DepthsAreConvertedToMetres) {
  const TankConfig config = config_of(sections({{"0", "Relative", "80 @cm"},
                                                {"1", "Relative", "2.5 @ft"},
                                                {"2", "Relative", "1/2 + 0.25"},
                                                {"3", "Relative", "650 @mm"},
                                                {"4", "Relative", "2 @m"}},
                                               "20"));
  const double expected[] = {0.8, 2.5 * 0.3048, 0.75, 0.65, 2.0};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_DOUBLE_EQ(config.profile[2 * i].depth, expected[i]);
    EXPECT_DOUBLE_EQ(config.profile[2 * i + 1].depth, expected[i]);
  }
}

TEST(Profile, ADepthInOtherUnitsIsRefused) {
  EXPECT_EQ(refusal(sections({{"0", "Relative", "0.8 @s"}}, "20")),
            "Unable to convert from \"s\" to \"m\"");
  EXPECT_EQ(refusal(sections({{"0", "Relative", "0.8 + 0*$[Hz]"}}, "20")),
            "Unable to convert from \"m\" to \"Hz\"");
}

TEST(Profile, ADepthWithAParameterIsRefused) {
  EXPECT_EQ(refusal(sections({{"0", "Relative", "level[m]"}}, "20")), "Unset parameterlevel");
  EXPECT_EQ(refusal(sections({{"0", "Relative", "1 - slope*$[m]"}}, "20")), "Unset parameterslope");
}

TEST(Profile, TheOffsetSetsTheOriginOfTheVariable) {
  const TankConfig relative =
      config_of(sections({{"0", "Relative", "1"}, {"4", "Relative", "1 - $[m]/20"}}, "14"));
  const TankConfig absolute =
      config_of(sections({{"0", "Relative", "1"}, {"4", "Absolute", "1.2 - $[m]/20"}}, "14"));
  ASSERT_EQ(relative.profile.size(), absolute.profile.size());
  for (std::size_t i = 0; i < relative.profile.size(); ++i) {
    EXPECT_NEAR(relative.profile[i].x, absolute.profile[i].x, 1e-9);
    EXPECT_NEAR(relative.profile[i].depth, absolute.profile[i].depth, 1e-12);
  }
  EXPECT_DOUBLE_EQ(relative.profile[2].depth, 1.0);
  EXPECT_DOUBLE_EQ(relative.profile.back().depth, 0.5);
}

TEST(Profile, TheVariableIsConvertedToItsUnits) {
  const TankConfig config = config_of(sections({{"0", "Relative", "100 - $[cm]/20 @cm"}}, "10"));
  EXPECT_DOUBLE_EQ(config.profile.front().depth, 1.0);
  EXPECT_DOUBLE_EQ(config.profile.back().depth, 0.5);
}

// On a plane slope the first step changes the depth d by the tolerance, d[1] = d[0] (1 - tol), and
// each further one has the length that was right at the start of the one before: d[n+1] = d[n] -
// tol d[n-1]. The solution is a sum of two geometric sequences.
TEST(Profile, APlaneSlopeHasStepsInProportionToTheDepth) {
  const double tol = 0.02;
  const double slope = 0.05;
  const TankConfig config = config_of(
      sections({{"0", "Relative", "1 - $[m]*0.05"}}, "10", "delta_depth = 0.02; delta_x = 20;"));
  const double larger = (1 + std::sqrt(1 - 4 * tol)) / 2;
  const double smaller = 1 - larger;
  const double share = (1 - tol - smaller) / (larger - smaller);
  const auto depth = [&](std::size_t n) {
    const auto power = static_cast<double>(n);
    return share * std::pow(larger, power) + (1 - share) * std::pow(smaller, power);
  };
  const std::size_t last = config.profile.size() - 1;
  for (std::size_t i = 0; i < last; ++i) {
    EXPECT_NEAR(config.profile[i].depth, depth(i), 1e-9) << i;
    EXPECT_NEAR(config.profile[i].x, (1 - depth(i)) / slope, 1e-9) << i;
  }
  EXPECT_GT(depth(last - 1), 0.5);
  EXPECT_LT(depth(last), 0.5);
  EXPECT_EQ(config.profile.back().x, 10.0);
  EXPECT_NEAR(config.profile.back().depth, 0.5, 1e-9);
}

struct Bottom {
  const char* formula;
  std::function<double(double)> depth;
  double begin;
  double end;
};

const Bottom bottoms[] = {
    {"1 - $[m]/40", [](double x) { return 1 - x / 40; }, 0, 20},
    {"0.5 + $[m]/40", [](double x) { return 0.5 + x / 40; }, 0, 20},
    {"2 - square($[m])/200", [](double x) { return 2 - x * x / 200; }, 1, 19},
    {"1.5*exp(-$[m]/15)", [](double x) { return 1.5 * std::exp(-x / 15); }, -6, 12},
    {"3*sqrt($[m] + 4)/2", [](double x) { return 1.5 * std::sqrt(x + 4); }, -3, 12},
    {"1 + 0.2*tanh(($[m] - 6)/2)", [](double x) { return 1 + 0.2 * std::tanh((x - 6) / 2); }, 0, 7},
};

TEST(Profile, StepsChangeTheDepthByTheTolerance) {
  for (const Bottom& bottom : bottoms) {
    for (double tol : {0.005, 0.01, 0.05}) {
      SCOPED_TRACE(std::string(bottom.formula) + " in steps of " + std::to_string(tol));
      const double longest = 0.75;
      const TankConfig config = config_of(sections(
          {{std::to_string(bottom.begin), "Absolute", bottom.formula}}, std::to_string(bottom.end),
          "delta_x = 0.75; delta_depth = " + std::to_string(tol) + ";"));
      const auto& points = config.profile;
      ASSERT_GT(points.size(), 3u);
      EXPECT_EQ(points.front().x, bottom.begin);
      EXPECT_EQ(points.back().x, bottom.end);
      for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        EXPECT_NEAR(points[i].depth, bottom.depth(points[i].x), 1e-12);
        const double step = points[i + 1].x - points[i].x;
        const double ratio = std::abs(points[i + 1].depth - points[i].depth) / points[i].depth;
        EXPECT_GT(step, 0.0) << i;
        EXPECT_LE(ratio, 1.2 * tol * (1 + 1e-9)) << i;
        // Only the last step and one of the greatest length may change the depth by less.
        const bool bounded = step > longest * (1 - 1e-9) || i + 2 == points.size();
        if (!bounded) {
          EXPECT_GE(ratio, 0.8 * tol * (1 - 1e-9)) << i;
        }
      }
      // The walk ends within a thousandth of the position of the end.
      EXPECT_NEAR(points.back().depth, bottom.depth(bottom.end), 0.002 * bottom.end);
    }
  }
}

TEST(Profile, TheDefaultStepsChangeTheDepthByOnePerCent) {
  const TankConfig config = config_of(sections({{"0", "Relative", "1 - $[m]/20"}}, "10"));
  for (std::size_t i = 0; i + 2 < config.profile.size(); ++i) {
    const double d = config.profile[i].depth;
    EXPECT_NEAR((d - config.profile[i + 1].depth) / d, 0.01, 0.0003) << i;
  }
  EXPECT_EQ(config.profile.back().x, 10.0);
  EXPECT_DOUBLE_EQ(config.profile.back().depth, 0.5);
}

// The slope is 0.05 and from x = 0.2 on 0.005. The step from 0.205 is lengthened until the depth
// has changed by 1 per cent, far beyond the end; the last step returns to the end.
TEST(Profile, ALengthenedStepMayPassTheEnd) {
  const TankConfig config = config_of(
      sections({{"0", "Relative", "1 - 0.0275*$[m] + 0.0225*(sqrt(square($[m] - 0.2)) - 0.2)"}},
               "1", "delta_x = 0.205;"));
  const ProfilePoint points[] = {
      {1, 0}, {0.989975, 0.205}, {0.99 * 0.989975, 0.205 + 0.01 * 0.989975 / 0.005}, {0.986, 1}};
  ASSERT_EQ(config.profile.size(), std::size(points));
  for (std::size_t i = 0; i < std::size(points); ++i) {
    EXPECT_NEAR(config.profile[i].x, points[i].x, 1e-9) << i;
    EXPECT_NEAR(config.profile[i].depth, points[i].depth, 1e-9) << i;
  }
}

// The slope is 0.05 and from x = 0.2 on 0.035. The second candidate would change the depth by three
// quarters of 1 per cent, and is lengthened until the change is 1 per cent.
TEST(Profile, AStepBelowFourFifthsOfTheToleranceIsLengthened) {
  const TankConfig config = config_of(sections(
      {{"0", "Relative", "1 - 0.0425*$[m] + 0.0075*(sqrt(square($[m] - 0.2)) - 0.2)"}}, "1"));
  const double x1 = 0.5 * 0.01 / (0.01 + 0.035 * 0.3);
  const double d1 = 0.99 - 0.035 * (x1 - 0.2);
  const double x2 = x1 + 0.01 * d1 / 0.035;
  // The next step has the same length and changes the depth by slightly more than 1 per cent.
  const double x3 = x2 + (x2 - x1);
  const std::vector<double> x = {0, x1, x2, x3, 1};
  ASSERT_EQ(config.profile.size(), x.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    EXPECT_NEAR(config.profile[i].x, x[i], 1e-9) << i;
    EXPECT_NEAR(config.profile[i].depth, i == 0 ? 1 : 0.99 - 0.035 * (x[i] - 0.2), 1e-9) << i;
  }
}

TEST(Profile, AnEndAtThePaddlesIsReachedExactly) {
  const TankConfig config =
      config_of(sections({{"-1.00048828125", "Relative", "0.75 + 0*$[m]"}}, "0", "delta_x = 0.5;"));
  expect_points(
      config, {{0.75, -1.00048828125}, {0.75, -0.50048828125}, {0.75, -0.00048828125}, {0.75, 0}});
}

TEST(Profile, PaddlesJustBeforeTheEndAreAtTheStartOfTheSection) {
  const TankConfig config = config_of(sections({{"-20", "Relative", "0.8"}}, "0.000000001"));
  EXPECT_EQ(config.paddle_index, 0u);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 0.8);
}

TEST(Profile, PaddlesInsideASlopeAreAtThePrecedingPoint) {
  const TankConfig config = config_of(sections({{"-4", "Absolute", "1.2 - $[m]/30"}}, "15"));
  ASSERT_LT(config.paddle_index + 1, config.profile.size());
  EXPECT_LE(config.profile[config.paddle_index].x, 0.0);
  EXPECT_GT(config.profile[config.paddle_index + 1].x, 0.0);
  EXPECT_GT(config.paddle_index, 0u);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 1.2);
}

TEST(Profile, PaddlesAtTheEndOfASlopeAreAtTheLastPoint) {
  const TankConfig config = config_of(sections({{"-10", "Relative", "1 - $[m]/20"}}, "0"));
  EXPECT_EQ(config.paddle_index + 1, config.profile.size());
  EXPECT_EQ(config.profile.back().x, 0.0);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 0.5);
}

TEST(Profile, PaddlesAtTheStartOfASlopeAreAtItsFirstPoint) {
  const TankConfig config =
      config_of(sections({{"-3", "Relative", "1"}, {"0", "Relative", "1 - $[m]/20"}}, "10"));
  EXPECT_EQ(config.paddle_index, 2u);
  EXPECT_EQ(config.profile[2].x, 0.0);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 1.0);
}

TEST(Profile, ATankAwayFromTheOriginHasNoPaddles) {
  const TankConfig config = config_of(sections({{"5", "Relative", "1"}}, "10"));
  EXPECT_EQ(config.paddle_index, 0u);
  EXPECT_EQ(config.paddle_depth, 0.0);
}

TEST(Profile, AFormulaOfConstantDepthHasTheLongestSteps) {
  const TankConfig config =
      config_of(sections({{"0", "Relative", "0.75 + 0*$[m]"}}, "2", "delta_x = 0.5;"));
  expect_points(config, {{0.75, 0}, {0.75, 0.5}, {0.75, 1}, {0.75, 1.5}, {0.75, 2}});
}

TEST(Profile, AShortFormulaOfConstantDepthHasTwoPoints) {
  const TankConfig config =
      config_of(sections({{"0", "Relative", "0.75 + 0*$[m]"}}, "0.25", "delta_x = 0.5;"));
  expect_points(config, {{0.75, 0}, {0.75, 0.25}});
}

TEST(Profile, AFormulaOnASectionOfZeroLengthHasTwoPoints) {
  const TankConfig config = config_of(sections(
      {{"0", "Relative", "1"}, {"3", "Relative", "0.75 - $[m]/10"}, {"3", "Relative", "2"}}, "5"));
  expect_points(config, {{1, 0}, {1, 3}, {0.75, 3}, {0.75, 3}, {2, 3}, {2, 5}});
}

TEST(Profile, ABeachMayEndAtTheWaterLine) {
  const TankConfig config = config_of(sections({{"0", "Relative", "1 - $[m]/20"}}, "20"));
  EXPECT_EQ(config.profile.back().x, 20.0);
  EXPECT_GT(config.profile.back().depth, 0.0);
  EXPECT_LT(config.profile.back().depth, 0.0015);
}

TEST(Profile, ABeachBeyondTheWaterLineIsRefused) {
  EXPECT_EQ(refusal(sections({{"0", "Relative", "1"}, {"4", "Relative", "1 - $[m]/10"}}, "20")),
            "Section[2]::depth profile does not get beyond x = 14");
}

TEST(Profile, IsRebuiltByEachMakeReady) {
  Load site(sections({{"0", "Relative", "1 - $[m]/40"}}, "20"));
  site.context().make_ready();
  const std::size_t size = site.context().tank_config().profile.size();
  site.context().clear_ready();
  site.context().make_ready();
  EXPECT_EQ(site.context().tank_config().profile.size(), size);
}

TEST(Profile, SamplesFollowTheBottom) {
  const TankConfig config =
      config_of(sections({{"-2", "Relative", "1"}, {"3", "Relative", "1 - $[m]/20"}}, "10"));
  std::vector<double> depths;
  config.profile_samples(0.5, depths);
  ASSERT_EQ(depths.size(), 25u);
  for (std::size_t i = 0; i < depths.size(); ++i) {
    const double x = -2 + 0.5 * static_cast<double>(i);
    EXPECT_NEAR(depths[i], x < 3 ? 1.0 : 1 - (x - 3) / 20, 1e-9) << x;
  }
}

}  // namespace
