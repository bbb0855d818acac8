// The grid of an animation: fitting, writing back and refusing its parameters.
#include "animation/animation_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "test_animation.h"

namespace {

using Synthesis::AnimationGrid;
using Synthesis::fit_grid;
using Testing::GridText;
using Testing::thrown;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Maths::RunData ten_seconds() {
  Maths::RunData run;
  run.init(10.0, 100.0, 0.1, 2.0, false);
  return run;
}

std::string refusal(const GridText& asked) {
  Base::Params params = asked.params();
  return thrown([&] { fit_grid(ten_seconds(), params); });
}

double metres(const Base::Params& params, const std::string& name) {
  return params.read(name, Base::Category::length);
}

TEST(AnimationGrid, IncludesBothEndsOfEachAxis) {
  Base::Params params = GridText{}.params();
  const AnimationGrid grid = fit_grid(ten_seconds(), params);
  EXPECT_EQ(grid.x.count, 21u);
  EXPECT_EQ(grid.y.count, 5u);
  EXPECT_EQ(grid.samples, 100u);
  EXPECT_EQ(grid.x.at(0), 0.0);
  EXPECT_EQ(grid.x.at(7), 3.5);
  EXPECT_EQ(grid.x.at(20), 10.0);
  EXPECT_EQ(grid.y.at(0), -2.0);
  EXPECT_EQ(grid.y.at(4), 2.0);
  EXPECT_EQ(params.comment_size(), 0u);
}

TEST(AnimationGrid, StepsAndRateAreFittedAndWrittenBack) {
  GridText asked;
  asked.x_step = 0.48;  // 20.83 divisions
  asked.y_step = 1.5;   // 2.67 divisions
  asked.rate = 9.87;    // 98.7 samples
  Base::Params params = asked.params();
  const AnimationGrid grid = fit_grid(ten_seconds(), params);
  EXPECT_EQ(grid.x.count, 22u);
  EXPECT_EQ(grid.y.count, 4u);
  EXPECT_EQ(grid.samples, 99u);
  EXPECT_EQ(metres(params, "x_step"), 10.0 / 21);
  EXPECT_EQ(metres(params, "y_step"), 4.0 / 3);
  EXPECT_EQ(params.read("rate", Base::Category::frequency), 9.9);
  // 1.5 m against 1.333 m is a poor match; 0.48 m and 9.87 Hz are not.
  ASSERT_EQ(params.comment_size(), 1u);
  EXPECT_EQ(params.comment(0), "Warning::Poor match");
}

TEST(AnimationGrid, EachPoorMatchHasAComment) {
  GridText asked;
  asked.x_step = 7.0;  // one division
  asked.y_step = 3.0;  // one division
  asked.rate = 0.14;   // one sample
  Base::Params params = asked.params();
  fit_grid(ten_seconds(), params);
  EXPECT_EQ(params.comment_size(), 3u);
}

TEST(AnimationGrid, AStepMayChangeByATenthAndARateByAHundredth) {
  const auto remarks = [](double x_step, double y_step, double rate) {
    GridText asked;
    asked.x_max = 4.0;
    asked.x_step = x_step;
    asked.y_step = y_step;
    asked.rate = rate;
    Base::Params params = asked.params();
    fit_grid(ten_seconds(), params);
    EXPECT_EQ(metres(params, "x_step"), 1.0);
    EXPECT_EQ(metres(params, "y_step"), 1.0);
    EXPECT_EQ(params.read("rate", Base::Category::frequency), 4.0);
    return params.comment_size();
  };
  EXPECT_EQ(remarks(1.099, 0.901, 4.039), 0u);
  EXPECT_EQ(remarks(1.101, 1.0, 4.0), 1u);
  EXPECT_EQ(remarks(1.0, 0.899, 4.0), 1u);
  EXPECT_EQ(remarks(1.0, 1.0, 4.041), 1u);
  EXPECT_EQ(remarks(1.0, 1.0, 3.959), 1u);
}

TEST(AnimationGrid, StepsAreWrittenBackInTheHostsUnits) {
  Base::Params params;
  params.insert("rate", 600.0, "rpm");
  for (const auto& [name, value] : std::vector<std::pair<std::string, double>>{{"x_step", 480},
                                                                               {"y_step", 1000},
                                                                               {"x_min", 0},
                                                                               {"x_max", 10000},
                                                                               {"y_min", -2000},
                                                                               {"y_max", 2000}}) {
    params.insert(name, value, "mm");
  }
  fit_grid(ten_seconds(), params);
  EXPECT_NEAR(params.get("x_step", "mm"), 10000.0 / 21, 1e-9);
}

TEST(AnimationGrid, RoundingDoesNotCarryTheLastPointPastTheEnd) {
  for (std::uint32_t divisions = 1; divisions < 2000; divisions += 3) {
    GridText asked;
    asked.x_max = 14.3;
    asked.x_min = 0.1;
    asked.x_step = (asked.x_max - asked.x_min) / divisions;
    Base::Params params = asked.params();
    const AnimationGrid grid = fit_grid(ten_seconds(), params);
    ASSERT_EQ(grid.x.count, divisions + 1);
    ASSERT_LE(grid.x.at(divisions), asked.x_max);
    ASSERT_NEAR(grid.x.at(divisions), asked.x_max, 1e-13);
  }
}

TEST(AnimationGrid, AStepLongerThanTwiceTheRangeLeavesTheFirstPoint) {
  GridText asked;
  asked.x_step = 20.5;
  asked.x_min = 3.0;
  asked.x_max = 13.0;
  Base::Params params = asked.params();
  const AnimationGrid grid = fit_grid(ten_seconds(), params);
  EXPECT_EQ(grid.x.count, 1u);
  EXPECT_EQ(grid.x.at(0), 3.0);
  EXPECT_EQ(metres(params, "x_step"), infinity);
  EXPECT_EQ(params.comment(0), "Warning::Poor match");
}

TEST(AnimationGrid, RangesAreComparedBeforeAnythingElse) {
  GridText asked;
  asked.x_max = asked.x_min;
  asked.y_max = -5.0;
  asked.x_step = -1.0;
  EXPECT_EQ(refusal(asked), "x_max not greater than x_min");
  asked.x_max = 1.0;
  EXPECT_EQ(refusal(asked), "y_max not greater than y_min");
  asked.y_max = asked.y_min;
  EXPECT_EQ(refusal(asked), "y_max not greater than y_min");
  Base::Params params = asked.params();
  EXPECT_EQ(thrown([&] { fit_grid(Maths::RunData{}, params); }), "y_max not greater than y_min");
  EXPECT_EQ(metres(params, "x_step"), -1.0);
}

TEST(AnimationGrid, AStepWithoutAUsableGridIsRefused) {
  GridText asked;
  asked.x_step = -0.5;
  EXPECT_EQ(refusal(asked), "x_step::-0.5 m gives no usable grid from 0 m to 10 m");
  asked = {};
  asked.y_step = 0.0;
  EXPECT_EQ(refusal(asked), "y_step::0 m gives no usable grid from -2 m to 2 m");
  asked.y_step = 1e-30;
  EXPECT_EQ(refusal(asked), "y_step::1e-30 m gives no usable grid from -2 m to 2 m");
  asked.y_step = nan;
  EXPECT_EQ(refusal(asked), "y_step::nan m gives no usable grid from -2 m to 2 m");
  asked = {};
  asked.x_max = infinity;
  EXPECT_EQ(refusal(asked), "x_step::0.5 m gives no usable grid from 0 m to inf m");
  asked.x_max = nan;
  EXPECT_EQ(refusal(asked), "x_step::0.5 m gives no usable grid from 0 m to nan m");
}

TEST(AnimationGrid, ARateWithoutAUsableNumberOfSamplesIsRefused) {
  GridText asked;
  for (const double rate : {-10.0, infinity, 1e9, nan}) {
    asked.rate = rate;
    std::ostringstream text;
    text << "rate::" << rate << " Hz gives no usable number of samples in a repeat time of 10 s";
    EXPECT_EQ(refusal(asked), text.str());
  }
}

TEST(AnimationGrid, ARateTooLowForASampleIsFittedToZero) {
  GridText asked;
  asked.rate = 0.04;
  Base::Params params = asked.params();
  EXPECT_EQ(fit_grid(ten_seconds(), params).samples, 0u);
  EXPECT_EQ(params.read("rate", Base::Category::frequency), 0.0);
  EXPECT_EQ(params.comment_size(), 1u);
}

TEST(AnimationGrid, MissingParametersAreNamed) {
  const Base::Params all = GridText{}.params();
  for (const char* name : {"rate", "x_step", "y_step", "x_min", "x_max", "y_min", "y_max"}) {
    Base::Params params;
    for (const auto& [entry, quantity] : all.entries()) {
      if (entry != name) params.insert(entry, quantity.value, quantity.units);
    }
    EXPECT_EQ(thrown([&] { fit_grid(ten_seconds(), params); }), std::string(name) + "::Not found");
  }
}

TEST(AnimationGrid, ARunThatWasNotSetHasNoRepeatTime) {
  Base::Params params = GridText{}.params();
  EXPECT_EQ(thrown([&] { fit_grid(Maths::RunData{}, params); }), "Repeat time zero or less");
}

}  // namespace
