// The behaviour that all modifiers share: the text, the parameters, and which function holds.
#include "sea/modifier.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "sea/change.h"
#include "support/modifiers.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Testing::degree;
using Testing::Filled;
using Testing::nothing_thrown;
using Testing::pi;
using Testing::printed;
using Testing::Sea;
using Testing::set;
using Testing::thrown;
namespace Category = Base::Category;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// A modifier that records what it is given.
class Probe : public Synthesis::Modifier {
 public:
  explicit Probe(const std::string& text, Base::UnitCategory limit_units = Category::frequency,
                 Base::UnitCategory output_units = Category::unit)
      : Modifier(angle, "Probe", limit_units, output_units, text) {}

  std::vector<std::string> calls;

 protected:
  void on_query(Base::Params& out) override {
    calls.push_back("query");
    out.declare("own", Base::default_units(Category::length));
  }
  void on_set(Base::Params& in, Base::Params& stored) override {
    calls.push_back("set");
    if (in.contains("own")) stored.merge(*in.find("own"));
  }
  void on_evaluate(const Base::Params& stored, Maths::FrontSet&,
                   const Synthesis::RunContext& context) override {
    context.messages.push_back(stored.contains("own")
                                   ? std::to_string(stored.read("own", Category::length))
                                   : "nothing stored");
  }
};

// A function of angle for which limits are angles.
Probe of_angle(const std::string& text) { return Probe(text, Category::angle); }

// The message of a refused text. The parser also prints a line.
std::string refusal(const std::string& text, Base::UnitCategory limit_units = Category::frequency,
                    Base::UnitCategory output_units = Category::unit) {
  std::string message;
  printed([&] { message = thrown([&] { Probe(text, limit_units, output_units); }); });
  return message;
}

std::string set_refusal(Synthesis::Modifier& modifier, Base::Params params = {}) {
  return thrown([&] { modifier.set(params); });
}

TEST(ModifierText, AnEmptyTextIsAccepted) {
  EXPECT_EQ(refusal(""), nothing_thrown);
  Probe probe("");
  set(probe);
  EXPECT_EQ(thrown([&] { probe.value(1.0); }), "Probe::evaluate::there is no expression");
}

TEST(ModifierText, OnlyAValueNeedsTheExpression) {
  Synthesis::GainChangeModifier gain("");
  Sea sea;
  sea.modify(gain);
  sea.at(5) = {{0.1, 0.0, 0.0}};
  EXPECT_EQ(thrown([&] { sea.modify(gain); }), "Gain::evaluate::there is no expression");
}

TEST(ModifierText, ATrailingHashAddsNothing) {
  Probe one("2#");
  Probe three("2#0.5@Hz#3#");
  set(one);
  set(three);
  EXPECT_EQ(one.value(1.0), 2.0);
  EXPECT_EQ(three.value(0.4), 2.0);
  EXPECT_EQ(three.value(0.6), 3.0);
}

TEST(ModifierText, AnyOtherEmptyPieceIsABadFormula) {
  for (const char* text : {"#", "##", "#1", "1##", "1#0.5@Hz##", " "}) {
    EXPECT_EQ(refusal(text).substr(0, 33), "Error while parsing expression ::") << text;
  }
}

TEST(ModifierText, PiecesAreParsedBeforeTheyAreCounted) {
  EXPECT_EQ(refusal("1#0.5@Hz"), "Even number of functions in modifier expression");
  EXPECT_EQ(refusal("1#0.5@Hz#"), "Even number of functions in modifier expression");
  EXPECT_EQ(refusal("1#0.5@Hz#2#0.6@Hz"), "Even number of functions in modifier expression");
  EXPECT_EQ(refusal("1#2 +"), "Error while parsing expression ::2 +");
  EXPECT_EQ(refusal("1#2@furlong"), "Unknown units - furlong");
}

TEST(ModifierText, TheCountIsCheckedBeforeTheUnits) {
  EXPECT_EQ(refusal("1@m#0.5@s"), "Even number of functions in modifier expression");
}

