// A fan of fixed directions.
#include "sea/angle_sweep.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/modifiers.h"
#include "support/own_process.h"
#include "support/thrown.h"

namespace {

using Synthesis::AngleSweepModifier;
using Testing::degree;
using Testing::Filled;
using Testing::Fronts;
using Testing::pi;
using Testing::Sea;
using Testing::set;
using Testing::thrown;

Filled step(double degrees) { return Filled().with("delta_angle", degrees, "deg"); }

// A sea of one harmonic in a tank between these angles, in degrees, with a fan made of it.
struct Swept : Sea {
  Swept(const std::string& text, double lo, double hi, double delta) {
    tank.min_angle = lo * degree;
    tank.max_angle = hi * degree;
    at(5) = {{0.3, 0.7, 1.1}};
    AngleSweepModifier sweep(text);
    set(sweep, step(delta));
    modify(sweep);
  }
  std::vector<double> degrees() {
    std::vector<double> found;
    for (const Maths::HarmonicFront& front : at(5)) found.push_back(front.angle / degree);
    return found;
  }
};

void expect_near(const std::vector<double>& found, const std::vector<double>& expected,
                 double tolerance = 1e-9) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], expected[i], tolerance) << i;
}

TEST(AngleSweep, IsAnAngleModifierWithAFunctionOfAngle) {
  AngleSweepModifier sweep("1#0@deg#2#10@rad#3");
  EXPECT_EQ(sweep.name(), "AngleSweepModifier");
  EXPECT_EQ(sweep.slot(), Synthesis::Modifier::angle);
  EXPECT_EQ(thrown([] { AngleSweepModifier("1@deg"); }),
            "Incorrect output units in expression 0 deg, 1");
  EXPECT_EQ(thrown([] { AngleSweepModifier("1#1@Hz#1"); }),
            "Incorrect limit units in expression Hz, 17");
  AngleSweepModifier of_frequency("$[Hz]");
  EXPECT_EQ(thrown([&] { set(of_frequency, step(10)); }), "Incompatible expression");
}

TEST(AngleSweep, DeclaresItsStep) {
  Base::Params out;
  AngleSweepModifier("1").query(out);
  ASSERT_EQ(out.entries().size(), 1U);
  EXPECT_EQ(Base::category_of(out.at("delta_angle").units), Base::Category::angle);
}

TEST(AngleSweep, TheStepIsRequired) {
  AngleSweepModifier sweep("1");
  Sea sea;
  EXPECT_EQ(thrown([&] { set(sweep); }), "delta_angle::Not found");
  EXPECT_EQ(thrown([&] { sea.modify(sweep); }), "delta_angle::Not found");
  set(sweep, Filled().with("delta_angle", 1, "m"));
  EXPECT_EQ(thrown([&] { sea.modify(sweep); }), "delta_angle::not convertable");
}

TEST(AngleSweep, TheFanRunsFromTheLowestAngleToTheHighest) {
  Swept sea("1", -30, 50, 20);
  expect_near(sea.degrees(), {-30, -10, 10, 30, 50});
  for (const Maths::HarmonicFront& front : sea.at(5)) {
    EXPECT_NEAR(front.amp, 0.06, 1e-15);
    EXPECT_EQ(front.phase, 1.1);
  }
}

TEST(AngleSweep, TheStepIsFittedToTheRange) {
  expect_near(Swept("1", -30, 50, 30).degrees(), {-30, -30 + 80 / 3.0, -30 + 160 / 3.0, 50});
  expect_near(Swept("1", -30, 50, 33).degrees(), {-30, 10, 50});
  expect_near(Swept("1", -30, 50, 150).degrees(), {-30, 50});
}

TEST(AngleSweep, TheAmplitudeIsSharedOutByWeight) {
  Swept sea("cos($[rad])^2", -90, 90, 10);
  // 17 directions: the weight vanishes at both ends.
  ASSERT_EQ(sea.at(5).size(), 17U);
  double sum = 0.0;
  for (int i = 1; i <= 17; ++i) sum += std::pow(std::sin(i * 10 * degree), 2);
  double total = 0.0;
  for (std::size_t i = 0; i < 17; ++i) {
    const double angle = (-80 + 10.0 * static_cast<double>(i)) * degree;
    EXPECT_NEAR(sea.at(5)[i].angle, angle, 1e-12);
    EXPECT_NEAR(sea.at(5)[i].amp, 0.3 * std::pow(std::cos(angle), 2) / sum, 1e-14);
    total += sea.at(5)[i].amp;
  }
  EXPECT_NEAR(total, 0.3, 1e-14);
}

