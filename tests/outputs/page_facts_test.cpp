#include "outputs/page_facts.h"

#include <gtest/gtest.h>

#include "outputs/made_page.h"

namespace Outputs {
namespace {

// A bed at 1 m from 0 to 10 m, and a slope to 0.5 m at 20 m.
double depth_where_the_sea_holds(double x) {
  Testing::Json summary = Testing::bare_summary();
  summary["plan"]["profile"] = {{"x", {0.0, 10.0, 20.0}}, {"depth", {1.0, 1.0, 0.5}}};
  summary["seas"] = {{{"holds", {{"x", x}}}}};
  return page_facts(summary).depth;
}

TEST(PageFacts, TheDepthIsThatOfTheProfileWhereTheSeaHolds) {
  EXPECT_EQ(depth_where_the_sea_holds(5.0), 1.0);
  EXPECT_EQ(depth_where_the_sea_holds(10.0), 1.0);
  EXPECT_NEAR(depth_where_the_sea_holds(15.0), 0.75, 1e-15);
  EXPECT_NEAR(depth_where_the_sea_holds(18.0), 0.6, 1e-15);
  EXPECT_EQ(depth_where_the_sea_holds(20.0), 0.5);
}

TEST(PageFacts, TheDepthBeyondTheProfileIsThatOfItsEnd) {
  EXPECT_EQ(depth_where_the_sea_holds(-1.0), 1.0);
  EXPECT_EQ(depth_where_the_sea_holds(25.0), 0.5);
}

}  // namespace
}  // namespace Outputs