TEST(ModifierText, WrongOutputUnitsAreReportedWithTheirPlace) {
  EXPECT_EQ(refusal("1@m"), "Incorrect output units in expression 0 m, 1");
  EXPECT_EQ(refusal("1#0.5@Hz#1@mm"), "Incorrect output units in expression 2 mm, 1");
  EXPECT_EQ(refusal("1", Category::frequency, Category::angle),
            "Incorrect output units in expression 0 " +
                Base::units_text(Base::default_units(Category::unit)) + ", 17");
}

TEST(ModifierText, WrongLimitUnitsAreReportedWithoutTheirPlace) {
  EXPECT_EQ(refusal("1#0.5@s#1"), "Incorrect limit units in expression s, 11");
  EXPECT_EQ(refusal("1#0.5@Hz#1#0.6@cm#1"), "Incorrect limit units in expression cm, 11");
  EXPECT_EQ(refusal("1#0.5@Hz#1", Category::angle), "Incorrect limit units in expression Hz, 17");
}

TEST(ModifierText, AllFunctionsAreCheckedBeforeTheLimits) {
  EXPECT_EQ(refusal("1#0.5@s#1@m"), "Incorrect output units in expression 2 m, 1");
}

TEST(ModifierText, UnitsThatConvertPass) {
  EXPECT_EQ(refusal("1#3@rad/s#1"), nothing_thrown);
  EXPECT_EQ(refusal("10@deg", Category::frequency, Category::angle), nothing_thrown);
}

TEST(ModifierSet, QueryDeclaresTheFormulasParametersThenItsOwn) {
  Probe probe("a[m]#b[Hz]@Hz#c*$[Hz]");
  Base::Params out;
  probe.query(out);
  std::vector<std::string> names;
  for (const auto& [name, quantity] : out.entries()) names.push_back(name);
  EXPECT_EQ(names, (std::vector<std::string>{"a", "b", "c", "own"}));
  EXPECT_EQ(probe.calls, std::vector<std::string>{"query"});
}

TEST(ModifierSet, AFormulaParameterMustAgreeWithTheClasssOfTheSameName) {
  Base::Params out;
  Synthesis::AngleChangeModifier change("set[rad]@rad");
  EXPECT_EQ(thrown([&] { change.query(out); }), "Not an enum");
}

TEST(ModifierSet, FunctionsAreBoundBeforeTheClasssOwnSet) {
  Probe probe("a#b[Hz]@Hz#c");
  EXPECT_EQ(set_refusal(probe, Filled().number("c", 1)), "a::Not found");
  EXPECT_EQ(set_refusal(probe, Filled().number("a", 1)), "b::Not found");
  EXPECT_TRUE(probe.calls.empty());
}

TEST(ModifierSet, AFunctionOfAnotherVariableIsRefusedAfterTheClasssOwnSet) {
  Probe probe("$[s]");
  EXPECT_EQ(set_refusal(probe), "Incompatible expression");
  EXPECT_EQ(probe.calls, std::vector<std::string>{"set"});
  Probe angles = of_angle("$[Hz]");
  EXPECT_EQ(set_refusal(angles), "Incompatible expression");
  Probe rate("$[rad/s]");
  EXPECT_EQ(set_refusal(rate), nothing_thrown);
}

TEST(ModifierSet, AllFunctionsAreCheckedBeforeALimitIsRead) {
  Probe probe("1#$[Hz]@Hz#$[s]");
  EXPECT_EQ(set_refusal(probe), "Incompatible expression");
}

TEST(ModifierSet, ALimitThatIsNotConstantIsRefused) {
  Probe probe("1#$[Hz]@Hz#2");
  EXPECT_EQ(set_refusal(probe), "Limiting function not constant");
}

TEST(ModifierSet, FallingLimitsAreRefusedAndEqualOnesPass) {
  Probe falling("1#0.5@Hz#2#0.4@Hz#3");
  EXPECT_EQ(set_refusal(falling), "Limits out of order");
  Probe equal("1#0.5@Hz#2#0.5@Hz#3");
  EXPECT_EQ(set_refusal(equal), nothing_thrown);
  EXPECT_EQ(equal.value(0.5), 1.0);
  EXPECT_EQ(equal.value(0.51), 3.0);
}