TEST(AngleSweep, WeightsOfAMillionthAndBelowAreLeftOut) {
  EXPECT_EQ(Swept("1#-1@deg#0.000001#1@deg#1", -10, 10, 10).at(5).size(), 2U);
  EXPECT_EQ(Swept("1#-1@deg#0.0000011#1@deg#1", -10, 10, 10).at(5).size(), 3U);
  EXPECT_EQ(Swept("1#-1@deg#0-5#1@deg#1", -10, 10, 10).at(5).size(), 2U);
  EXPECT_EQ(Swept("1#-1@deg#sqrt(0-1)#1@deg#1", -10, 10, 10).at(5).size(), 2U);
}

TEST(AngleSweep, AnExpressionOfZeroHasNoOutput) {
  for (const char* text : {"0", "0-1", "1#-50@deg#0#50@deg#1"}) {
    EXPECT_EQ(thrown([&] { Swept(text, -30, 30, 10); }), "Sweep has zero output") << text;
  }
}

TEST(AngleSweep, AMinimumAboveTheMaximumPassesThroughPi) {
  // The table of units has not quite 360 degrees to a turn.
  expect_near(Swept("1", 150, -150, 20).degrees(), {150, 170, -170, -150}, 1e-3);
  expect_near(Swept("1", 10, -10, 85).degrees(), {10, 95, 180, -95, -10}, 1e-3);
}

TEST(AngleSweep, OnlyTheFirstFrontOfAHarmonicIsKept) {
  Sea sea;
  sea.tank.min_angle = -0.5;
  sea.tank.max_angle = 0.5;
  sea.at(3) = {{0.2, 0.0, 0.4}, {0.9, 0.1, 0.5}};
  sea.at(8) = {{-0.4, 0.0, 0.6}};
  AngleSweepModifier sweep("1");
  set(sweep, Filled().with("delta_angle", 0.5, "rad"));
  sea.modify(sweep);
  ASSERT_EQ(sea.at(3).size(), 3U);
  ASSERT_EQ(sea.at(8).size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(sea.at(3)[i].amp, 0.2 / 3, 1e-15);
    EXPECT_EQ(sea.at(3)[i].phase, 0.4);
    EXPECT_NEAR(sea.at(8)[i].amp, -0.4 / 3, 1e-15);
    EXPECT_EQ(sea.at(8)[i].phase, 0.6);
  }
  EXPECT_TRUE(sea.at(4).empty());
}

TEST(AngleSweep, FrontsOfZeroAmplitudeAreSweptToo) {
  Sea sea;
  sea.at(3) = {{0.0, 0.0, 0.4}};
  AngleSweepModifier sweep("1");
  set(sweep, step(90));
  sea.modify(sweep);
  EXPECT_EQ(sea.at(3).size(), 5U);
}

TEST(AngleSweep, AStepThatIsNotPositiveHasNoOutput) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double delta : {0.0, -10.0, nan, 1e-300}) {
    EXPECT_EQ(thrown([&] { Swept("1", -30, 30, delta); }), "Sweep has zero output") << delta;
  }
  EXPECT_EQ(thrown([&] { Swept("1", -30, 30, inf); }),
            "AngleSweepModifier::delta_angle of inf rad gives no usable fan of directions");
}

TEST(AngleSweep, AStepOfMoreThanTwiceTheRangeIsRefused) {
  EXPECT_EQ(thrown([&] { Swept("1", -30, 30, 180); }),
            "AngleSweepModifier::delta_angle of 3.14159 rad gives no usable fan of directions");
  EXPECT_EQ(thrown([&] { Swept("1", 30, 30, 10); }),
            "AngleSweepModifier::delta_angle of 0.174533 rad gives no usable fan of directions");
  EXPECT_EQ(Swept("1", -30, 30, 120).at(5).size(), 2U);
  EXPECT_EQ(thrown([&] { Swept("0", 30, 30, 10); }), "Sweep has zero output");
}

