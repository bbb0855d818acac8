// Machines and paddles: one machine for each bank, its limits and its transfer function.
#include "site/machine.h"

#include <gtest/gtest.h>

#include <cmath>

#include "site_script.h"
#include "support/thrown_item.h"

namespace {

using Common::Flap;
using Common::Machine;
using Common::Piston;
using Testing::thrown_item;

const char* piston_text = R"(piston {
      paddle_width = 0.5; critical_dimension = 0; dimension_type = ToBottom;
      paddle_motion { clip_limit = 0.2; maximum = 0.25; minimum = -0.25; units = "m"; }
    }
    flap {)";

std::string without_flap() {
  const std::string text = full_script();
  return text.substr(0, text.find("flap {")) + "}\n" + text.substr(text.find("rate_units"));
}

TEST(Bank, NeedsAMachine) {
  EXPECT_EQ(Load(without_flap()).caught_item(),
            "context::wavemaker_bank[1]::Error::There should be one machine exactly but there "
            "are 0\n");
}

TEST(Bank, RefusesASecondMachine) {
  EXPECT_EQ(Load(site_with("flap {", piston_text)).caught_item(),
            "context::wavemaker_bank[1]::Error::There should be one machine exactly but there "
            "are 2\n");
}

TEST(Bank, ItemsHaveTheHeadingGeneral) {
  Common::Paddles bank;
  EXPECT_EQ(thrown_item([&] { bank.create(); }),
            "item: General: ::Error::There should be one machine exactly but there are 0");
}

// The block of the array gives every bank a flap.
TEST(Bank, TheFirstFaultyBankIsReported) {
  const std::string bank =
      "wavemaker_bank[2] { piston { paddle_width = 0.5; critical_dimension = 0; "
      "dimension_type = ToBottom; paddle_motion { clip_limit = 1; maximum = 1; minimum = -1; "
      "units = \"m\"; } } }\n  rate_units";
  Load site(
      changed(site_with("wavemaker_bank[1..1] {", "wavemaker_bank[3..1] {"), "rate_units", bank));
  EXPECT_EQ(site.caught_item(),
            "context::wavemaker_bank[2]::Error::There should be one machine exactly but there "
            "are 2\n");
}

TEST(Bank, ReadsItsPaddles) {
  Load site(changed(full_script(), "    flap {", "    pad_pos[2] { y = 0.85; }\n    flap {"));
  ASSERT_TRUE(site.ok()) << site.failure;
  const Common::Paddles& bank = site.context().wavemaker_bank[0];
  EXPECT_EQ(bank.name, "north");
  ASSERT_EQ(bank.pad_pos.size(), 2u);
  EXPECT_EQ(bank.pad_pos.offset(), 1);
  EXPECT_EQ(bank.pad_pos[0].x, 0.01);
  EXPECT_EQ(bank.pad_pos[0].y, 0.35);
  EXPECT_EQ(bank.pad_pos[0].angle, 0.03);
  EXPECT_EQ(bank.pad_pos[1].x, 0.01);
  EXPECT_EQ(bank.pad_pos[1].y, 0.85);
  EXPECT_EQ(bank.machines.size(), 1u);
}

TEST(Bank, TheMachineIsAFlapOrAPiston) {
  Load flap(full_script());
  EXPECT_EQ(flap.context().wavemaker_bank[0].machine().type(), 0u);
  const std::string text = without_flap();
  Load piston(changed(
      text, "pad_pos[2..1] { x = 0.01; y = 0.35; angle = 0.03; }",
      "pad_pos[2..1] { x = 0.01; y = 0.35; angle = 0.03; } piston { paddle_width = 0.5; "
      "critical_dimension = 0.1; dimension_type = ToBottom; paddle_motion { clip_limit = 0.2; "
      "maximum = 0.25; minimum = -0.25; units = \"m\"; } }"));
  ASSERT_TRUE(piston.ok()) << piston.failure << piston.log_text.str();
  const Machine& machine = piston.context().wavemaker_bank[0].machine();
  EXPECT_EQ(machine.type(), 1u);
  EXPECT_EQ(machine.paddle_width, 0.5);
  EXPECT_EQ(machine.critical_dimension, 0.1);
  EXPECT_EQ(machine.dimension_type.number, Machine::DimensionType_enum::ToBottom);
  EXPECT_EQ(machine.constant.size(), 0u);
}