TEST(ModifierSet, ASecondSetAppendsTheLimitsAgain) {
  Probe two("1#0.4@Hz#2#0.6@Hz#3");
  EXPECT_EQ(set_refusal(two), nothing_thrown);
  EXPECT_EQ(set_refusal(two), "Limits out of order");
  // The expression still works.
  EXPECT_EQ(two.value(0.4), 1.0);
  EXPECT_EQ(two.value(0.6), 2.0);
  EXPECT_EQ(two.value(0.7), 3.0);
}

TEST(ModifierSet, ASecondSetWithOneLimitPasses) {
  Probe one("1#0.4@Hz#2");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(set_refusal(one), nothing_thrown);
  EXPECT_EQ(one.value(0.4), 1.0);
  EXPECT_EQ(one.value(0.5), 2.0);
}

TEST(ModifierSet, ASecondSetChangesTheFormulasAndNotTheClasssParameters) {
  Probe probe("a");
  Sea sea;
  set(probe, Filled().number("a", 2).with("own", 1, "m"));
  set(probe, Filled().number("a", 3).with("own", 5, "m"));
  EXPECT_EQ(probe.value(1.0), 3.0);
  sea.modify(probe);
  EXPECT_EQ(sea.messages, std::vector<std::string>{"1.000000"});
}

TEST(ModifierSet, EvaluationNeedsNoSet) {
  Probe probe("2*$[Hz]");
  Sea sea;
  sea.modify(probe);
  EXPECT_EQ(sea.messages, std::vector<std::string>{"nothing stored"});
}

TEST(ModifierSet, AFormulaThatWasNotSetIsRefusedWhenItIsEvaluated) {
  Probe probe("a");
  EXPECT_EQ(thrown([&] { probe.value(1.0); }), "Unset parametera");
}

TEST(ModifierValue, AFrequencyOnALimitTakesTheFunctionBelow) {
  Probe probe("1#0.5@Hz#2#800@mHz#3");
  set(probe);
  EXPECT_EQ(probe.value(0.0), 1.0);
  EXPECT_EQ(probe.value(0.5), 1.0);
  EXPECT_EQ(probe.value(std::nextafter(0.5, 1.0)), 2.0);
  EXPECT_EQ(probe.value(0.8), 2.0);
  EXPECT_EQ(probe.value(0.81), 3.0);
  EXPECT_EQ(probe.value(100.0), 3.0);
}

TEST(ModifierValue, TheArgumentIsConvertedAndSoIsTheResult) {
  Probe probe("$[rad/s]@deg", Category::frequency, Category::angle);
  set(probe);
  EXPECT_NEAR(probe.value(0.5), pi * degree, 1e-14);
}

TEST(ModifierValue, ASingleAngleLimitIsNeverUsed) {
  Probe probe = of_angle("1#0@deg#2");
  set(probe);
  for (const double x : {-3.0, -0.1, 0.0, 0.1, 3.0}) EXPECT_EQ(probe.value(x), 1.0);
}

// Function 0 holds outside of the limits, function i between limit i - 1 and limit i.
TEST(ModifierValue, AngleLimitsDivideTheCircle) {
  Probe probe = of_angle("0#-60@deg#1#30@deg#2#90@deg#3");
  set(probe);
  const auto at = [&](double degrees) { return probe.value(degrees * degree); };
  EXPECT_EQ(at(-179), 0.0);
  EXPECT_EQ(at(-61), 0.0);
  EXPECT_EQ(at(-59), 1.0);
  EXPECT_EQ(at(29), 1.0);
  EXPECT_EQ(at(31), 2.0);
  EXPECT_EQ(at(89), 2.0);
  EXPECT_EQ(at(91), 0.0);
  EXPECT_EQ(at(180), 0.0);
  // Exactly on a limit the function above it holds, also on the last one.
  EXPECT_EQ(probe.value(-60 * degree), 1.0);
  EXPECT_EQ(probe.value(30 * degree), 2.0);
  EXPECT_EQ(probe.value(90 * degree), 3.0);
}

