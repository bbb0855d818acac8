#include "outputs/tank_plan.h"

#include <gtest/gtest.h>

namespace Outputs {
namespace {

TEST(TankPlan, NamesTheWallsThatReflect) {
  Common::Tank tank;
  const auto walls = [&tank](std::uint32_t geometry) {
    tank.geometry.number = geometry;
    return walls_of(tank);
  };
  using Geometry = Common::Tank::Geometry_enum;
  EXPECT_EQ(walls(Geometry::NoSides), "none");
  EXPECT_EQ(walls(Geometry::PlusSide), "plus");
  EXPECT_EQ(walls(Geometry::MinusSide), "minus");
  EXPECT_EQ(walls(Geometry::BothSides), "both");
  EXPECT_EQ(walls(Geometry::TwoDimensional), "flume");
}

}  // namespace
}  // namespace Outputs
