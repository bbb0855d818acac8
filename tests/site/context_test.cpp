// The root object of a site: limit table, readiness, names, constants and checksum.
#include "site/context.h"

#include <gtest/gtest.h>

#include <cmath>

#include "site_script.h"
#include "support/thrown.h"
#include "support/thrown_item.h"

namespace {

using Common::Context;
using Testing::nothing_thrown;
using Testing::thrown_item;
namespace Limit = Common::Limit;

TEST(Context, TheLimitTableIsInBaseUnits) {
  Load site(full_script());
  ASSERT_TRUE(site.ok()) << site.failure;
  const Context& context = site.context();
  EXPECT_DOUBLE_EQ(context.get(0), 20.0);
  EXPECT_DOUBLE_EQ(context.get(1), 0.0);
  EXPECT_DOUBLE_EQ(context.get(2), 4.5);
  EXPECT_DOUBLE_EQ(context.get(3), -1.5);
  EXPECT_DOUBLE_EQ(context.get(4), 9.81);
  EXPECT_DOUBLE_EQ(context.get(5), 40.0);
  EXPECT_DOUBLE_EQ(context.get(6), 2.25);
  EXPECT_DOUBLE_EQ(context.get(7), 0.25);
  EXPECT_DOUBLE_EQ(context.get(8), M_PI / 3);
  EXPECT_DOUBLE_EQ(context.get(9), -M_PI / 4);
  EXPECT_EQ(context.geometry(), 3u);
}

TEST(Context, TheLimitTableIsAvailableBeforeMakeReady) {
  Load site(full_script());
  EXPECT_FALSE(site.context().ready());
  EXPECT_DOUBLE_EQ(site.context().get(Limit::max_x), 20.0);
}

TEST(Context, TheLimitTableHasTenEntries) {
  Load site(full_script());
  const Context& context = site.context();
  EXPECT_DOUBLE_EQ(context.get(9), context.get(Limit::min_angle));
  EXPECT_EQ(thrown_item([&] { context.get(10); }), "type out of range");
  EXPECT_EQ(thrown_item([&] { context.get(0x7FFFFFFF); }), "type out of range");
  EXPECT_EQ(thrown_item([&] { context.get(-1); }), "type out of range");
}

TEST(Context, ATankInMillimetresHasMetresInTheTableAndRawNumbersInTheConfiguration) {
  std::string text = site_with("units = m;", "units = mm;");
  text = changed(text, "x = 20;", "x = 20000;");
  text = changed(text, "max_y = 4.5;", "max_y = 4500;");
  text = changed(text, "min_y = -1.5;", "min_y = -1500;");
  Load site(text);
  ASSERT_TRUE(site.ok()) << site.failure;
  Context& context = site.context();
  context.make_ready();
  EXPECT_DOUBLE_EQ(context.get(Limit::max_x), 20.0);
  EXPECT_DOUBLE_EQ(context.get(Limit::max_y), 4.5);
  EXPECT_DOUBLE_EQ(context.get(Limit::min_y), -1.5);
  EXPECT_DOUBLE_EQ(context.tank_config().x_high, 20000.0);
  EXPECT_DOUBLE_EQ(context.tank_config().width, 6000.0);
  EXPECT_DOUBLE_EQ(context.tank_config().y_ref, 1500.0);
  EXPECT_DOUBLE_EQ(context.tank_config().paddle_depth, 0.8);
}

TEST(Context, ATankInFeetHasMetresInTheTable) {
  Load site(site_with("units = m;", "units = ft;"));
  ASSERT_TRUE(site.ok()) << site.failure;
  EXPECT_DOUBLE_EQ(site.context().get(Limit::max_x), 20.0 * 0.3048);
}

TEST(Context, ATankInYardsCannotBeLoaded) {
  Load site(site_with("units = m;", "units = yds;"));
  EXPECT_EQ(site.failure, site.path + "::Unable to convert from \"yds\" to \"m\"");
}

TEST(Context, ARateInRadiansPerSecondIsHertzInTheTable) {
  Load site(site_with("rate_units = Hz;", "rate_units = rad_s;"));
  ASSERT_TRUE(site.ok()) << site.failure;
  EXPECT_DOUBLE_EQ(site.context().get(Limit::base_rate), 40.0 / (2 * M_PI));
  site.context().make_ready();
  EXPECT_DOUBLE_EQ(site.context().tank_config().base_rate, 40.0 / (2 * M_PI));
}

TEST(Context, FrequencyLimitsConvertFromTheirUnits) {
  Load site(site_with("units = \"Hz\";", "units = \"rad/s\";"));
  ASSERT_TRUE(site.ok()) << site.failure;
  EXPECT_DOUBLE_EQ(site.context().get(Limit::max_freq), 2.25 / (2 * M_PI));
  EXPECT_DOUBLE_EQ(site.context().get(Limit::min_freq), 0.25 / (2 * M_PI));
}

TEST(Context, FrequencyLimitsInOtherUnitsAreRefusedWithThePath) {
  Load site(site_with("units = \"Hz\";", "units = \"s\";"));
  EXPECT_EQ(site.failure, site.path + "::Unable to convert from \"s\" to \"Hz\"");
  Load unknown(site_with("units = \"Hz\";", "units = \"Hertz\";"));
  EXPECT_EQ(unknown.failure, unknown.path + "::Unknown units - Hertz");
}

TEST(Context, TheConfigurationHasTheAnglesGravityAndRateOfTheTable) {
  Load site(full_script());
  site.context().make_ready();
  const Maths::TankConfig& config = site.context().tank_config();
  EXPECT_DOUBLE_EQ(config.max_angle, M_PI / 3);
  EXPECT_DOUBLE_EQ(config.min_angle, -M_PI / 4);
  EXPECT_DOUBLE_EQ(config.g, 9.81);
  EXPECT_DOUBLE_EQ(config.base_rate, 40.0);
}

TEST(Context, TheConfigurationIsRefusedUntilReady) {
  Load site(full_script());
  Context& context = site.context();
  const std::string refused =
      "item: General: context::Error::Attempting to access TankConfig when not made ready";
  EXPECT_EQ(thrown_item([&] { context.tank_config(); }), refused);
  context.make_ready();
  EXPECT_TRUE(context.ready());
  EXPECT_EQ(thrown_item([&] { context.tank_config(); }), nothing_thrown);
  context.clear_ready();
  EXPECT_EQ(thrown_item([&] { context.tank_config(); }), refused);
  context.make_ready();
  EXPECT_EQ(context.tank_config().profile.size(), 2u);
}

TEST(Context, ASecondMakeReadyIsRefused) {
  Load site(full_script());
  site.context().make_ready();
  EXPECT_EQ(thrown_item([&] { site.context().make_ready(); }),
            "item: General: context::Error::Make ready called when already ready");
  EXPECT_TRUE(site.context().ready());
}

TEST(Context, WithoutATankNothingIsBuilt) {
  Context context;
  Base::Params out;
  EXPECT_EQ(thrown_item([&] { context.make_ready(); }), "plain: Object not built");
  EXPECT_FALSE(context.ready());
  EXPECT_EQ(thrown_item([&] { context.get_consts(out); }), "plain: Object not built");
  EXPECT_TRUE(out.entries().empty());
}

TEST(Context, WithoutLimitsOnlyTheConstantsOfTheTankAreReported) {
  Context context;
  context.tank.build();
  Common::Tank& tank = *context.tank.get();
  tank.geometry.number = 0;
  tank.units.number = 1;
  tank.section.build(2, 1);
  Base::Params out;
  EXPECT_EQ(thrown_item([&] { context.get_consts(out); }), "plain: Object not built");
  EXPECT_TRUE(out.contains("geometry"));
}

TEST(Context, LimitsWithoutFrequencyOrAngleAreNotBuilt) {
  Common::FixedLimits limits;
  Base::Params out;
  out.insert("geometry", std::string("NoSides"), std::string("Geometry"));
  EXPECT_EQ(thrown_item([&] { limits.get_consts(out); }), "plain: Object not built");
  limits.frequency.build();
  limits.frequency.get()->maximum = 1;
  limits.frequency.get()->minimum = 1;
  EXPECT_EQ(thrown_item([&] { limits.get_consts(out); }), "plain: Object not built");
}

TEST(Context, ConstantsHaveTheirUnits) {
  Load site(site_with("rate_units = Hz;", "rate_units = rad_s;"));
  Base::Params out;
  site.context().get_consts(out);
  const std::pair<const char*, const char*> expected[] = {
      {"base_g", "m/s2"}, {"base_rate", "rad/s"}, {"max_angle", "rad"}, {"max_freq", "Hz"},
      {"max_gain", "cm"}, {"max_x", "m"},         {"max_y", "m"},       {"min_angle", "rad"},
      {"min_freq", "Hz"}, {"min_gain", "cm"},     {"min_x", "m"},       {"min_y", "m"},
  };
  EXPECT_EQ(out.entries().size(), std::size(expected) + 1);
  for (const auto& [name, units] : expected) {
    ASSERT_TRUE(out.contains(name)) << name;
    EXPECT_EQ(Base::units_text(out.at(name).units), units) << name;
  }
  EXPECT_EQ(out.get_enum("geometry", "Geometry"), 3u);
  EXPECT_DOUBLE_EQ(out.get("base_rate", "rad/s"), 40.0);
  EXPECT_DOUBLE_EQ(out.get("base_g", "m/s2"), 9.81);
  EXPECT_DOUBLE_EQ(out.get("max_gain", "cm"), 2.5);
  EXPECT_DOUBLE_EQ(out.get("min_gain", "cm"), 0.5);
}

TEST(Context, ConstantsThatExistAlreadyAreRefused) {
  Load site(full_script());
  Base::Params out;
  site.context().get_consts(out);
  EXPECT_EQ(thrown_item([&] { site.context().get_consts(out); }),
            "\"min_x\"::Duplicate parameter:");
}

TEST(Context, ARateInUnknownUnitsIsRefused) {
  Load site(full_script());
  for (std::int32_t number : {2, -1, Script::UnsetInteger}) {
    site.context().rate_units.number = number;
    Base::Params out;
    EXPECT_EQ(thrown_item([&] { site.context().get_consts(out); }), "Unsupported units for rate");
    EXPECT_TRUE(out.contains("max_freq"));
    EXPECT_FALSE(out.contains("base_rate"));
  }
}

TEST(Context, TheFullNameJoinsTankAndConfiguration) {
  Load site(full_script());
  EXPECT_EQ(site.context().full_name(), "Basin Spring");
}

TEST(Context, TheIdentityEndsInTheHexadecimalChecksum) {
  Load site(full_script());
  EXPECT_EQ(site.context().identity(0x1F2E3D4Cu), "Bay::Basin::Spring#0x1f2e3d4c");
  EXPECT_EQ(site.context().identity(0xFFFFFFFFu), "Bay::Basin::Spring#0xffffffff");
  EXPECT_EQ(site.context().identity(10u), "Bay::Basin::Spring#0xa");
  EXPECT_EQ(site.context().identity(0u), "Bay::Basin::Spring#0x0");
}

// The analysis of records needs neither rate nor gravity. A wave that needs them is refused later.
TEST(Context, RateAndGravityAreNotChecked) {
  const std::pair<const char*, double> values[] = {{"0", 0.0}, {"-40", -40.0}};
  for (const auto& [text, number] : values) {
    Load rate(site_with("base_rate = 40;", std::string("base_rate = ") + text + ";"));
    ASSERT_TRUE(rate.ok()) << rate.failure << rate.log_text.str();
    EXPECT_EQ(rate.context().get(Limit::base_rate), number);
    Load gravity(site_with("base_g = 9.81;", std::string("base_g = ") + text + ";"));
    ASSERT_TRUE(gravity.ok()) << gravity.failure << gravity.log_text.str();
    gravity.context().make_ready();
    EXPECT_EQ(gravity.context().tank_config().g, number);
  }
  Load none(
      changed(site_with("base_rate = 40;", "base_rate = $;"), "base_g = 9.81;", "base_g = $;"));
  ASSERT_TRUE(none.ok()) << none.failure << none.log_text.str();
  EXPECT_TRUE(std::isnan(none.context().get(Limit::base_rate)));
  EXPECT_TRUE(std::isnan(none.context().get(Limit::base_g)));
  EXPECT_EQ(none.context().full_name(), "Basin Spring");
}

TEST(Context, TheDensityMayHaveNoValue) {
  Load site(site_with("base_rho = 1000;", "base_rho = $;"));
  EXPECT_TRUE(site.ok()) << site.failure;
}

TEST(Context, TheTankIsCheckedBeforeTheBanksAndTheBanksBeforeTheLimits) {
  std::string text = site_with("maximum = 2.25;", "maximum = 0.125;");
  Load limits(text);
  EXPECT_EQ(limits.caught_item(),
            "context::limits::Error::Error that max freq 0.125 is less than min freq 0.25\n");
  const std::size_t flap = text.find("flap {");
  text = text.substr(0, flap) + "}\n" + text.substr(text.find("rate_units"));
  Load banks(text);
  EXPECT_EQ(banks.caught_item(),
            "context::wavemaker_bank[1]::Error::There should be one machine exactly but there "
            "are 0\n");
  Load tank(changed(text, "max_y = 4.5;", "max_y = -2;"));
  EXPECT_EQ(tank.caught_item(), "context::tank::Error::Max Y -2 is less than Min Y -1.5\n");
}

TEST(Checksum, IgnoresOnlyTunableValues) {
  const std::uint32_t plain = Load(full_script()).reader.checksum();
  EXPECT_EQ(Load(full_script()).reader.checksum(), plain);
  EXPECT_EQ(Load(site_with("value = 1.25;", "value = 1.75;")).reader.checksum(), plain);
  EXPECT_NE(Load(site_with("value = 1.25;", "value = 1.75;")).reader.checksum(false),
            Load(full_script()).reader.checksum(false));
  const std::pair<const char*, const char*> fixed[] = {
      {"\"Spring\"", "\"Winter\""},
      {"geometry = BothSides;", "geometry = NoSides;"},
      {"max_y = 4.5;", "max_y = 4.75;"},
      {"depth = \"0.8\";", "depth = \"0.9\";"},
      {"max = 2.5;", "max = 2.75;"},
      {"error = 0.125;", "error = 0.25;"},
      {"maximum = 2.25;", "maximum = 2.5;"},
      {"y = 0.35;", "y = 0.45;"},
      {"ToSurface", "ToBottom"},
      {"clip_limit = 11;", "clip_limit = 10;"},
      {"value = 7.5;", "value = 8.5;"},
      {"base_rho = 1000;", "base_rho = 999;"},
  };
  for (const auto& [from, to] : fixed) {
    Load other(site_with(from, to));
    ASSERT_TRUE(other.ok()) << from << other.failure;
    EXPECT_NE(other.reader.checksum(), plain) << from;
  }
}

TEST(Checksum, IsUnchangedWhenTheHostTunesTheTank) {
  Load site(full_script());
  const std::uint32_t before = site.reader.checksum();
  Base::Params in;
  in.insert("gain", 0.02, "m");
  site.context().tank.get()->set(in);
  EXPECT_EQ(site.reader.checksum(), before);
}

}  // namespace
