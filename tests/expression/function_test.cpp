#include "expression/function.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/output.h"
#include "support/thrown.h"
#include "testutil.h"

namespace Expression {
namespace {

using Testing::printed;
using Testing::thrown;

constexpr const char* Incomplete = "Evaluated incomplete function";
constexpr const char* NotConstant = "Trying to find the constant value of a non constant function";

bool binds(Function& function) {
  Base::Params none;
  return function.bind(none, none);
}

std::uint32_t row(const std::string& units) { return Base::resolve_units(units).row; }

void expect_incomplete(Function& function) {
  Base::Params params;
  EXPECT_EQ(thrown([&] { function.declare(params); }), Incomplete);
  EXPECT_EQ(thrown([&] { function.bind(params, params); }), Incomplete);
  EXPECT_EQ(thrown([&] { function.is_constant(); }), Incomplete);
  EXPECT_EQ(thrown([&] { function.compatible(row("Hz")); }), Incomplete);
  EXPECT_EQ(thrown([&] { function.evaluate(quantity(1.0, "Hz")); }), Incomplete);
  EXPECT_EQ(thrown([&] { function.constant(); }), Incomplete);
  EXPECT_EQ(thrown([&] { written(function); }), Incomplete);
}

TEST(Function, WithoutAFormulaIsIncomplete) {
  Function function;
  expect_incomplete(function);
}

TEST(Function, IsIncompleteWhenItsFirstFormulaFails) {
  Function function;
  printed([&] {
    EXPECT_EQ(thrown([&] { function.parse("1+@m"); }), "Error while parsing expression ::1+");
  });
  expect_incomplete(function);
}

TEST(Function, OfNumbersIsConstantAfterBind) {
  Function function("2*3");
  EXPECT_TRUE(binds(function));
  EXPECT_TRUE(function.is_constant());
  EXPECT_EQ(function.constant().value, 6.0);
}

TEST(Function, HasTheUnitsAfterTheAt) {
  Function function("2*3@mm");
  EXPECT_EQ(function.units(), Base::resolve_units("mm"));
  binds(function);
  for (const Base::Quantity& result :
       {function.constant(), function.evaluate(quantity(1.0, "s"))}) {
    EXPECT_EQ(result.value, 6.0);
    EXPECT_EQ(result.units, Base::resolve_units("mm"));
    EXPECT_EQ(result.state, Base::ValueState{});
  }
}

TEST(Function, WithoutUnitsIsDimensionless) {
  EXPECT_EQ(Function("2").units(), Base::default_units(Base::Category::unit));
}

TEST(Function, OfAParameterIsConstantAfterBind) {
  Function function("depth[m]*2");
  Base::Params source;
  source.insert("depth", 250.0, "cm");
  source.insert("unused", 1.0, "m");
  Base::Params used;
  EXPECT_TRUE(function.bind(source, used));
  EXPECT_EQ(function.constant().value, 5.0);
  EXPECT_TRUE(used.contains("depth"));
  EXPECT_FALSE(used.contains("unused"));
}

TEST(Function, OfTheVariableIsEvaluatedForEachValue) {
  Function function("$[Hz]*2");
  EXPECT_FALSE(binds(function));
  EXPECT_FALSE(function.is_constant());
  EXPECT_EQ(thrown([&] { function.constant(); }), NotConstant);
  EXPECT_EQ(function.evaluate(quantity(1.0, "Hz")).value, 2.0);
  EXPECT_EQ(function.evaluate(quantity(1.0, "kHz")).value, 2000.0);
}

TEST(Function, HasNoConstantBeforeIsConstantOrBind) {
  const Function function("2*3");
  EXPECT_EQ(thrown([&] { function.constant(); }), NotConstant);
}

TEST(Function, HasItsConstantAfterIsConstantAlone) {
  Function function("2*3@m");
  EXPECT_TRUE(function.is_constant());
  EXPECT_EQ(function.constant().value, 6.0);
  EXPECT_EQ(function.constant().units, Base::resolve_units("m"));
}

TEST(Function, WithUnboundParametersHasNoValue) {
  Function function("depth[m]*2");
  EXPECT_TRUE(function.is_constant());
  EXPECT_EQ(thrown([&] { function.constant(); }), "Unset parameterdepth");
  EXPECT_EQ(thrown([&] { function.evaluate(quantity(1.0, "Hz")); }), "Unset parameterdepth");
}

TEST(Function, TakesNewParametersWhenBoundAgain) {
  Function function("2*depth[m] + 1");
  for (const double depth : {1.0, 4.0, 0.5}) {
    Base::Params source;
    Base::Params used;
    source.insert("depth", depth, "m");
    EXPECT_TRUE(function.bind(source, used));
    EXPECT_EQ(function.constant().value, 2.0 * depth + 1.0);
    EXPECT_EQ(function.evaluate(quantity(1.0, "Hz")).value, 2.0 * depth + 1.0);
  }
}

TEST(Function, IsConstantIsTheSameBeforeAndAfterBind) {
  for (const char* formula : {"2", "$[Hz]", "2*3+$[Hz]", "-x", "sin($[s])", "$[Hz]-$[Hz]", "x^y"}) {
    SCOPED_TRACE(formula);
    Base::Params source;
    Base::Params used;
    source.insert("x", 1.0, "");
    source.insert("y", 2.0, "");
    Function before(formula);
    const bool constant = before.is_constant();
    EXPECT_EQ(constant, std::string(formula).find('$') == std::string::npos);
    EXPECT_EQ(before.bind(source, used), constant);
    EXPECT_EQ(before.is_constant(), constant);
    Function after(formula);
    after.bind(source, used);
    EXPECT_EQ(after.is_constant(), constant);
  }
}

TEST(Function, ParsingAgainReplacesTheFormula) {
  Function function("2*3@m");
  binds(function);
  EXPECT_EQ(function.constant().value, 6.0);
  function.parse("$[Hz]");
  EXPECT_EQ(thrown([&] { function.constant(); }), NotConstant);
  EXPECT_FALSE(function.is_constant());
  EXPECT_EQ(function.units(), Base::default_units(Base::Category::unit));
  function.parse("7");
  EXPECT_EQ(thrown([&] { function.constant(); }), NotConstant);
  EXPECT_TRUE(function.is_constant());
  EXPECT_EQ(function.constant().value, 7.0);
}

TEST(Function, AFailedParseLeavesItUnchanged) {
  Function function("2*3@m");
  binds(function);
  printed([&] {
    EXPECT_EQ(thrown([&] { function.parse("1+@s"); }), "Error while parsing expression ::1+");
  });
  EXPECT_EQ(thrown([&] { function.parse("1@rubbish"); }), "Unknown units - rubbish");
  EXPECT_EQ(function.constant().value, 6.0);
  EXPECT_EQ(function.units(), Base::resolve_units("m"));
}

TEST(Function, CanBeMoved) {
  Function first("2*$[Hz]@m");
  Function second(std::move(first));
  EXPECT_EQ(second.evaluate(quantity(3.0, "Hz")).value, 6.0);
  Function third;
  third = std::move(second);
  EXPECT_EQ(third.evaluate(quantity(3.0, "Hz")).value, 6.0);
  EXPECT_EQ(third.units(), Base::resolve_units("m"));
}

TEST(Function, IsCompatibleWithAVariableThatConvertsToAllItsUnits) {
  EXPECT_TRUE(Function("2").compatible(row("m")));
  EXPECT_TRUE(Function("depth[m]").compatible(row("s")));
  EXPECT_TRUE(Function("-$[Hz]").compatible(row("rad/s")));
  EXPECT_FALSE(Function("-$[Hz]").compatible(row("s")));
  EXPECT_TRUE(Function("$[Hz] + $[rad/s]").compatible(row("Hz")));
  EXPECT_FALSE(Function("$[Hz] + $[s]").compatible(row("Hz")));
  EXPECT_FALSE(Function("$[Hz] + $[s]").compatible(row("s")));
  EXPECT_TRUE(Function("$[kHz]").compatible(row("Hz")));
}

TEST(Function, DeclaresEveryParameterOnBothSidesOfAVariable) {
  Base::Params out;
  Function("$[Hz]*a[m] + $[Hz]^b + sin(c[s]) - $[Hz] + d[Hz]").declare(out);
  EXPECT_EQ(out.entries().size(), 4U);
  EXPECT_EQ(out.at("a").units, Base::resolve_units("m"));
  EXPECT_EQ(out.at("b").units, Base::resolve_units(""));
  EXPECT_EQ(out.at("c").units, Base::resolve_units("s"));
  EXPECT_EQ(out.at("d").units, Base::resolve_units("Hz"));
}

TEST(Function, DeclaresARepeatedParameterOnce) {
  Base::Params out;
  Function("depth[m] + depth[ft]").declare(out);
  ASSERT_EQ(out.entries().size(), 1U);
  EXPECT_EQ(out.at("depth").units, Base::resolve_units("m"));
  EXPECT_EQ(thrown([] {
              Base::Params params;
              Function("depth[m] + depth[s]").declare(params);
            }),
            "Incompatible units for => depth");
}

TEST(Function, CannotBindAConstantThatFailsToEvaluate) {
  Function function("mod(5,2)");
  EXPECT_EQ(thrown([&] { binds(function); }), "Unknown binary operator in eval");
  Function variable("mod($[Hz],2)");
  EXPECT_FALSE(binds(variable));
  EXPECT_EQ(thrown([&] { variable.evaluate(quantity(5.0, "Hz")); }),
            "Unknown binary operator in eval");
}

TEST(Function, RefusesAnEnumerationAsAParameter) {
  Base::Params source;
  source.declare_enum("kind", 1);
  Base::Params used;
  Function function("kind[m]");
  // Type 1 equals the row of the plain number.
  EXPECT_EQ(thrown([&] { function.bind(source, used); }), "Unable to convert from \"\" to \"m\"");
}

}  // namespace
}  // namespace Expression
