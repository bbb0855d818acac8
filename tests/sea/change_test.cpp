// Gain, direction and phase by a formula of frequency.
#include "sea/change.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/modifiers.h"
#include "support/thrown.h"

namespace {

using Synthesis::AngleChangeModifier;
using Synthesis::GainChangeModifier;
using Synthesis::Modifier;
using Synthesis::PhaseChangeModifier;
using Testing::degree;
using Testing::Filled;
using Testing::pi;
using Testing::Sea;
using Testing::set;
using Testing::thrown;

Filled with_set(const char* member) { return Filled().member("set", member, "Bool"); }

TEST(Change, HaveTheNamesAndSlotsThatHostsExpect) {
  EXPECT_EQ(GainChangeModifier("1").name(), "Gain");
  EXPECT_EQ(GainChangeModifier("1").slot(), Modifier::gain);
  EXPECT_EQ(AngleChangeModifier("1@deg").name(), "AngleChangModifier");
  EXPECT_EQ(AngleChangeModifier("1@deg").slot(), Modifier::angle);
  EXPECT_EQ(PhaseChangeModifier("1@deg").name(), "PhaseModifier");
  EXPECT_EQ(PhaseChangeModifier("1@deg").slot(), Modifier::phase);
}

TEST(Change, OutputUnitsAreThoseOfTheChangedQuantity) {
  EXPECT_EQ(thrown([] { GainChangeModifier("1@deg"); }),
            "Incorrect output units in expression 0 deg, 1");
  EXPECT_EQ(thrown([] { AngleChangeModifier("1@m"); }),
            "Incorrect output units in expression 0 m, 17");
  EXPECT_EQ(thrown([] { PhaseChangeModifier("1@m"); }),
            "Incorrect output units in expression 0 m, 17");
  for (const char* text : {"1@rad#1@m#1@rad", "1@rad#1@m#1@deg"}) {
    EXPECT_EQ(thrown([&] { AngleChangeModifier{text}; }),
              "Incorrect limit units in expression m, 11");
    EXPECT_EQ(thrown([&] { PhaseChangeModifier{text}; }),
              "Incorrect limit units in expression m, 11");
  }
  EXPECT_EQ(thrown([] { GainChangeModifier("1#1@m#1"); }),
            "Incorrect limit units in expression m, 11");
}

TEST(Change, TheGainTakesNoParameter) {
  Base::Params out;
  GainChangeModifier("1").query(out);
  EXPECT_TRUE(out.entries().empty());
}

TEST(Change, DirectionAndPhaseDeclareWhetherToSet) {
  Base::Params angle;
  Base::Params phase;
  AngleChangeModifier("1@deg").query(angle);
  PhaseChangeModifier("1@deg").query(phase);
  for (const Base::Params* out : {&angle, &phase}) {
    ASSERT_EQ(out->entries().size(), 1U);
    EXPECT_EQ(out->at("set").enum_type(), Base::EnumType::Bool);
  }
}

TEST(Change, SetIsRequiredAndMustBeABool) {
  AngleChangeModifier angle("1@deg");
  PhaseChangeModifier phase("1@deg");
  for (Modifier* modifier : {static_cast<Modifier*>(&angle), static_cast<Modifier*>(&phase)}) {
    Sea sea;
    EXPECT_EQ(thrown([&] { sea.modify(*modifier); }), "set::Not found");
    EXPECT_EQ(thrown([&] { set(*modifier); }), "set::Not found");
    set(*modifier, Filled().member("set", "Null", "WaveMerge"));
    EXPECT_EQ(thrown([&] { sea.modify(*modifier); }), "set::wrong enum type");
  }
}

TEST(Change, AGainMultipliesEveryFrontByTheValueAtItsFrequency) {
  GainChangeModifier gain("2*$[Hz]#0.5@Hz#3");
  Sea sea;
  sea.at(4) = {{0.1, 0.2, 0.3}, {-0.2, 0.4, 0.5}};
  sea.at(5) = {{0.1, 0.0, 0.0}};
  sea.at(6) = {{0.1, 0.0, 0.0}};
  set(gain);
  sea.modify(gain);
  ASSERT_EQ(sea.at(4).size(), 2U);
  EXPECT_DOUBLE_EQ(sea.at(4)[0].amp, 0.08);
  EXPECT_DOUBLE_EQ(sea.at(4)[1].amp, -0.16);
  EXPECT_EQ(sea.at(4)[1].angle, 0.4);
  EXPECT_EQ(sea.at(4)[1].phase, 0.5);
  // The limit itself belongs to the function below it.
  EXPECT_DOUBLE_EQ(sea.at(5)[0].amp, 0.1);
  EXPECT_DOUBLE_EQ(sea.at(6)[0].amp, 0.3);
  EXPECT_TRUE(sea.messages.empty());
}

TEST(Change, AboveTheLastLimitTheLastGainHolds) {
  GainChangeModifier gain("1#0.3@Hz#2#0.6@Hz#4");
  Sea sea;
  for (std::size_t h : {3U, 4U, 6U, 7U, 20U}) sea.at(h) = {{0.1, 0.0, 0.0}};
  set(gain);
  sea.modify(gain);
  EXPECT_DOUBLE_EQ(sea.at(3)[0].amp, 0.1);
  EXPECT_DOUBLE_EQ(sea.at(4)[0].amp, 0.2);
  EXPECT_DOUBLE_EQ(sea.at(6)[0].amp, 0.2);
  EXPECT_DOUBLE_EQ(sea.at(7)[0].amp, 0.4);
  EXPECT_DOUBLE_EQ(sea.at(20)[0].amp, 0.4);
}

TEST(Change, AGainOfZeroLeavesFrontsOfZeroAmplitude) {
  GainChangeModifier gain("0");
  Sea sea;
  sea.at(4) = {{0.1, 0.2, 0.3}, {0.2, 0.0, 0.0}};
  sea.modify(gain);
  ASSERT_EQ(sea.at(4).size(), 2U);
  EXPECT_EQ(sea.at(4)[0].amp, 0.0);
  EXPECT_EQ(sea.at(4)[0].phase, 0.3);
}

TEST(Change, SlotsWithoutFrontsAreNotEvaluated) {
  // tgamma refuses arguments of 0 and below, so a value below 0.45 Hz would fail.
  GainChangeModifier gain("tgamma($[Hz]-0.45)");
  Sea sea;
  sea.at(8) = {{0.1, 0.0, 0.0}};
  set(gain);
  sea.modify(gain);
  EXPECT_NEAR(sea.at(8)[0].amp, 0.1 * std::tgamma(0.35), 1e-12);
  sea.at(4) = {{0.1, 0.0, 0.0}};
  EXPECT_EQ(thrown([&] { sea.modify(gain); }).substr(0, 29), "tgamma: Invalid input argumen");
}

TEST(Change, AnAngleIsAddedToTheDirection) {
  AngleChangeModifier change("100*$[Hz]@deg");
  Sea sea;
  sea.at(4) = {{0.1, 0.2, 0.3}, {0.1, -0.5, 0.3}};
  set(change, with_set("False"));
  sea.modify(change);
  EXPECT_NEAR(sea.at(4)[0].angle, 0.2 + 40 * degree, 1e-14);
  EXPECT_NEAR(sea.at(4)[1].angle, -0.5 + 40 * degree, 1e-14);
  EXPECT_EQ(sea.at(4)[0].amp, 0.1);
  EXPECT_EQ(sea.at(4)[0].phase, 0.3);
}

TEST(Change, AnAngleReplacesTheDirection) {
  AngleChangeModifier change("100*$[Hz]@deg");
  Sea sea;
  sea.at(4) = {{0.1, 0.2, 0.3}, {0.1, -0.5, 0.3}};
  set(change, with_set("True"));
  sea.modify(change);
  for (const Maths::HarmonicFront& front : sea.at(4)) {
    EXPECT_NEAR(front.angle, 40 * degree, 1e-14);
  }
}

TEST(Change, DirectionsAreWrapped) {
  AngleChangeModifier change("100@deg");
  Sea sea;
  sea.at(4) = {{0.1, 2.0, 0.0}};
  set(change, with_set("False"));
  sea.modify(change);
  EXPECT_NEAR(sea.at(4)[0].angle, 2.0 + 100 * degree - 2 * pi, 1e-14);
  AngleChangeModifier full("350@deg");
  set(full, with_set("True"));
  sea.modify(full);
  EXPECT_NEAR(sea.at(4)[0].angle, 350 * degree - 2 * pi, 1e-14);
}

TEST(Change, APhaseIsAddedOrReplacedAndNotWrapped) {
  PhaseChangeModifier change("1000*$[Hz]@deg");
  Sea sea;
  sea.at(4) = {{0.1, 0.2, 3.0}, {0.1, 0.2, -1.0}};
  set(change, with_set("False"));
  sea.modify(change);
  EXPECT_NEAR(sea.at(4)[0].phase, 3.0 + 400 * degree, 1e-13);
  EXPECT_NEAR(sea.at(4)[1].phase, -1.0 + 400 * degree, 1e-13);
  EXPECT_EQ(sea.at(4)[0].angle, 0.2);
  PhaseChangeModifier place("1000*$[Hz]@deg");
  set(place, with_set("True"));
  sea.modify(place);
  EXPECT_NEAR(sea.at(4)[0].phase, 400 * degree, 1e-13);
  EXPECT_NEAR(sea.at(4)[1].phase, 400 * degree, 1e-13);
}

TEST(Change, ASecondSetDoesNotChangeWhetherToSet) {
  PhaseChangeModifier change("b[rad]@rad");
  Sea sea;
  sea.at(4) = {{0.1, 0.0, 1.0}};
  set(change, with_set("False").with("b", 0.25, "rad"));
  set(change, with_set("True").with("b", 0.5, "rad"));
  sea.modify(change);
  EXPECT_EQ(sea.at(4)[0].phase, 1.5);
}

}  // namespace