const std::string no_usable_fan = " rad gives no usable fan of directions";

TEST(AngleSweep, MoreThanSixteenMillionFrontsAreRefused) {
  Sea sea(1000.0);
  sea.tank.min_angle = 0.0;
  sea.tank.max_angle = 1.0;
  AngleSweepModifier sweep("1");
  set(sweep, Filled().with("delta_angle", 1.0 / 16384, "rad"));
  sea.at(1) = {{0.1, 0.0, 0.0}};
  sea.modify(sweep);
  EXPECT_EQ(sea.at(1).size(), 16385U);
  for (std::size_t h = 1; h <= 1024; ++h) sea.at(h) = {{0.1, 0.0, 0.0}};
  EXPECT_EQ(thrown([&] { sea.modify(sweep); }),
            "AngleSweepModifier::delta_angle of 6.10352e-05" + no_usable_fan);
}

TEST(AngleSweep, AFanThatIsTooLargeIsRefusedBeforeItIsComplete) {
  Sea sea(1000.0);
  sea.tank.min_angle = 0.0;
  sea.tank.max_angle = 1.0;
  for (std::size_t h = 1; h <= 1024; ++h) sea.at(h) = {{0.1, 0.0, 0.0}};
  AngleSweepModifier sweep("1");
  set(sweep, Filled().with("delta_angle", 1.0 / (1 << 25), "rad"));
  // The whole fan would take 512 MB.
  EXPECT_TRUE(Testing::sanitized || Testing::good_alone([&] {
                Testing::leave_room(64e6);
                return thrown([&] { sea.modify(sweep); }) ==
                       "AngleSweepModifier::delta_angle of 2.98023e-08" + no_usable_fan;
              }));
}

TEST(AngleSweep, ARangeOfTooManyStepsIsRefusedEvenWithoutFronts) {
  for (const char* text : {"1", "0#0.25@rad#1#0.75@rad#0"}) {
    Sea sea;
    sea.tank.min_angle = 0.0;
    sea.tank.max_angle = 1.0;
    AngleSweepModifier sweep(text);
    set(sweep, Filled().with("delta_angle", 1e-9, "rad"));
    EXPECT_EQ(thrown([&] { sea.modify(sweep); }),
              "AngleSweepModifier::delta_angle of 1e-09" + no_usable_fan);
  }
}

TEST(AngleSweep, DirectionsThatDoNotFitIntoMemoryAreRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([] {
    Sea sea;
    sea.tank.min_angle = 0.0;
    sea.tank.max_angle = 1.0;
    sea.at(5) = {{0.1, 0.0, 0.0}};
    AngleSweepModifier sweep("1");
    set(sweep, Filled().with("delta_angle", 4e-7, "rad"));  // 2.5 million directions, 40 MB
    Testing::leave_room(30e6);
    return thrown([&] { sea.modify(sweep); }).starts_with("Front set::more fronts need 0.0") &&
           sea.at(5).size() == 1;
  }));
}

// More than 16 million directions for all harmonics, of which 26 or 27 each lie in the sector.
TEST(AngleSweep, AFineStepOverANarrowSectorIsAccepted) {
  const std::size_t harmonics = 100;
  Sea sea(100.0);
  sea.tank.min_angle = 0.0;
  sea.tank.max_angle = 1.0;
  for (std::size_t h = 1; h <= harmonics; ++h) sea.at(h) = {{0.1, 0.0, 0.0}};
  AngleSweepModifier sweep("0#0.5@rad#1#0.5001@rad#0");
  const double step = 1.0 / 262144;
  set(sweep, Filled().with("delta_angle", step, "rad"));
  sea.modify(sweep);
  for (std::size_t h = 1; h <= harmonics; ++h) {
    ASSERT_NEAR(static_cast<double>(sea.at(h).size()), 1e-4 / step, 1.0) << h;
    EXPECT_NEAR(sea.at(h).front().angle, 0.5, step);
    EXPECT_NEAR(sea.at(h).back().angle, 0.5001, step);
    EXPECT_NEAR(sea.at(h).front().amp * static_cast<double>(sea.at(h).size()), 0.1, 1e-12);
  }
}

}  // namespace