TEST(Bank, ClassesHaveTheNamesOfTheChecksum) {
  EXPECT_STREQ(Common::Paddles().class_name(), "Paddles");
  EXPECT_STREQ(Common::PadPos().class_name(), "Paddle");
  EXPECT_STREQ(Flap().class_name(), "Flap");
  EXPECT_STREQ(Piston().class_name(), "Piston");
  EXPECT_STREQ(Flap().Machine::class_name(), "Machine");
  EXPECT_STREQ(Common::PaddleMotion().class_name(), "PaddleMotion");
  EXPECT_STREQ(Common::PaddleConst().class_name(), "PaddleConst");
  EXPECT_STREQ(Common::Context().class_name(), "Context");
  EXPECT_STREQ(Common::FixedLimits().class_name(), "Limits");
  EXPECT_STREQ(Common::FixedLimit().class_name(), "Limit");
  EXPECT_STREQ(Common::Tank().class_name(), "Tank");
  EXPECT_STREQ(Common::Section().class_name(), "Section");
  EXPECT_STREQ(Common::Param().class_name(), "Param");
}

TEST(Machine, ForwardsItemsToTheLogOfItsReader) {
  Load site(full_script());
  Script::LogItm item("General", Script::Level::info);
  item.add("running");
  site.context().wavemaker_bank[0].machine().message(item);
  EXPECT_EQ(site.log_text.str(), "Info::running\n");
  site.context().wavemaker_bank[0].machine().message(2.5F, item);
  EXPECT_EQ(site.log_text.str(), "Info::running\n2.5::Info::running\n");
  EXPECT_EQ(site.context().wavemaker_bank[0].machine().path(), "context::wavemaker_bank[1]::flap");
}

TEST(Machine, LimitsConvertFromTheirUnits) {
  Load site(full_script());
  const Machine& machine = site.context().wavemaker_bank[0].machine();
  const Base::Units rad = Base::resolve_units("rad");
  EXPECT_DOUBLE_EQ(machine.get(0, rad), 0.011);
  EXPECT_DOUBLE_EQ(machine.get(1, rad), 0.012);
  EXPECT_DOUBLE_EQ(machine.get(2, rad), -0.013);
  EXPECT_DOUBLE_EQ(machine.get(Machine::maximum, Base::resolve_units("deg")), 0.012 / 0.0174533);
  EXPECT_EQ(Base::units_text(machine.units()), "mrad");
}

TEST(Machine, HasThreeLimits) {
  Load site(full_script());
  const Machine& machine = site.context().wavemaker_bank[0].machine();
  const Base::Units rad = Base::resolve_units("rad");
  for (std::uint32_t which : {3u, 0xFFFFFFFFu}) {
    EXPECT_EQ(thrown_item([&] { machine.get(which, rad); }), "Unknown value type in machine::get");
  }
  // The kind of limit is checked before the units.
  EXPECT_EQ(thrown_item([&] { machine.get(3, Base::resolve_units("s")); }),
            "Unknown value type in machine::get");
  EXPECT_EQ(thrown_item([&] { machine.get(1, Base::resolve_units("s")); }),
            "Unable to convert from \"mrad\" to \"s\"");
}

TEST(Machine, OfNoTypeHasNoRatioAndNoSignal) {
  const Flap flap;
  EXPECT_EQ(thrown_item([&] { flap.Machine::ratio(1.0, 1.0, 0.5); }),
            "Unsupported type of machine found");
  EXPECT_EQ(thrown_item([&] { flap.Machine::signal_units(); }),
            "Unsupported type of machine found");
}

