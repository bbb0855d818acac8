// The site's limits of frequency and angle.
#include <gtest/gtest.h>

#include <cmath>

#include "site_script.h"
#include "support/thrown_item.h"

namespace {

using Testing::thrown_item;

namespace Limit = Common::Limit;

struct Angles {
  double max = 0.0;
  double min = 0.0;
};

Angles angles_of(const std::string& units, const std::string& max, const std::string& min) {
  Load site(site_with(
      "angle { units = \"deg\"; maximum = 60; minimum = -45; }",
      "angle { units = \"" + units + "\"; maximum = " + max + "; minimum = " + min + "; }"));
  EXPECT_TRUE(site.ok()) << site.failure << site.log_text.str();
  return {site.context().get(Limit::max_angle), site.context().get(Limit::min_angle)};
}

TEST(Limits, DegreesAreConvertedInFullPrecision) {
  const Angles angles = angles_of("deg", "30", "-90");
  EXPECT_NEAR(angles.max, M_PI / 6, 1e-15);
  EXPECT_NEAR(angles.min, -M_PI / 2, 1e-15);
}

TEST(Limits, RadiansAreKeptUnchanged) {
  const Angles angles = angles_of("rad", "0.75", "-0.5");
  EXPECT_EQ(angles.max, 0.75);
  EXPECT_EQ(angles.min, -0.5);
}

TEST(Limits, AnglesAreReducedToOneTurn) {
  const Angles angles = angles_of("rad", "7", "-4");
  EXPECT_NEAR(angles.max, 7 - 2 * M_PI, 1e-15);
  EXPECT_NEAR(angles.min, -4 + 2 * M_PI, 1e-15);
}

TEST(Limits, AWholeTurnIsASingleAngle) {
  const Angles turn = angles_of("deg", "360", "0");
  EXPECT_EQ(turn.max, turn.min);
  EXPECT_EQ(turn.min, 0.0);
  const Angles shifted = angles_of("deg", "370", "10");
  EXPECT_EQ(shifted.max, shifted.min);
  EXPECT_NEAR(shifted.min, M_PI / 18, 1e-15);
}

TEST(Limits, HalfATurnEachWayIsKeptApart) {
  const Angles angles = angles_of("deg", "180", "-180");
  EXPECT_DOUBLE_EQ(angles.max, M_PI);
  EXPECT_DOUBLE_EQ(angles.min, -M_PI);
}

TEST(Limits, AnglesWithinAMilliradianBecomeEqual) {
  const Angles close = angles_of("rad", "0.5009", "0.5");
  EXPECT_EQ(close.max, 0.5);
  const Angles below = angles_of("rad", "0.4991", "0.5");
  EXPECT_EQ(below.max, 0.5);
  const Angles apart = angles_of("rad", "0.5011", "0.5");
  EXPECT_EQ(apart.max, 0.5011);
}

TEST(Limits, UnknownAngleUnitsAreRefused) {
  Load site(site_with("units = \"deg\";", "units = \"grad\";"));
  EXPECT_EQ(site.caught_item(),
            "context::limits::Error::Unknown angle units grad in fixed limits\n");
}

TEST(Limits, EqualFrequenciesAreAccepted) {
  Load site(site_with("maximum = 2.25;", "maximum = 0.25;"));
  ASSERT_TRUE(site.ok()) << site.failure;
  EXPECT_EQ(site.context().get(Limit::max_freq), 0.25);
  EXPECT_EQ(site.context().get(Limit::min_freq), 0.25);
}

TEST(Limits, InvertedFrequenciesAreRefusedBeforeAngleUnits) {
  Load site(changed(site_with("maximum = 2.25;", "maximum = 0.2;"), "\"deg\"", "\"grad\""));
  EXPECT_EQ(site.caught_item(),
            "context::limits::Error::Error that max freq 0.2 is less than min freq 0.25\n");
}

TEST(Limits, ItemsHaveTheHeadingCreate) {
  Load site(full_script());
  Common::FixedLimits& limits = *site.context().limits.get();
  limits.angle.get()->units = "turns";
  Base::Params out;
  out.insert("geometry", std::string("NoSides"), std::string("Geometry"));
  EXPECT_EQ(thrown_item([&] { limits.get_consts(out); }),
            "item: Create: context::limits::Error::Unknown angle units turns in fixed limits");
}

TEST(Limits, NeedTheGeometryOfTheTank) {
  Load site(full_script());
  Base::Params out;
  EXPECT_EQ(thrown_item([&] { site.context().limits.get()->get_consts(out); }),
            "geometry::Not found");
}

TEST(Limits, MayHaveNoValue) {
  for (const char* key : {"maximum = 2.25;", "minimum = 0.25;"}) {
    Load site(site_with(key, std::string(key, 7) + " = $;"));
    ASSERT_TRUE(site.ok()) << site.failure << site.log_text.str();
    const bool maximum = key[1] == 'a';
    EXPECT_TRUE(std::isnan(site.context().get(maximum ? Limit::max_freq : Limit::min_freq)));
    EXPECT_EQ(site.context().get(maximum ? Limit::min_freq : Limit::max_freq),
              maximum ? 0.25 : 2.25);
  }
  const Angles low = angles_of("rad", "$", "0.5");
  EXPECT_TRUE(std::isnan(low.max));
  EXPECT_EQ(low.min, 0.5);
  const Angles high = angles_of("deg", "90", "$");
  EXPECT_NEAR(high.max, M_PI / 2, 1e-15);
  EXPECT_TRUE(std::isnan(high.min));
}

TEST(Limits, TheMaximumFrequencyMayBeInfinite) {
  Load site(site_with("maximum = 2.25;", "maximum = 1e999;"));
  ASSERT_TRUE(site.ok()) << site.failure;
  EXPECT_TRUE(std::isinf(site.context().get(Limit::max_freq)));
}

TEST(Limits, ManyTurnsAreRemoved) {
  const Angles angles = angles_of("deg", "3600000060.0", "-3599999955.0");
  EXPECT_NEAR(angles.max, M_PI / 3, 1e-6);
  EXPECT_NEAR(angles.min, M_PI / 4, 1e-6);
}

TEST(Limits, AnglesTooLargeToReduceAreRefused) {
  for (const char* value : {"1e300", "-1e17", "1e999"}) {
    for (const char* key : {"maximum = 60;", "minimum = -45;"}) {
      Load site(site_with(key, std::string(key, 7) + " = " + value + ";"));
      EXPECT_EQ(site.caught_item(),
                "context::limits::Error::Angle limits in fixed limits are too large\n")
          << value;
    }
  }
}

}  // namespace
