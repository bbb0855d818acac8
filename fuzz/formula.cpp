// Formulas. The input is one formula.
//
// The properties: a formula that is refused has one of the known messages. One that is read is
// written in a form that reads back the same. All ways to evaluate it give the same bits, or the
// same message.
#include <cmath>
#include <limits>
#include <sstream>

#include "base/params.h"
#include "base/quantity.h"
#include "expression/curve.h"
#include "expression/function.h"
#include "fuzz/property.h"

namespace {

using Base::Category::frequency;
using Base::Category::length;
using Base::Category::unit;
using Expression::Function;
using Fuzz::refusal;
using Fuzz::require;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double variables[] = {0.0,  -0.0,  0.3,    1.0,      -2.5,     12.0,
                                -1e9, 1e300, 5e-324, infinity, -infinity};

// A value or a message.
struct Outcome {
  double value = 0.0;
  std::optional<std::string> message;

  bool operator==(const Outcome& other) const {
    const bool both_nan = std::isnan(value) && std::isnan(other.value);
    return message == other.message &&
           (message || Fuzz::same_bits(value, other.value) ||
            (both_nan && std::signbit(value) == std::signbit(other.value)));
  }
};

template <typename Operation>
Outcome outcome(Operation operation) {
  Outcome result;
  result.message = refusal([&] { result.value = operation(); });
  return result;
}

bool starts(const std::string& message, const char* beginning) {
  return message.rfind(beginning, 0) == 0;
}

std::string written(const Function& function) {
  std::ostringstream out;
  function.print(out);
  return out.str();
}

bool contains(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

// Whether the language has all that the formula is written with: it has no exponents, writes lg10
// as log10, and nothing between the arguments of mod.
bool readable(const std::string& formula, const std::string& text) {
  for (const char* part : {"e+", "e-", "inf", "log10("}) {
    if (contains(text, part)) return false;
  }
  return !contains(formula, "mod");
}

void check_written(const std::string& formula, const Function& function) {
  const std::string text = written(function);
  if (!readable(formula, text)) return;
  Function again;
  // The brackets can exhaust the parser's stack.
  if (refusal([&] { again.parse(text); })) return;
  require(written(again) == text, "a written formula reads back the same");
}

// A value for each parameter that the formula asks for.
Base::Params given_for(const Base::Params& asked) {
  Base::Params given;
  double value = 0.75;
  for (const auto& [name, quantity] : asked.entries()) {
    given.insert(name, value, quantity.units);
    value += 1.25;
  }
  return given;
}

void check_values(const Function& bound, const Function& again, Base::UnitCategory input) {
  const Base::UnitCategory own = Base::category_of(bound.units());
  const Expression::Curve curve(bound, input, own);
  const bool compatible = bound.compatible(Base::default_units(input).row);
  for (const double x : variables) {
    const Base::Quantity variable(x, input);
    const auto value_of = [&](const Function& function) {
      return outcome([&] { return function.evaluate(variable).get(own); });
    };
    const Outcome value = value_of(bound);
    require(value == value_of(again), "two readings of a formula have the same value");
    require(value == outcome([&] { return curve(x); }), "the steps give the value of the tree");
    require(!compatible || !value.message || !starts(*value.message, "Unable to convert"),
            "a variable with compatible units can be converted");
  }
}

void check_constant(const Function& bound) {
  const Outcome constant = outcome([&] { return bound.constant().value; });
  const Outcome evaluated =
      outcome([&] { return bound.evaluate(Base::Quantity(3.0, length)).value; });
  require(!constant.message && constant == evaluated, "a fixed formula has one value");
}

void check(const std::string& formula) {
  Function function;
  if (const auto message = refusal([&] { function.parse(formula); })) {
    require(starts(*message, "Error while parsing expression ::") ||
                starts(*message, "Unknown units - ") || starts(*message, "Formula \""),
            "a formula that cannot be read is reported as such");
    require(refusal([&] { function.units(), function.is_constant(); }).has_value(),
            "a formula that cannot be read leaves the function as it was");
    return;
  }
  check_written(formula, function);

  Base::Params asked;
  if (const auto message = refusal([&] { function.declare(asked); })) {
    require(starts(*message, "Incompatible units for => "), "only units can clash");
    return;
  }
  const Base::Params given = given_for(asked);
  const bool constant = Function(formula).is_constant();
  Base::Params used;
  bool fixed = false;
  const auto bind_failure = refusal([&] { fixed = function.bind(given, used); });
  Function again(formula);
  Base::Params used_again;
  require(bind_failure == refusal([&] { again.bind(given, used_again); }), "binding is repeatable");
  require(used.entries().size() <= given.entries().size(), "only given parameters are used");
  if (!bind_failure) {
    require(fixed == constant, "a formula is fixed if it has no variable");
    if (fixed) check_constant(function);
  }
  for (const Base::UnitCategory input : {unit, length, frequency}) {
    check_values(function, again, input);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  check(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
