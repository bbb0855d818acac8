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

TEST(PageFacts, TheDepthOfAProfileWithoutPointsIsZero) {
  Testing::Json summary = Testing::bare_summary();
  summary["plan"]["profile"] = {{"x", Testing::Json::array()}, {"depth", Testing::Json::array()}};
  EXPECT_EQ(page_facts(summary).depth, 0.0);
}

TEST(PageFacts, TheDepthIsZeroWhereThePlanHasNone) {
  Testing::Json summary = Testing::bare_summary();
  summary["plan"]["profile"] = {{"x", {0.0, 10.0}}, {"depth", {nullptr}}};
  summary["seas"] = {{{"holds", {{"x", 5.0}}}}};
  EXPECT_EQ(page_facts(summary).depth, 0.0);
}

TEST(PageFacts, ThePeakIsTheFrequencyOfTheGreatestDensity) {
  Testing::Json summary = Testing::bare_summary();
  summary["spectrum"] = {{"f", {0.5, 0.6, 0.7, 0.8}}, {"made", {nullptr, 0.2, 0.3, 0.1}}};
  EXPECT_EQ(page_facts(summary).peak, 0.7);
}

// Older versions wrote no spectrum.
TEST(PageFacts, ThePeakMayBeThatOfTheFinding) {
  Testing::Json summary = Testing::bare_summary();
  const auto peak_with = [&](const Testing::Json& findings) {
    summary["findings"] = findings;
    return page_facts(summary).peak;
  };
  const Testing::Json height = {{"key", "hm0"}, {"made", 0.08}};
  const Testing::Json period = {{"key", "tp"}, {"made", 1.6}};
  EXPECT_EQ(peak_with({height, period}), 0.625);
  // The highest frequency of the run: 20 harmonics of 10 s.
  EXPECT_EQ(peak_with({height, {{"key", "tp"}, {"made", nullptr}}}), 2.0);
  EXPECT_EQ(peak_with({height, {{"key", "tp"}, {"made", 0.0}}}), 2.0);
}

}  // namespace
}  // namespace Outputs