TEST(Machine, WithoutMotionIsNotBuilt) {
  Flap flap;
  Base::Params out;
  EXPECT_EQ(thrown_item([&] { flap.units(); }), "plain: Object not built");
  EXPECT_EQ(thrown_item([&] { flap.get(3, Base::Units{8, 0}); }), "plain: Object not built");
  EXPECT_EQ(thrown_item([&] { flap.get_limits(out); }), "plain: Object not built");
  EXPECT_TRUE(out.entries().empty());
}

TEST(Machine, UnknownUnitsAreRefusedAtTheFirstUse) {
  Load site(site_with("units = \"mrad\";", "units = \"turns\";"));
  ASSERT_TRUE(site.ok()) << site.failure;
  const Machine& machine = site.context().wavemaker_bank[0].machine();
  Base::Params out;
  EXPECT_EQ(thrown_item([&] { machine.units(); }), "Unknown units - turns");
  EXPECT_EQ(thrown_item([&] { machine.get_limits(out); }), "Unknown units - turns");
  // The units of the machine are resolved before the kind of limit is checked.
  EXPECT_EQ(thrown_item([&] { machine.get(3, Base::Units{8, 0}); }), "Unknown units - turns");
}

TEST(Machine, ReportsLimitsAndConstants) {
  Load site(full_script());
  Base::Params out;
  site.context().wavemaker_bank[0].machine().get_limits(out);
  ASSERT_EQ(out.entries().size(), 4u);
  EXPECT_EQ(out.at("clip_paddle_motion").value, 11.0);
  EXPECT_EQ(out.at("max_paddle_motion").value, 12.0);
  EXPECT_EQ(out.at("min_paddle_motion").value, -13.0);
  EXPECT_EQ(Base::units_text(out.at("clip_paddle_motion").units), "mrad");
  EXPECT_EQ(Base::units_text(out.at("max_paddle_motion").units), "mrad");
  EXPECT_EQ(Base::units_text(out.at("min_paddle_motion").units), "mrad");
  EXPECT_EQ(out.at("ratio").value, 7.5);
  EXPECT_EQ(Base::units_text(out.at("ratio").units), "mm");
}

TEST(Machine, LimitsAreReportedUnchecked) {
  std::string text = site_with("maximum = 12;", "maximum = -20;");
  Load site(changed(text, "clip_limit = 11;", "clip_limit = 99;"));
  ASSERT_TRUE(site.ok()) << site.failure;
  Base::Params out;
  site.context().wavemaker_bank[0].machine().get_limits(out);
  EXPECT_EQ(out.at("clip_paddle_motion").value, 99.0);
  EXPECT_EQ(out.at("max_paddle_motion").value, -20.0);
}

TEST(Machine, ConstantsOfEqualNameAreRefused) {
  Load site(changed(full_script(), "constant[1..1]", "constant[2..1]"));
  Base::Params out;
  EXPECT_EQ(thrown_item([&] { site.context().wavemaker_bank[0].machine().get_limits(out); }),
            "\"ratio\"::Duplicate parameter:");
}

// Transfer functions by linear wavemaker theory.

constexpr double depth = 1.2;
constexpr double wave_numbers[] = {0.05, 0.7, 2.5, 9.0};

// The obliquity of a wave at an angle from a segment of width w: the cosine over the mean of the
// phase factor along the segment.
double obliquity(double k, double w, double angle) {
  const double half_phase = 0.5 * k * w * std::sin(angle);
  const double sinc = half_phase == 0.0 ? 1.0 : std::sin(half_phase) / half_phase;
  return std::cos(angle) / sinc;
}

double expected_flap(double k, double e) {
  const double kh = k * depth;
  const double numerator = std::cosh(kh - k * e) + k * e * std::sinh(kh) - std::cosh(kh);
  return 4 * std::sinh(kh) * numerator / (k * (std::sinh(2 * kh) + 2 * kh));
}