TEST(ModifierValue, AngleLimitsMayPassThroughPi) {
  Probe probe = of_angle("0#120@deg#1#170@deg#2#-120@deg#3");
  set(probe);
  const auto at = [&](double degrees) { return probe.value(degrees * degree); };
  EXPECT_EQ(at(0), 0.0);
  EXPECT_EQ(at(119), 0.0);
  EXPECT_EQ(at(130), 1.0);
  EXPECT_EQ(at(175), 2.0);
  EXPECT_EQ(at(-175), 2.0);
  EXPECT_EQ(at(-121), 2.0);
  EXPECT_EQ(at(-119), 0.0);
  EXPECT_EQ(at(-1), 0.0);
  EXPECT_EQ(probe.value(120 * degree), 1.0);
  EXPECT_EQ(probe.value(170 * degree), 2.0);
  EXPECT_EQ(probe.value(-120 * degree), 3.0);
}

TEST(ModifierValue, AngleLimitsAreWrapped) {
  Probe probe = of_angle("0#300@deg#1#420@deg#2");
  set(probe);
  EXPECT_EQ(probe.value(0.0), 1.0);
  EXPECT_EQ(probe.value(-61 * degree), 0.0);
  EXPECT_EQ(probe.value(61 * degree), 0.0);
}

TEST(ModifierOrder, TwoAngleLimitsMayBeInAnyOrder) {
  Probe probe = of_angle("0#90@deg#1#-90@deg#2");
  EXPECT_EQ(set_refusal(probe), nothing_thrown);
  // From 90 degrees through pi to -90 degrees.
  EXPECT_EQ(probe.value(pi), 1.0);
  EXPECT_EQ(probe.value(0.0), 0.0);
}

TEST(ModifierOrder, ThreeAngleLimitsMustGoRoundTheCircleOnce) {
  const auto order = [](const std::string& a, const std::string& b, const std::string& c) {
    Probe probe = of_angle("0#" + a + "@deg#1#" + b + "@deg#2#" + c + "@deg#3");
    return set_refusal(probe);
  };
  const std::string refused = "Limits out of order";
  const std::string taken = nothing_thrown;
  EXPECT_EQ(order("-90", "0", "90"), taken);
  EXPECT_EQ(order("0", "90", "-90"), taken);
  EXPECT_EQ(order("90", "-90", "0"), taken);
  EXPECT_EQ(order("0", "0", "0"), taken);
  EXPECT_EQ(order("0", "0", "90"), taken);
  EXPECT_EQ(order("90", "90", "-90"), taken);
  EXPECT_EQ(order("0", "-90", "90"), refused);  // below the last, and falls
  EXPECT_EQ(order("-90", "90", "0"), refused);  // below the last, and passes it
  EXPECT_EQ(order("90", "0", "-90"), refused);  // above the last, and falls short of it
}

TEST(ModifierOrder, TwoAngleLimitsMayBeSetTwice) {
  Probe probe = of_angle("0#-90@deg#1#90@deg#2");
  set(probe);
  EXPECT_EQ(set_refusal(probe), nothing_thrown);
  EXPECT_EQ(probe.value(0.0), 1.0);
  EXPECT_EQ(probe.value(2.0), 0.0);
}

TEST(ModifierOrder, NanAndHugeLimitsAreAccepted) {
  Probe probe("1#sqrt(0-1)@Hz#2#0.5@Hz#3");
  EXPECT_EQ(set_refusal(probe), nothing_thrown);
  EXPECT_EQ(probe.value(0.4), 2.0);
  Probe angles = of_angle("1#sqrt(0-1)@deg#2#10^300@deg#3");
  EXPECT_EQ(set_refusal(angles), nothing_thrown);
  EXPECT_TRUE(std::isfinite(angles.value(nan)));
}

}  // namespace
