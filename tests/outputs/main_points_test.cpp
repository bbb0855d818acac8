#include "outputs/main_points.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Outputs {
namespace {

// A straight line between the kept points differs from the profile by no more than the tolerance.
TEST(MainPoints, KeepTheShapeOfAProfile) {
  std::vector<Maths::ProfilePoint> profile;
  for (int i = 0; i <= 600; ++i) {
    const double x = i / 20.0;
    profile.push_back(
        {2.0 - (x > 8 && x < 20 ? 0.3 * (1 - std::cos(M_PI * (x - 8) / 6)) : 0.0), x});
  }
  const auto points = main_points(profile, 100, 0.01);
  EXPECT_LT(points.size(), 12U);
  ASSERT_GE(points.size(), 5U);
  std::size_t part = 0;
  for (const auto& point : profile) {
    while (point.x > points[part + 1].x) ++part;
    const auto& from = points[part];
    const auto& to = points[part + 1];
    const double line = from.depth + (to.depth - from.depth) * (point.x - from.x) / (to.x - from.x);
    EXPECT_NEAR(point.depth, line, 0.01 * 2.0) << point.x;
  }
}

TEST(MainPoints, KeepBothSidesOfAStepAndAreLimited) {
  const std::vector<Maths::ProfilePoint> step{{1, 0}, {1, 5}, {1, 10}, {0.5, 10}, {0.5, 20}};
  const auto points = main_points(step, 10, 0.01);
  ASSERT_EQ(points.size(), 4U);
  EXPECT_EQ(points[1].x, 10);
  EXPECT_EQ(points[1].depth, 1);
  EXPECT_EQ(points[2].x, 10);
  EXPECT_EQ(points[2].depth, 0.5);
  EXPECT_EQ(main_points(step, 3, 0.0).size(), 3U);
  EXPECT_EQ(main_points({}, 3, 0.0).size(), 0U);
}

// A wall from 1 m to 0 m of depth, with a point half-way.
TEST(MainPoints, KeepTheEndsOfAWall) {
  const std::vector<Maths::ProfilePoint> wall{{1.0, 4}, {0.5, 4}, {0.0, 4}};
  const auto points = main_points(wall, 10, 0.75);
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(points[0].depth, 1.0);
  EXPECT_EQ(points[1].depth, 0.0);
}

}  // namespace
}  // namespace Outputs
