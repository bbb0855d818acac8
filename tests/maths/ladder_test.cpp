// The ladder: the pieces of the tank between the paddle line and a point.
#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "maths/tank_run.h"
#include "support/thrown.h"
#include "varied_tank.h"

namespace {

using Maths::TankConfig;
using Maths::TankRun;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

void expect_rungs(const TankRun& run, const std::vector<std::pair<double, double>>& dx_and_depth) {
  ASSERT_EQ(run.ladder().size(), dx_and_depth.size());
  for (std::size_t i = 0; i < dx_and_depth.size(); ++i) {
    const double k = k_of(dx_and_depth[i].second);
    EXPECT_NEAR(run.ladder()[i].dx, dx_and_depth[i].first, 1e-14) << i;
    EXPECT_NEAR(run.ladder()[i].k, k, 1e-12) << i;
    EXPECT_NEAR(run.ladder()[i].k2, k * k, 1e-11) << i;
  }
}

TEST(Ladder, HasTwoRungsAtThePaddles) {
  TankRun run = varied_run();
  run.build_ladder(10, 0.0);
  expect_rungs(run, {{0.0, 1.0}, {0.0, 1.0}});
}

TEST(Ladder, HasARungOfTheMeanDepthForEachPiece) {
  TankRun run = varied_run();
  run.build_ladder(10, 15.0);
  expect_rungs(run, {{0, 1.0}, {4.0, 1.0}, {6.0, 0.75}, {5.0, 0.8}, {0, 0.8}});
  run.build_ladder(10, 7.0);
  expect_rungs(run, {{0, 1.0}, {4.0, 1.0}, {3.0, 0.875}, {0, 0.75}});
  run.build_ladder(10, 4.0);
  expect_rungs(run, {{0, 1.0}, {4.0, 1.0}, {0, 1.0}});
  run.build_ladder(10, 10.0);
  expect_rungs(run, {{0, 1.0}, {4.0, 1.0}, {6.0, 0.75}, {0, 0.5}});
  run.build_ladder(10, 20.0);
  expect_rungs(run, {{0, 1.0}, {4.0, 1.0}, {6.0, 0.75}, {10.0, 0.8}, {0, 0.8}});
}

TEST(Ladder, HasNegativeStepsBehindThePaddles) {
  TankRun run = varied_run();
  run.build_ladder(10, -2.5);
  expect_rungs(run, {{0, 1.0}, {-2.5, 0.85}, {0, 0.7}});
  run.build_ladder(10, -5.0);
  expect_rungs(run, {{0, 1.0}, {-5.0, 0.7}, {0, 0.4}});
}

TEST(Ladder, StartsInsideTheSectionOfThePaddles) {
  TankConfig tank = varied();
  tank.profile = {{0.6, -8.0}, {0.9, -2.0}, {1.2, 4.0}, {1.2, 9.0}};
  tank.x_low = -8.0;
  tank.x_high = 9.0;
  tank.paddle_index = 1;
  tank.paddle_depth = 1.0;
  TankRun run(tank, grid());
  run.build_ladder(10, 2.0);
  expect_rungs(run, {{0, 1.0}, {2.0, 1.05}, {0, 1.1}});
  run.build_ladder(10, -1.0);
  expect_rungs(run, {{0, 1.0}, {-1.0, 0.975}, {0, 0.95}});
  run.build_ladder(10, -5.0);
  expect_rungs(run, {{0, 1.0}, {-2.0, 0.95}, {-3.0, 0.825}, {0, 0.75}});
}

TEST(Ladder, PiecesOfAMicrometreAndMoreHaveARung) {
  TankConfig tank = varied();
  tank.profile = {{0.8, -5.0}, {0.8, -1e-4}, {0.9, 0.0}, {1.0, 0.0},
                  {1.0, 1e-4}, {0.5, 1e-4},  {0.5, 5.0}};
  tank.paddle_index = 3;
  TankRun run(tank, grid());
  run.build_ladder(10, 2.0);
  expect_rungs(run, {{0, 1.0}, {1e-4, 1.0}, {2.0 - 1e-4, 0.5}, {0, 0.5}});
  run.build_ladder(10, -2.0);
  expect_rungs(run, {{0, 1.0}, {-1e-4, 0.85}, {-2.0 + 1e-4, 0.8}, {0, 0.8}});

  // Shorter pieces are steps in the bottom.
  tank.profile = {{0.8, -5.0}, {0.8, -9e-7}, {0.9, 0.0}, {1.0, 0.0}, {0.5, 9e-7}, {0.5, 5.0}};
  TankRun steps(tank, grid());
  steps.build_ladder(10, 2.0);
  expect_rungs(steps, {{0, 1.0}, {2.0 - 9e-7, 0.5}, {0, 0.5}});
  steps.build_ladder(10, -2.0);
  expect_rungs(steps, {{0, 1.0}, {-2.0 + 9e-7, 0.8}, {0, 0.8}});
}

TEST(Ladder, ATankMayEndAtThePaddles) {
  TankConfig tank = varied();
  tank.profile = {{0.5, -10.0}, {0.5, -5.0}, {1.0, 0.0}};
  tank.x_low = -10.0;
  tank.x_high = 0.0;
  tank.paddle_index = 2;
  TankRun run(tank, grid());
  run.build_ladder(10, -8.0);
  expect_rungs(run, {{0, 1.0}, {-5.0, 0.75}, {-3.0, 0.5}, {0, 0.5}});
}

TEST(Ladder, PositionsOutsideTheTankAreRefused) {
  TankRun run = varied_run();
  EXPECT_EQ(thrown([&] { run.build_ladder(10, 21.0); }), outside("21"));
  EXPECT_EQ(thrown([&] { run.build_ladder(10, -6.0); }), outside("-6"));
  EXPECT_EQ(thrown([&] { run.build_ladder(10, inf); }), outside("inf"));
  EXPECT_EQ(thrown([&] { run.build_ladder(10, -inf); }), outside("-inf"));
  EXPECT_EQ(thrown([&] { run.build_ladder(10, nan); }), outside("nan"));
  EXPECT_EQ(thrown([&] { run.shoaling(10, nan); }), outside("nan"));
  EXPECT_EQ(thrown([&] { run.phase_lag(10, 21.0, 0.0, 0.0); }), outside("21"));
}

TEST(Ladder, APaddleIndexBeyondTheProfileIsRefused) {
  TankConfig tank = varied();
  tank.paddle_index = 4000000000u;
  TankRun run(tank, grid());
  EXPECT_EQ(thrown([&] { run.build_ladder(10, 1.0); }), outside("1"));
  EXPECT_EQ(thrown([&] { run.build_ladder(10, -1.0); }), outside("-1"));
}

TEST(Ladder, AFailedBuildKeepsTheRungsItMade) {
  TankRun run = varied_run();
  EXPECT_EQ(thrown([&] { run.build_ladder(10, 21.0); }), outside("21"));
  EXPECT_EQ(run.ladder().size(), 4u);
  EXPECT_EQ(thrown([&] { run.build_ladder(41, 1.0); }), "Harmonic out of range");
  EXPECT_TRUE(run.ladder().empty());
}

}  // namespace
