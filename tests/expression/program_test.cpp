// Random formulas, read as a curve and by their tree: the same bits, and the same failures.
#include "expression/program.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <variant>

#include "expression/curve.h"
#include "testutil.h"

namespace Expression {
namespace {

namespace Category = Base::Category;

using Outcome = std::variant<std::uint64_t, std::string>;

template <typename Read>
Outcome outcome(Read read) {
  try {
    const double value = read();
    // The sign and payload of a NaN depend on the order that the compiler gives two operands.
    return std::bit_cast<std::uint64_t>(std::isnan(value) ? std::nan("") : value);
  } catch (const std::string& message) {
    return message;
  }
}

// Writes formulas with every operator, function, folded part, name and unit of the language.
class Writer {
 public:
  explicit Writer(std::uint32_t seed) : draw_(seed) {}

  std::string formula(int depth) {
    if (depth == 0 || below(8) == 0) return leaf();
    switch (below(4)) {
      case 0:
        return pick(unary_) + "(" + formula(depth - 1) + ")";
      case 1:
        return pick(functions_) + "(" + formula(depth - 1) + "," + formula(depth - 1) + ")";
      default:
        return "(" + formula(depth - 1) + ")" + pick(operators_) + "(" + formula(depth - 1) + ")";
    }
  }

  std::size_t below(std::size_t count) { return draw_() % count; }

 private:
  template <std::size_t N>
  std::string pick(const char* const (&words)[N]) {
    return words[below(N)];
  }

  std::string leaf() { return pick(leaves_); }

  static constexpr const char* unary_[] = {"-",    "square", "sqrt", "exp",   "log",  "lg10",
                                           "sin",  "cos",    "tan",  "asin",  "acos", "atan",
                                           "sinh", "cosh",   "tanh", "tgamma"};
  static constexpr const char* functions_[] = {"atan2", "pow", "pow", "mod"};
  static constexpr const char* operators_[] = {"+", "-", "*", "/", "^"};
  // "$[m]" fails with a frequency, "absent" is in no set of parameters.
  static constexpr const char* leaves_[] = {
      "$[Hz]", "$[Hz]", "$[Hz]", "$[rad/s]", "$[kHz]", "$[rpm]", "$[m]",   "1",    "2",
      "0.5",   "pi",    "e",     "fp[Hz]",   "fp",     "hs[mm]", "absent", "unset"};

  std::mt19937 draw_;
};

Base::Params parameters() {
  Base::Params params;
  params.insert("fp", 0.7, "Hz");
  params.insert("hs", 3.0, "ft");
  params.declare("unset", Base::resolve_units(""));
  return params;
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double variables[] = {0.0,    -0.0,   1.0,      0.37,      -2.5,  7.0,
                                5e-324, 1e-200, infinity, -infinity, 1e308, 171.7};

// Compares the two for each value, and counts the values that did not fail.
int compare(const Function& function, Base::UnitCategory input, Base::UnitCategory output) {
  const Curve curve(function, input, output);
  int values = 0;
  double last = std::nan("");
  for (const double x : variables) {
    for (const double variable : {x, last}) {
      const Outcome expected =
          outcome([&] { return function.evaluate(Base::Quantity(variable, input)).get(output); });
      EXPECT_EQ(outcome([&] { return curve(variable); }), expected) << "at " << variable;
      values += expected.index() == 0 ? 1 : 0;
    }
    last = x;
  }
  return values;
}

TEST(Curve, HasTheBitsAndTheFailuresOfTheTree) {
  Writer writer(1);
  int values = 0;
  int failures = 0;
  for (int i = 0; i < 4000; ++i) {
    const std::string units = writer.below(4) == 0 ? "@mm" : "@cm";
    const std::string text = writer.formula(1 + i % 5) + units;
    SCOPED_TRACE(text);
    Function function(text);
    const int unbound = compare(function, Category::frequency, Category::length);
    try {
      Base::Params used;
      function.bind(parameters(), used);
    } catch (const std::string&) {
      ++failures;  // what a failed bind leaves must agree too
    }
    const int read = compare(function, Category::frequency, Category::length);
    values += unbound + read;
    failures += read == 0 ? 1 : 0;
    if (HasFailure()) return;
  }
  EXPECT_GT(values, 20000);
  EXPECT_GT(failures, 500);
}

TEST(Curve, ReportsUnitsThatDoNotConvertWhenAValueIsRead) {
  const Function metres("2*$[Hz]@m");
  const Curve in_seconds(metres, Category::frequency, Category::time);
  EXPECT_EQ(outcome([&] { return in_seconds(1.0); }),
            Outcome("Unable to convert from \"m\" to \"s\""));
  const Curve of_time(metres, Category::time, Category::length);
  EXPECT_EQ(outcome([&] { return of_time(1.0); }),
            Outcome("Unable to convert from \"s\" to \"Hz\""));
  const Function empty;
  const Curve of_nothing(empty, Category::time, Category::length);
  EXPECT_EQ(outcome([&] { return of_nothing(1.0); }), Outcome("Evaluated incomplete function"));
}

TEST(Curve, ReportsTheFailureOnTheLeftFirst) {
  const Function gamma("tgamma(-$[Hz])+mod($[Hz],tgamma(-2*$[Hz]))");
  const Curve curve(gamma, Category::frequency, Category::unit);
  EXPECT_EQ(outcome([&] { return curve(1.0); }),
            Outcome("tgamma: Invalid input argument -1. Argument must be positive."));
  EXPECT_EQ(outcome([&] { return curve(-1.0); }), Outcome("Unknown binary operator in eval"));
}

TEST(Curve, ReadsALongChainAndADeepNest) {
  std::string chain = "$[Hz]";
  for (int i = 0; i < 10000; ++i) chain += "+$[Hz]";
  std::string nest = "$[Hz]";
  for (int i = 0; i < 45; ++i) nest = "sin($[Hz])-(" + nest + ")*$[Hz]";
  for (const std::string& text : {chain, nest}) {
    const Function function(text);
    EXPECT_EQ(compare(function, Category::frequency, Category::unit), 24);
  }
}

// A difference passes a NaN on with its sign. Messages with such a value show "nan" or
// "-nan".
TEST(Program, ANanThatIsSubtractedKeepsItsSign) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double sign : {1.0, -1.0}) {
    Program program;
    program.variable(2.0);
    program.binary_with(Binary::minus, std::copysign(nan, sign));
    program.finish(1.0);
    const double result = program.run(3.0);
    ASSERT_TRUE(std::isnan(result));
    EXPECT_EQ(std::signbit(result), std::signbit(sign));
  }
}

TEST(Program, SetsAsideNoMoreNumbersThanThereIsRoomFor) {
  Program program;
  program.variable(1.0);
  int count = 0;
  while (count < 100000 && program.set_aside()) {
    program.variable(2.0);
    program.unary(Unary::negate);
    ++count;
  }
  ASSERT_LT(count, 100000);
  for (int i = 0; i < count; ++i) program.binary(Binary::plus);
  program.finish(1.0);
  EXPECT_EQ(program.run(1.0), 1.0 - 2.0 * count);
}

}  // namespace
}  // namespace Expression
