// Which bottoms the walk along a tank accepts, and which it refuses.
#include <gtest/gtest.h>

#include <cmath>

#include "base/compose.h"
#include "bottom.h"
#include "site/tank_profile.h"

namespace {

using Maths::ProfilePoint;
using Maths::TankConfig;

TEST(ProfileLimits, DryGroundOfConstantHeightIsAccepted) {
  const TankConfig config = config_of(sections(
      {{"-9", "Relative", "0"}, {"-5", "Relative", "1"}, {"8", "Relative", "-0.25"}}, "9"));
  expect_points(config, {{0, -9}, {0, -5}, {1, -5}, {1, 8}, {-0.25, 8}, {-0.25, 9}});
  EXPECT_EQ(config.paddle_index, 2u);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 1.0);
}

// Above the water the change relative to the depth is negative. Each candidate is then at a smaller
// x than the point. Its step is reversed, and the longest step does not limit it.
TEST(ProfileLimits, ADryBeachIsAccepted) {
  const TankConfig config =
      config_of(sections({{"0", "Relative", "1"}, {"90", "Relative", "0 - 0.5 - $[m]/20"}}, "100"));
  const auto& points = config.profile;
  ASSERT_GT(points.size(), 50u);
  EXPECT_EQ(points[2].x, 90.0);
  EXPECT_EQ(points[3].x, 90.5);
  // The first step is the longest one. All others change the depth by 1 per cent.
  for (std::size_t i = 4; i + 1 < points.size(); ++i) {
    EXPECT_NEAR(points[i].depth, -0.5 - (points[i].x - 90) / 20, 1e-9) << i;
    EXPECT_NEAR(points[i].depth / points[i - 1].depth, 1.01, 1e-9) << i;
  }
  EXPECT_EQ(points.back().x, 100.0);
}

TEST(ProfileLimits, AConstantDepthMayBeNaN) {
  const TankConfig config =
      config_of(sections({{"0", "Relative", "1"}, {"5", "Relative", "sqrt(0-1)"}}, "9"));
  ASSERT_EQ(config.profile.size(), 4u);
  EXPECT_TRUE(std::isnan(config.profile[2].depth));
  EXPECT_TRUE(std::isnan(config.profile[3].depth));
}

TEST(ProfileLimits, ASlopeFromTheWaterLineIsRefused) {
  for (const char* depth : {"$[m]", "0 - $[m]"}) {
    EXPECT_EQ(refusal(sections({{"0", "Relative", depth}}, "20")),
              "Section[1]::depth profile does not get beyond x = 0")
        << depth;
  }
}

TEST(ProfileLimits, ASlopeWithAnUndefinedDepthIsRefused) {
  EXPECT_EQ(refusal(sections({{"0", "Relative", "1/$[m]"}}, "20")),
            "Section[1]::depth inf at x = 0 is not a number");
  for (const char* depth : {"sqrt($[m] - 1)", "1 + 0*sqrt(0.25 - $[m])"}) {
    const std::string message = refusal(sections({{"0", "Relative", depth}}, "20"));
    EXPECT_TRUE(message.starts_with("Section[1]::depth ")) << message;
    EXPECT_NE(message.find("nan at x = "), std::string::npos) << message;
  }
}

TEST(ProfileLimits, AnEndlessWalkIsRefused) {
  const std::string pole = refusal(sections({{"0", "Relative", "1/(5 - $[m])"}}, "20"));
  EXPECT_EQ(pole, "Section[1]::depth profile does not get beyond x = 5");
  const std::string creep =
      refusal(sections({{"0", "Relative", "1 - $[m]/40"}}, "20", "delta_x = 0.000000001;"));
  EXPECT_TRUE(
      creep.starts_with("Section[1]::depth profile does not come to an end, stopped at x = 0."))
      << creep;
}

// The time of a walk grows with the formula, which may be long.
TEST(ProfileLimits, AWalkOverManyPointsIsRefusedIfTheFormulaIsLong) {
  const char* const steps = "delta_x = 0.001;";
  std::string depth = "1 - $[m]/40";
  EXPECT_GT(config_of(sections({{"0", "Relative", depth}}, "20", steps)).profile.size(), 19000u);
  for (int i = 0; i < 4000; ++i) depth += " + 0*$[m]";
  EXPECT_GT(config_of(sections({{"0", "Relative", depth}}, "20")).profile.size(), 20u);
  const std::string message = refusal(sections({{"0", "Relative", depth}}, "20", steps));
  EXPECT_TRUE(
      message.starts_with("Section[1]::depth profile takes too many steps for a formula of " +
                          std::to_string(depth.size()) + " characters, stopped at x = "))
      << message;
}

TEST(ProfileLimits, StepsMustBePositiveIfTheyAreUsed) {
  for (const char* value : {"0", "-0.01"}) {
    EXPECT_EQ(refusal(sections({{"0", "Relative", "1 - $[m]/40"}}, "20",
                               std::string("delta_depth = ") + value + ";")),
              "Tank::delta_depth is not a positive number");
  }
  for (const char* value : {"0", "-0.5"}) {
    EXPECT_EQ(refusal(sections({{"0", "Relative", "1 - $[m]/40"}}, "20",
                               std::string("delta_x = ") + value + ";")),
              "Tank::delta_x is not a positive number");
  }
  EXPECT_EQ(config_of(sections({{"0", "Relative", "1"}}, "20", "delta_x = 0; delta_depth = $;"))
                .profile.size(),
            2u);
}