double expected_piston(double k, double e) {
  const double kh = k * depth;
  return 4 * std::sinh(kh) * (std::sinh(kh) - std::sinh(kh - k * e)) / (std::sinh(2 * kh) + 2 * kh);
}

void set_up(Machine& machine, std::int32_t dimension_type, double dimension) {
  machine.paddle_width = 0.5;
  machine.dimension_type.number = dimension_type;
  machine.critical_dimension = dimension;
}

TEST(Transfer, OfAFlapFollowsTheory) {
  for (double k : wave_numbers) {
    for (double angle : {0.0, 0.3, -0.3, 1.1}) {
      Flap surface;
      set_up(surface, 1, 0.9);
      EXPECT_NEAR(
          surface.transfer(k, depth, angle) / (expected_flap(k, 0.9) / obliquity(k, 0.5, angle)),
          1.0, 1e-9)
          << k << " " << angle;
      Flap bottom;
      set_up(bottom, 0, 0.5);
      EXPECT_NEAR(
          bottom.transfer(k, depth, angle) / (expected_flap(k, 0.7) / obliquity(k, 0.5, angle)),
          1.0, 1e-9)
          << k << " " << angle;
    }
  }
}

TEST(Transfer, OfAPistonFollowsTheory) {
  for (double k : wave_numbers) {
    for (double angle : {0.0, 0.3, -0.3, 1.1}) {
      Piston surface;
      set_up(surface, 1, 0.9);
      EXPECT_NEAR(
          surface.transfer(k, depth, angle) / (expected_piston(k, 0.9) / obliquity(k, 0.5, angle)),
          1.0, 1e-9)
          << k << " " << angle;
      Piston bottom;
      set_up(bottom, 0, 0.5);
      EXPECT_NEAR(
          bottom.transfer(k, depth, angle) / (expected_piston(k, 0.7) / obliquity(k, 0.5, angle)),
          1.0, 1e-9)
          << k << " " << angle;
    }
  }
}

TEST(Transfer, WithoutAnAngleFollowsTheory) {
  for (double k : wave_numbers) {
    EXPECT_NEAR(Flap().ratio(k, depth, 0.9) / expected_flap(k, 0.9), 1.0, 1e-9) << k;
    EXPECT_NEAR(Piston().ratio(k, depth, 0.9) / expected_piston(k, 0.9), 1.0, 1e-9) << k;
  }
}

TEST(Transfer, OfAFullDepthPistonFollowsTheory) {
  Piston piston;
  set_up(piston, 0, 0.0);
  for (double k : wave_numbers) {
    const double s = std::sinh(k * depth);
    EXPECT_NEAR(piston.transfer(k, depth, 0.0), 2 * s * s / (std::cosh(k * depth) * s + k * depth),
                1e-12);
  }
}

TEST(Transfer, OfAFlapHingedAtTheBedFollowsTheory) {
  Flap flap;
  set_up(flap, 0, 0.0);
  for (double k : wave_numbers) {
    const double kh = k * depth;
    const double s = std::sinh(kh);
    const double c = std::cosh(kh);
    EXPECT_NEAR(flap.transfer(k, depth, 0.0) / (2 * s * (1 - c + kh * s) / (k * (c * s + kh))), 1.0,
                1e-9);
  }
}

TEST(Transfer, OfAFlapHingedAtTheWaterLineIsNaN) {
  Flap flap;
  set_up(flap, 1, 0.0);
  EXPECT_TRUE(std::isnan(flap.transfer(1.0, depth, 0.0)));
}

TEST(Transfer, ReadsUnknownDimensionTypesAsToBottom) {
  Flap flap;
  set_up(flap, 0, 0.4);
  const double expected = flap.transfer(1.5, depth, 0.2);
  for (std::int32_t number : {2, -1, Script::UnsetInteger}) {
    flap.dimension_type.number = number;
    EXPECT_EQ(flap.transfer(1.5, depth, 0.2), expected);
  }
}

}  // namespace
