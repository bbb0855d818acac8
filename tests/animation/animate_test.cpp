// Whole builds: their states, refusals and output.
#include <limits>
#include <new>

#include "base/streams.h"
#include "test_animation.h"

namespace {

using Testing::AnimatedSea;
using Testing::GridText;
using Testing::SiteText;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

std::string build_refusal(AnimatedSea& sea, const GridText& grid) {
  return thrown([&] { sea.build(grid); });
}

TEST(Animate, ABuildFillsAllFramesAndEnds) {
  AnimatedSea sea({{5, {0.1, 0.3, 0.0}}, {6, {0.1, 0.2, 0.0}}});
  EXPECT_EQ(sea.frames().progress(), 0.0);
  EXPECT_FALSE(sea.frames().complete());
  EXPECT_EQ(sea.frames().size(0), 0u);
  sea.build();
  EXPECT_EQ(sea.frames().size(0), 100u);
  EXPECT_EQ(sea.frames().size(1), 21u);
  EXPECT_EQ(sea.frames().size(2), 5u);
  EXPECT_EQ(sea.frames().data(99).size(), 105u);
  EXPECT_EQ(sea.frames().progress(), 1.0);
  EXPECT_TRUE(sea.frames().complete());
  EXPECT_FALSE(sea.frames().running());
}

TEST(Animate, EachColumnWritesTheAnglesOfItsFronts) {
  AnimatedSea sea({{5, {0.1, 0.25, 0.0}}, {5, {0.1, -0.5, 0.0}}, {7, {0.1, 1.0 / 3, 0.0}}});
  GridText grid;
  grid.x_step = 5.0;
  const std::string column = "0.25\n-0.5\n0.333333\n";
  EXPECT_EQ(sea.build(grid), column + column + column);
}

TEST(Animate, TheAnglesHaveTheFormatOfTheStream) {
  AnimatedSea sea({{7, {0.1, 1.0 / 3, 0.0}}});
  GridText grid;
  grid.x_step = 10.0;
  const std::streamsize before = Base::progress().precision(3);
  const std::string lines = sea.build(grid);
  Base::progress().precision(before);
  EXPECT_EQ(lines, "0.333\n0.333\n");
}

TEST(Animate, AngleLinesEndWhereABuildFails) {
  AnimatedSea sea({{5, {0.1, 0.25, 0.0}}, {7, {0.1, 0.5, 0.0}}});
  GridText grid;
  grid.x_min = 30.0;
  grid.x_max = 50.0;
  grid.x_step = 10.0;
  EXPECT_EQ(build_refusal(sea, grid), "Value x=50 is outside dimensions of tank");
  EXPECT_EQ(sea.output, "0.25\n0.5\n0.25\n0.5\n");
  EXPECT_TRUE(sea.frames().running());
  EXPECT_EQ(sea.frames().progress(), 2.0 / 3.0);
}

TEST(Animate, AGridInFrontOfTheTankIsRefusedAlike) {
  AnimatedSea sea({{5, {0.1, 0.25, 0.0}}, {7, {0.1, 0.5, 0.0}}});
  GridText grid;
  grid.x_min = -1.0;
  EXPECT_EQ(build_refusal(sea, grid), "Value x=-1 is outside dimensions of tank");
}

TEST(Animate, TheWholeTankCanBeShownWithAnyStep) {
  for (const double high : {40.0, 14.3, 33.3}) {
    SiteText text;
    text.x_high = high;
    AnimatedSea sea({{5, {0.1, 0.25, 0.0}}, {7, {0.1, 0.5, 0.0}}}, text);
    for (double step = 0.1; step < 3.0; step += 0.37) {
      GridText grid;
      grid.x_max = high;
      grid.x_step = step;
      grid.y_step = 4.0;
      grid.rate = 1.0;
      sea.build(grid);
      EXPECT_TRUE(sea.frames().complete());
    }
  }
}

TEST(Animate, AFailedGridLeavesTheBuildRunning) {
  AnimatedSea sea({{5, {0.1, 0.25, 0.0}}});
  GridText grid;
  grid.x_max = -1.0;
  EXPECT_EQ(build_refusal(sea, grid), "x_max not greater than x_min");
  EXPECT_TRUE(sea.frames().running());
  sea.frames().stop();
  EXPECT_EQ(thrown([&] { sea.init(grid); }), "x_max not greater than x_min");
  EXPECT_TRUE(sea.frames().running());
  EXPECT_EQ(sea.frames().size(0), 0u);
  EXPECT_EQ(sea.frames().progress(), 0.0);
}

TEST(Animate, AnEmptySeaIsRefused) {
  AnimatedSea sea;
  const std::string refused = "Trying to build animation when wave expression has no data";
  Base::Params params = GridText{10.2, 0.48}.params();
  EXPECT_EQ(thrown([&] { sea.build(params); }), refused);
  EXPECT_TRUE(sea.frames().running());
  // The grid has been fitted before.
  EXPECT_EQ(params.read("x_step", Base::Category::length), 10.0 / 21);
  EXPECT_EQ(thrown([&] { sea.init(); }), refused);
  // A rate too low for a single sample leaves no data either.
  AnimatedSea slow({{5, {0.1, 0.0, 0.0}}});
  EXPECT_EQ(build_refusal(slow, GridText{0.04}), refused);
}

TEST(Animate, ARefusedBuildKeepsTheOldFrames) {
  AnimatedSea sea({{5, {0.1, 0.3, 0.0}}, {6, {0.1, 0.2, 0.0}}});
  sea.build();
  const auto before = sea.all();
  GridText grid;
  grid.y_max = -9.0;
  EXPECT_EQ(build_refusal(sea, grid), "y_max not greater than y_min");
  EXPECT_EQ(sea.frames().progress(), 1.0);
  EXPECT_EQ(sea.all(), before);
}

TEST(Animate, TooLargeAGridFailsAsAnAllocation) {
  AnimatedSea sea({{5, {0.1, 0.3, 0.0}}, {6, {0.1, 0.2, 0.0}}});
  GridText grid;
  grid.x_step = 1e-7;
  grid.rate = 1e7;
  EXPECT_THROW(sea.build(grid), std::bad_alloc);
  EXPECT_TRUE(sea.frames().running());
  sea.build();
  EXPECT_EQ(sea.frames().size(0), 100u);
}

TEST(Animate, ANewBuildReplacesFramesOfAnotherGrid) {
  AnimatedSea sea({{5, {0.1, 0.3, 0.0}}, {6, {0.1, 0.2, 0.0}}});
  sea.build();
  GridText grid;
  grid.x_step = 1.0;
  grid.y_step = 0.5;
  grid.rate = 8.0;
  sea.build(grid);
  AnimatedSea fresh({{5, {0.1, 0.3, 0.0}}, {6, {0.1, 0.2, 0.0}}});
  fresh.build(grid);
  EXPECT_EQ(sea.all(), fresh.all());
  EXPECT_EQ(sea.frames().size(1), 11u);
  EXPECT_EQ(sea.frames().size(2), 9u);
}

TEST(Animate, AStraightSeaIsTheSameAcrossTheTank) {
  for (const double angle : {0.0, 9e-7, -9e-7}) {
    AnimatedSea sea({{5, {0.1, angle, 0.2}}, {6, {0.1, angle, 0.0}}});
    sea.build();
    EXPECT_EQ(sea.frames().progress(), 1.0);
    bool moves = false;
    for (const auto& frame : sea.all()) {
      for (std::size_t i = 0; i < frame.size(); ++i) {
        ASSERT_EQ(frame[i], frame[i - i % 5]);
        moves = moves || frame[i] != frame[0];
      }
    }
    EXPECT_TRUE(moves);
  }
}

// Whether any row differs from the first one.
bool varies_across(AnimatedSea& sea, const GridText& grid = {}) {
  sea.build(grid);
  for (const auto& frame : sea.all()) {
    for (std::size_t i = 0; i < frame.size(); ++i) {
      if (frame[i] != frame[i - i % 5]) return true;
    }
  }
  return false;
}

TEST(Animate, AngleThatCountsAsStraight) {
  AnimatedSea oblique({{5, {0.1, 0.0, 0.0}}, {6, {0.1, 0.1, 0.0}}});
  EXPECT_TRUE(varies_across(oblique));
  AnimatedSea parallel({{5, {0.1, 0.4, 0.0}}, {6, {0.1, 0.4, 0.0}}});
  EXPECT_TRUE(varies_across(parallel));
  AnimatedSea mirrored({{5, {0.1, -0.4, 0.0}}, {6, {0.1, -0.4, 0.0}}});
  EXPECT_TRUE(varies_across(mirrored));
  // At a large distance a millionth of a radian shows.
  GridText wide;
  wide.y_max = 1000.0;
  wide.y_step = 250.0;
  for (const double sign : {1.0, -1.0}) {
    AnimatedSea just({{10, {1.0, sign * 1.1e-6, 0.5}}, {11, {1.0, sign * 1.1e-6, 0.5}}});
    EXPECT_TRUE(varies_across(just, wide));
    AnimatedSea not_yet({{10, {1.0, sign * 0.9e-6, 0.5}}, {11, {1.0, sign * 0.9e-6, 0.5}}});
    EXPECT_FALSE(varies_across(not_yet, wide));
  }
  // After a straight front, a negative angle counts as straight too. Hosts rely on it.
  AnimatedSea hidden({{5, {0.1, 0.0, 0.0}}, {6, {0.1, -0.5, 0.0}}});
  EXPECT_FALSE(varies_across(hidden));
}

TEST(Animate, AStepLongerThanTheTankShowsItsBeginning) {
  AnimatedSea sea({{5, {1.0, 0.0, 0.0}}, {6, {1.0, 0.0, 0.0}}});
  GridText grid;
  grid.x_step = 100.0;
  grid.y_step = 100.0;
  sea.build(grid);
  EXPECT_EQ(sea.frames().size(1), 1u);
  EXPECT_EQ(sea.frames().size(2), 1u);
  EXPECT_EQ(sea.frames().data(0)[0], 16384);  // two crests of 1 m
}

TEST(Animate, AFrontOfZeroAmplitudeIsNotShown) {
  AnimatedSea sea({{5, {1.0, 0.0, 0.0}}, {6, {0.0, 0.0, nan}}, {7, {1.0, 0.0, 0.0}}});
  sea.build();
  EXPECT_EQ(sea.frames().data(0)[0], 16384);
}

TEST(Animate, NanWavesGiveFlatWater) {
  AnimatedSea sea({{5, {nan, 0.0, 0.0}}, {6, {1.0, 0.5, 0.0}}});
  sea.build();
  EXPECT_EQ(sea.frames().data(0), std::vector<std::int16_t>(105, 0));
}

TEST(Animate, AHarmonicOutsideTheRunIsRefused) {
  AnimatedSea sea({{5, {1.0, 0.5, 0.0}}, {20, {1.0, 0.5, 0.0}}});
  sea.run.init(10.0, 100.0, 0.1, 1.5, false);  // set anew, and not yet built
  EXPECT_EQ(build_refusal(sea, {}), "Harmonic out of range");
}

TEST(Animate, ReleaseFreesTheFrames) {
  AnimatedSea sea({{5, {0.1, 0.3, 0.0}}, {6, {0.1, 0.2, 0.0}}});
  sea.build();
  sea.frames().release();
  EXPECT_EQ(sea.frames().size(0), 0u);
  EXPECT_EQ(sea.frames().progress(), 0.0);
  EXPECT_EQ(thrown([&] { sea.frames().data(0); }), "invalid vector<T> subscript");
}

}  // namespace
