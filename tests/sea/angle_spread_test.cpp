// Directions at random: the parameters, and single draws.
#include "sea/angle_spread.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/draws.h"
#include "support/modifiers.h"
#include "support/thrown.h"

namespace {

using Synthesis::AngleSpreadModifier;
using Testing::comments;
using Testing::degree;
using Testing::Draws;
using Testing::Filled;
using Testing::nothing_thrown;
using Testing::pi;
using Testing::Sea;
using Testing::set;
using Testing::thrown;

using Strings = std::vector<std::string>;

// The limits of CosS and Cos2S in degrees, just short of their zeros.
const double quarter = (pi / 2 - 0.0001) / degree;
const double half = (pi - 0.0001) / degree;
const double turn = 2 * pi / degree;

Filled spread(const char* function, double angle, double lo, double hi, const char* units = "deg") {
  return Filled()
      .member("function", function, "SpreadFunc")
      .with("angle", angle, units)
      .with("min_angle", lo, units)
      .with("max_angle", hi, units)
      .member("ran_gen", "Default", "RanGen");
}

// The angles that `set` writes back, and its comments.
struct Asked {
  Asked(const char* function, double angle, double lo, double hi, const char* units = "deg") {
    Filled params = spread(function, angle, lo, hi, units);
    AngleSpreadModifier modifier("1");
    failure = thrown([&] { modifier.set(params); });
    low = params.get("min_angle", units);
    high = params.get("max_angle", units);
    remarks = comments(params);
  }
  double low;
  double high;
  std::string failure;
  Strings remarks;
};

TEST(AngleSpread, IsAnAngleModifierWithAPowerOfFrequency) {
  AngleSpreadModifier modifier("10*$[Hz]#1@Hz#5");
  EXPECT_EQ(modifier.name(), "AngleSpreadModifier");
  EXPECT_EQ(modifier.slot(), Synthesis::Modifier::angle);
  EXPECT_EQ(thrown([] { AngleSpreadModifier("1@deg"); }),
            "Incorrect output units in expression 0 deg, 1");
  EXPECT_EQ(thrown([] { AngleSpreadModifier("1#1@deg#1"); }),
            "Incorrect limit units in expression deg, 11");
}

TEST(AngleSpread, DeclaresItsParameters) {
  Base::Params out;
  AngleSpreadModifier("1").query(out);
  ASSERT_EQ(out.entries().size(), 6U);
  EXPECT_EQ(out.at("function").enum_type(), Base::EnumType::SpreadFunc);
  EXPECT_EQ(out.at("ran_gen").enum_type(), Base::EnumType::RanGen);
  for (const char* name : {"angle", "max_angle", "min_angle"}) {
    EXPECT_EQ(Base::category_of(out.at(name).units), Base::Category::angle) << name;
  }
  EXPECT_EQ(Base::category_of(out.at("seed").units), Base::Category::unit);
}

TEST(AngleSpread, ParametersAreReadInOrder) {
  Filled params;
  const auto failure = [&] {
    AngleSpreadModifier modifier("1");
    return thrown([&] { modifier.set(params); });
  };
  EXPECT_EQ(failure(), "function::Not found");
  params.member("function", "CosS", "SpreadFunc");
  EXPECT_EQ(failure(), "angle::Not found");
  params.with("angle", 0, "deg");
  EXPECT_EQ(failure(), "ran_gen::Not found");
  params.member("ran_gen", "FullRandom", "RanGen");
  EXPECT_EQ(failure(), "seed::Not found");
  params.number("seed", 3);
  EXPECT_EQ(failure(), "max_angle::Not found");
  params.with("max_angle", 10, "deg");
  EXPECT_EQ(failure(), "min_angle::Not found");
  params.with("min_angle", -10, "deg");
  EXPECT_EQ(failure(), nothing_thrown);
}

TEST(AngleSpread, AMemberOfAnotherEnumerationIsRefused) {
  Filled params;
  params.member("function", "True", "Bool")
      .with("angle", 0, "deg")
      .with("min_angle", -1, "deg")
      .with("max_angle", 1, "deg")
      .member("ran_gen", "Default", "RanGen");
  AngleSpreadModifier modifier("1");
  EXPECT_EQ(thrown([&] { modifier.set(params); }), "function::wrong enum type");
}

TEST(AngleSpread, EvaluationBeforeSetNamesTheMissingParameter) {
  AngleSpreadModifier modifier("1");
  Sea sea;
  EXPECT_EQ(thrown([&] { sea.modify(modifier); }), "function::Not found");
}

TEST(AngleSpread, ARangeWithinTheLimitsIsUnchanged) {
  for (const char* function : {"CosS", "Cos2S"}) {
    const Asked asked(function, 10, -40, 70);
    EXPECT_EQ(asked.failure, nothing_thrown);
    EXPECT_NEAR(asked.low, -40, 1e-12);
    EXPECT_NEAR(asked.high, 70, 1e-12);
    EXPECT_EQ(asked.remarks, Strings{});
  }
}

TEST(AngleSpread, CosSIsNarrowedToAQuarterTurnEachSide) {
  const Asked both("CosS", 0, -120, 120);
  EXPECT_NEAR(both.low, -quarter, 1e-12);
  EXPECT_NEAR(both.high, quarter, 1e-12);
  EXPECT_EQ(both.remarks, (Strings{"Warning::Poor match", "Warning::Poor match"}));
  const Asked low("CosS", 80, -30, 130);
  EXPECT_NEAR(low.low, 80 - quarter, 1e-12);
  EXPECT_NEAR(low.high, 130, 1e-12);
  EXPECT_EQ(low.remarks, Strings{"Warning::Poor match"});
}

TEST(AngleSpread, Cos2SIsNarrowedToAHalfTurnEachSide) {
  const Asked asked("Cos2S", 0, -180, 180);
  EXPECT_NEAR(asked.low, -half, 1e-12);
  EXPECT_NEAR(asked.high, half, 1e-12);
  // A change of 0.0001 rad is not a poor match.
  EXPECT_EQ(asked.remarks, Strings{});
  EXPECT_NEAR(Asked("Cos2S", 0, -120, 120).high, 120, 1e-12);
}

TEST(AngleSpread, LimitsBeyondPiAreReturnedBeyondPi) {
  const Asked through("Cos2S", 170, 120, 220);
  EXPECT_NEAR(through.low, 120, 1e-12);
  EXPECT_NEAR(through.high, 220, 1e-12);
  EXPECT_EQ(through.remarks, Strings{});
  const Asked negative("Cos2S", -170, -220, -120);
  EXPECT_NEAR(negative.low, -220, 1e-12);
  EXPECT_NEAR(negative.high, -120, 1e-12);
  // Narrowed, and still beyond pi.
  const Asked narrowed("Cos2S", 1.58, -1.55, 2 * pi - 1.56, "rad");
  EXPECT_NEAR(narrowed.low, -1.55, 1e-12);
  EXPECT_NEAR(narrowed.high, 1.58 + pi - 0.0001, 1e-12);
  // Wrapped to exactly 0, it still comes back as 2 pi.
  const Asked full("CosS", -1, -1.2, 2 * pi, "rad");
  EXPECT_NEAR(full.high, 2 * pi, 1e-12);
  EXPECT_EQ(full.remarks, Strings{});
}

TEST(AngleSpread, ALimitOneTurnTooFarIsBroughtBack) {
  const Asked above("CosS", 1, 0.5, 2 * pi + 1.5, "rad");
  EXPECT_NEAR(above.high, 1.5, 1e-12);
  EXPECT_EQ(above.remarks, Strings{"Warning::Poor match"});
  const Asked below("CosS", -1, -2 * pi - 1.5, -0.5, "rad");
  EXPECT_NEAR(below.low, -1.5, 1e-12);
  EXPECT_EQ(below.remarks, Strings{"Warning::Poor match"});
}

TEST(AngleSpread, AChangeOfOnePerCentIsAPoorMatch) {
  EXPECT_EQ(Asked("CosS", 0, -1.0098 * quarter, 1.0098 * quarter).remarks, Strings{});
  EXPECT_EQ(Asked("CosS", 0, -1.0102 * quarter, 10).remarks, Strings{"Warning::Poor match"});
  EXPECT_EQ(Asked("CosS", 0, -10, 1.0102 * quarter).remarks, Strings{"Warning::Poor match"});
}

TEST(AngleSpread, AMeanOutsideOfTheRangeIsRefused) {
  for (const double mean : {-41.0, 71.0, 179.0}) {
    const Asked asked("CosS", mean, -40, 70);
    EXPECT_EQ(asked.failure, "Angle not between min and max");
    EXPECT_EQ(asked.low, -40);
    EXPECT_EQ(asked.high, 70);
  }
  EXPECT_NEAR(Asked("CosS", 70, -40, 70).high, 70, 1e-12);
  EXPECT_NEAR(Asked("CosS", -40, -40, 70).low, -40, 1e-12);
  EXPECT_EQ(Asked("CosS", 380, -40, 70).failure, nothing_thrown);
}

TEST(AngleSpread, ARangeThroughPiIsNotChecked) {
  const Asked asked("CosS", 0, 150, -150);
  EXPECT_EQ(asked.failure, nothing_thrown);
  EXPECT_NEAR(asked.high, quarter - turn, 1e-12);
  EXPECT_NEAR(asked.low, -quarter + turn, 1e-12);
  EXPECT_EQ(asked.remarks, (Strings{"Warning::Poor match", "Warning::Poor match"}));
  // A range of zero width is not checked either.
  const Asked empty("CosS", 10, 40, 40);
  EXPECT_EQ(empty.failure, nothing_thrown);
  EXPECT_NEAR(empty.high, 40, 1e-12);
  EXPECT_NEAR(empty.low, 10 - quarter, 1e-12);
}

TEST(AngleSpread, TheRangeKeepsTheHostsUnits) {
  Filled params;
  params.member("function", "CosS", "SpreadFunc")
      .with("angle", 0, "rad")
      .with("min_angle", -2, "rad")
      .with("max_angle", 100, "deg")
      .member("ran_gen", "Default", "RanGen");
  AngleSpreadModifier modifier("1");
  modifier.set(params);
  EXPECT_NEAR(params.at("min_angle").value, -pi / 2 + 0.0001, 1e-14);
  EXPECT_NEAR(params.at("max_angle").value, quarter, 1e-12);
}

// A draw for a power of 1 in closed form: the sine of the angle is uniform between the sines of the
// ends.
double cosine_draw(double u, double lo, double hi) {
  return std::asin((1 - u) * std::sin(lo) + u * std::sin(hi));
}

TEST(AngleSpread, EachFrontTakesTheNextDrawInOrderOfHarmonicAndList) {
  AngleSpreadModifier modifier("1");
  Sea sea;
  for (std::size_t h : {7U, 3U, 7U, 4U, 7U, 0U}) sea.at(h).push_back({0.1, 5.0, 0.3});
  set(modifier, spread("CosS", 20, -40, 70));
  sea.modify(modifier);
  Draws draws(1);
  std::size_t count = 0;
  for (const auto& slot : sea.fronts.slots) {
    for (const Maths::HarmonicFront& front : slot) {
      const double d = cosine_draw(draws.unit(), -60 * degree, 50 * degree);
      EXPECT_NEAR(front.angle, d + 20 * degree, 1e-9);
      EXPECT_EQ(front.amp, 0.1);
      EXPECT_EQ(front.phase, 0.3);
      ++count;
    }
  }
  EXPECT_EQ(count, 6U);
}

TEST(AngleSpread, Cos2SIsDrawnAtHalfTheAngleAndTwiceThePower) {
  AngleSpreadModifier modifier("0.5");
  Sea sea;
  for (std::size_t h = 1; h <= 20; ++h) sea.at(h) = {{0.1, 0.0, 0.0}};
  set(modifier, spread("Cos2S", -30, -180, 120));
  sea.modify(modifier);
  Draws draws(1);
  for (std::size_t h = 1; h <= 20; ++h) {
    const double d = 2 * cosine_draw(draws.unit(), -75 * degree, 75 * degree);
    EXPECT_NEAR(sea.at(h)[0].angle, d - 30 * degree, 1e-9) << h;
  }
}

TEST(AngleSpread, DirectionsAreWrapped) {
  AngleSpreadModifier modifier("1");
  Sea sea;
  for (std::size_t h = 1; h <= 20; ++h) sea.at(h) = {{0.1, 0.0, 0.0}};
  set(modifier, spread("CosS", 180, 120, 240));
  sea.modify(modifier);
  Draws draws(1);
  bool below = false;
  for (std::size_t h = 1; h <= 20; ++h) {
    const double d = cosine_draw(draws.unit(), -60 * degree, 60 * degree);
    EXPECT_LE(std::abs(sea.at(h)[0].angle), pi);
    EXPECT_NEAR(std::remainder(sea.at(h)[0].angle - (180 * degree + d), 2 * pi), 0.0, 1e-9) << h;
    below = below || sea.at(h)[0].angle < 0;
  }
  EXPECT_TRUE(below);
}

TEST(AngleSpread, TheMeanMayBeOnAnotherTurnThanTheRange) {
  for (const double turns : {2 * pi, -2 * pi}) {
    AngleSpreadModifier modifier("1");
    Sea sea;
    sea.at(4) = {{0.1, 0.0, 0.0}};
    set(modifier, spread("CosS", turns - 0.2, -1.2, 0.9, "rad"));
    sea.modify(modifier);
    EXPECT_NEAR(sea.at(4)[0].angle, cosine_draw(Draws(1).unit(), -1.0, 1.1) - 0.2, 1e-9);
  }
}

TEST(AngleSpread, TheSeedMayBeChosen) {
  for (const char* member : {"FullRandom", "Distribute"}) {
    Filled params;
    params.member("function", "CosS", "SpreadFunc")
        .with("angle", 0, "deg")
        .with("min_angle", -50, "deg")
        .with("max_angle", 50, "deg")
        .member("ran_gen", member, "RanGen")
        .number("seed", 16.5);
    AngleSpreadModifier modifier("1");
    Sea sea;
    sea.at(4) = {{0.1, 0.0, 0.0}};
    set(modifier, params);
    sea.modify(modifier);
    EXPECT_NEAR(sea.at(4)[0].angle, cosine_draw(Draws(17).unit(), -50 * degree, 50 * degree), 1e-9);
  }
}

TEST(AngleSpread, ASecondSetKeepsTheFirstRange) {
  AngleSpreadModifier modifier("1");
  Sea sea;
  sea.at(4) = {{0.1, 0.0, 0.0}};
  set(modifier, spread("CosS", 0, -50, 50));
  set(modifier, spread("CosS", 10, -20, 30));
  sea.modify(modifier);
  EXPECT_NEAR(sea.at(4)[0].angle, cosine_draw(Draws(1).unit(), -50 * degree, 50 * degree), 1e-9);
}

TEST(AngleSpread, APowerOutOfRangeIsRefused) {
  const auto failure = [](const std::string& power) {
    AngleSpreadModifier modifier(power);
    Sea sea;
    sea.at(4) = {{0.1, 0.0, 0.0}};
    set(modifier, spread("CosS", 0, -50, 50));
    return thrown([&] { sea.modify(modifier); });
  };
  EXPECT_EQ(failure("2000000"), "Spreading power::2e+06 is out of range");
  EXPECT_EQ(failure("1/0"), "Spreading power::inf is out of range");
  EXPECT_EQ(failure("0/0").substr(0, 16), "Spreading power:");
  EXPECT_EQ(failure("0-1/0"), "AngleSpreadModifier::no direction can be drawn for a power of -inf");
}

TEST(AngleSpread, ANanRangeHasNoDirections) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  AngleSpreadModifier modifier("2");
  Sea sea;
  sea.at(4) = {{0.1, 0.0, 0.0}};
  set(modifier, spread("CosS", nan, -50, 50));
  EXPECT_EQ(thrown([&] { sea.modify(modifier); }),
            "AngleSpreadModifier::no direction can be drawn for a power of 2");
}

TEST(AngleSpread, WithoutAnExpressionThereIsNoPower) {
  AngleSpreadModifier modifier("");
  Sea sea;
  sea.at(4) = {{0.1, 0.0, 0.0}};
  set(modifier, spread("CosS", 0, -50, 50));
  EXPECT_EQ(thrown([&] { sea.modify(modifier); }),
            "AngleSpreadModifier::evaluate::there is no expression");
}

}  // namespace