TEST(ProfileLimits, StepsMayBeUnbounded) {
  // The first step changes the depth by 1 per cent. Each further step has the length with which the
  // step before it would have done so.
  for (const char* value : {"$", "1e999"}) {
    const TankConfig config = config_of(sections({{"0", "Relative", "1 - $[m]/200"}}, "20",
                                                 std::string("delta_x = ") + value + ";"));
    ASSERT_GT(config.profile.size(), 3u);
    EXPECT_NEAR(config.profile[1].x, 2.0, 1e-9);
    EXPECT_NEAR(config.profile[2].x, 4.0, 1e-9);
    EXPECT_NEAR(config.profile[3].x, 4.0 + 0.01 * 0.99 * 200, 1e-9);
    EXPECT_EQ(config.profile.back().x, 20.0);
  }
  for (const char* value : {"$", "1e999"}) {
    expect_points(config_of(sections({{"0", "Relative", "1 - $[m]/40"}}, "1.25",
                                     std::string("delta_depth = ") + value + ";")),
                  {{1, 0}, {0.9875, 0.5}, {0.975, 1}, {0.96875, 1.25}});
  }
  expect_points(config_of(sections({{"0", "Relative", "1 - $[m]/40"}}, "20",
                                   "delta_depth = $; delta_x = $;")),
                {{1, 0}, {0.5, 20}});
}

// The depth at 0, 1 and 2 is given, and the parabola through it is the bottom of a section that
// ends at 1. Where the depth changes too little up to there, the step ends at 2.
std::string overshooting(double at_1, double at_2, const std::string& change) {
  const double b = (at_2 - 1) / 2 - (at_1 - 1);
  const double a = at_1 - 1 - b;
  const std::string depth = Base::compose("1 + (", a, ")*$[m] + (", b, ")*$[m]*$[m]");
  return sections({{"0", "Relative", depth}}, "1", "delta_x = 10; delta_depth = " + change + ";");
}

TEST(ProfileLimits, AStepBeyondTheEndIsFollowedBackToIt) {
  const TankConfig config = config_of(overshooting(1.005, 0.9885, "0.01"));
  ASSERT_EQ(config.profile.size(), 4u);
  EXPECT_EQ(config.profile[0].x, 0.0);
  EXPECT_NEAR(config.profile[1].x, 2.0, 1e-9);
  EXPECT_NEAR(config.profile[1].depth, 0.9885, 1e-9);
  // The whole way back changes the depth by 1.67 per cent, so that it is divided.
  EXPECT_GT(config.profile[2].x, 1.0);
  EXPECT_LT(config.profile[2].x, 2.0);
  EXPECT_GT(config.profile[2].depth, 0.9885);
  EXPECT_LE(config.profile[2].depth, 0.9885 * 1.012);
  EXPECT_EQ(config.profile[3].x, 1.0);
  EXPECT_NEAR(config.profile[3].depth, 1.005, 1e-9);
}

TEST(ProfileLimits, AStepBackThatPassesTheEndIsRefused) {
  // After 2 the walk is at 2 - 0.01 / (0.013 / 0.992), and its next step passes 1.
  EXPECT_EQ(refusal(overshooting(1.005, 0.992, "0.01")),
            "Section[1]::depth profile does not get beyond x = 1.23692");
  // No step back from the water line changes the depth by a finite part of it.
  EXPECT_EQ(refusal(overshooting(1.5, 0, "1")),
            "Section[1]::depth profile does not get beyond x = 2");
}

TEST(ProfileLimits, ATankWithoutSectionsHasNoProfile) {
  TankConfig config;
  config.profile = {{1.0, 0.0}};
  config.paddle_index = 3;
  Common::make_profile(Common::Tank(), config);
  EXPECT_TRUE(config.profile.empty());
  EXPECT_EQ(config.paddle_index, 0u);
  EXPECT_EQ(config.paddle_depth, 0.0);
}

TEST(ProfileLimits, TheEndOfTheTankMayBeInfiniteOrWithoutAValue) {
  for (const char* end : {"$", "1e999"}) {
    const TankConfig config =
        config_of(sections({{"0", "Relative", "1"}, {"5", "Relative", "0.5"}}, end));
    ASSERT_EQ(config.profile.size(), 4u);
    EXPECT_EQ(config.profile[2].x, 5.0);
    EXPECT_EQ(config.profile[3].depth, 0.5);
    EXPECT_FALSE(std::isfinite(config.profile[3].x));
    EXPECT_FALSE(std::isfinite(config.x_high));
    EXPECT_EQ(config.paddle_index, 0u);
    EXPECT_EQ(config.paddle_depth, 1.0);
  }
}

TEST(ProfileLimits, SlopesWithoutAPositionAreRefused) {
  EXPECT_EQ(refusal(sections({{"$", "Relative", "1 - $[m]/40"}}, "20")),
            "Section[1]::start or end is not a number");
  EXPECT_EQ(refusal(sections({{"0", "Relative", "1"}, {"2", "Relative", "1 - $[m]/40"}}, "1e999")),
            "Section[2]::start or end is not a number");
}

}  // namespace
