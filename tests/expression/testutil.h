// Helpers for the tests of formulas.
#ifndef KELPBOX_TESTS_EXPRESSION_TESTUTIL_H_
#define KELPBOX_TESTS_EXPRESSION_TESTUTIL_H_

#include <sstream>
#include <string>

#include "base/quantity.h"
#include "base/units.h"
#include "expression/function.h"

namespace Expression {

inline Base::Quantity quantity(double value, const std::string& units) {
  return {value, Base::resolve_units(units), Base::ValueState{}};
}

// The formula as the library writes it back.
template <typename Printable>
std::string written(const Printable& tree) {
  std::ostringstream out;
  tree.print(out);
  return out.str();
}

// The value of a formula without parameters.
inline double evaluated(const std::string& formula, const Base::Quantity& variable = {}) {
  return Function(formula).evaluate(variable).value;
}

}  // namespace Expression

#endif  // KELPBOX_TESTS_EXPRESSION_TESTUTIL_H_
