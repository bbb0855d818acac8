// Every operator and function of the language, compared with the standard library's.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "expression/node.h"
#include "support/thrown.h"
#include "testutil.h"

namespace Expression {
namespace {

using Testing::thrown;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

const std::vector<double> Samples{-Infinity, -1e300, -7.25, -1.0,  -0.3,     -1e-9,
                                  -0.0,      0.0,    1e-9,  0.125, 0.9,      1.0,
                                  1.5,       3.7,    42.0,  700.0, Infinity, NotANumber};

// Equal to the last bit; any NaN equals any other.
void expect_same(double result, double expected) {
  if (std::isnan(expected)) {
    EXPECT_TRUE(std::isnan(result)) << result;
  } else {
    EXPECT_EQ(result, expected);
    EXPECT_EQ(std::signbit(result), std::signbit(expected));
  }
}

struct UnaryCase {
  OperatorNumber op;
  const char* formula;
  const char* written;
  std::function<double(double)> reference;
};

const std::vector<UnaryCase> UnaryCases{
    {0, "-$[]", "-($[])", [](double x) { return -x; }},
    {1, "square($[])", "sqr($[])", [](double x) { return x * x; }},
    {2, "sqrt($[])", "sqrt($[])", [](double x) { return std::sqrt(x); }},
    {3, "tan($[])", "tan($[])", [](double x) { return std::tan(x); }},
    {4, "cos($[])", "cos($[])", [](double x) { return std::cos(x); }},
    {5, "sin($[])", "sin($[])", [](double x) { return std::sin(x); }},
    {6, "atan($[])", "atan($[])", [](double x) { return std::atan(x); }},
    {7, "acos($[])", "acos($[])", [](double x) { return std::acos(x); }},
    {8, "asin($[])", "asin($[])", [](double x) { return std::asin(x); }},
    {9, "tanh($[])", "tanh($[])", [](double x) { return std::tanh(x); }},
    {10, "cosh($[])", "cosh($[])", [](double x) { return std::cosh(x); }},
    {11, "sinh($[])", "sinh($[])", [](double x) { return std::sinh(x); }},
    {12, "exp($[])", "exp($[])", [](double x) { return std::exp(x); }},
    {13, "log($[])", "log($[])", [](double x) { return std::log(x); }},
    {14, "lg10($[])", "log10($[])", [](double x) { return std::log10(x); }},
};

TEST(UnaryOperators, EqualThoseOfTheStandardLibrary) {
  for (const UnaryCase& c : UnaryCases) {
    const Function function(c.formula);
    EXPECT_EQ(written(function), c.written);
    for (const double x : Samples) {
      SCOPED_TRACE(c.formula + std::string(" at ") + std::to_string(x));
      expect_same(function.evaluate(quantity(x, "")).value, c.reference(x));
      const UnaryOp node(c.op, std::make_unique<Constant>(x));
      expect_same(node.eval(quantity(0.0, "")), c.reference(x));
    }
  }
}

TEST(UnaryOperators, GammaIsNumberFifteen) {
  const UnaryOp node(15, std::make_unique<Constant>(5.0));
  EXPECT_NEAR(node.eval(quantity(0.0, "")), 24.0, 24e-14);
  EXPECT_EQ(written(node), "tgamma(5)");
}

TEST(UnaryOperators, AnUnknownNumberIsRefusedByEval) {
  const UnaryOp node(16, std::make_unique<Constant>(5.0));
  EXPECT_EQ(thrown([&] { node.eval(quantity(0.0, "")); }), "Unknown unary operator in eval");
  EXPECT_EQ(written(node), "(5)");
}

struct BinaryCase {
  OperatorNumber op;
  const char* formula;
  const char* written;
  std::function<double(double, double)> reference;
};

// The left side is the variable, the right side a parameter.
const std::vector<BinaryCase> BinaryCases{
    {0, "$[]^b", "($[] ^ b[])", [](double x, double y) { return std::pow(x, y); }},
    {0, "$[]**b", "($[] ^ b[])", [](double x, double y) { return std::pow(x, y); }},
    {0, "pow($[],b)", "($[] ^ b[])", [](double x, double y) { return std::pow(x, y); }},
    {1, "$[]*b", "($[] * b[])", [](double x, double y) { return x * y; }},
    {2, "$[]/b", "($[] / b[])", [](double x, double y) { return x / y; }},
    {3, "$[]+b", "($[] + b[])", [](double x, double y) { return x + y; }},
    {4, "$[]-b", "($[] - b[])", [](double x, double y) { return x - y; }},
    {5, "atan2($[],b)", "atan2($[], b[])", [](double x, double y) { return std::atan2(x, y); }},
};

TEST(BinaryOperators, EqualThoseOfTheStandardLibrary) {
  for (const BinaryCase& c : BinaryCases) {
    Function function(c.formula);
    EXPECT_EQ(written(function), c.written);
    for (const double y : Samples) {
      Base::Params source;
      Base::Params used;
      source.insert("b", y, "");
      function.bind(source, used);
      for (const double x : Samples) {
        SCOPED_TRACE(c.formula + (" at " + std::to_string(x)) + ", " + std::to_string(y));
        expect_same(function.evaluate(quantity(x, "")).value, c.reference(x, y));
        const BinaryOp node(c.op, std::make_unique<Constant>(x), std::make_unique<Constant>(y));
        expect_same(node.eval(quantity(0.0, "")), c.reference(x, y));
      }
    }
  }
}

TEST(BinaryOperators, AnUnknownNumberIsRefusedByEval) {
  for (const OperatorNumber op : {6U, 7U, 4000000000U}) {
    const BinaryOp node(op, std::make_unique<Constant>(5.0), std::make_unique<Constant>(2.0));
    EXPECT_EQ(thrown([&] { node.eval(quantity(0.0, "")); }), "Unknown binary operator in eval");
    EXPECT_EQ(written(node), "(52)");
  }
}

TEST(BinaryOperators, ModuloIsReadAndWrittenWithoutAnOperator) {
  EXPECT_EQ(written(Function("mod(5,2)")), "(52)");
}

}  // namespace
}  // namespace Expression
