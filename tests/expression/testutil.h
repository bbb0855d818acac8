// What the tests of formulas share.
#ifndef KELPBOX_TESTS_EXPRESSION_TESTUTIL_H_
#define KELPBOX_TESTS_EXPRESSION_TESTUTIL_H_

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "base/quantity.h"
#include "base/units.h"
#include "expression/function.h"

namespace Expression {

// The message that a call throws. Anything but a std::string, or nothing, is a failed test.
template <typename Call>
std::string thrown(Call call) {
  try {
    call();
  } catch (const std::string& message) {
    return message;
  }
  ADD_FAILURE() << "nothing was thrown";
  return "";
}

inline Base::Quantity quantity(double value, const std::string& units) {
  return {value, Base::resolve_units(units), Base::ValueState{}};
}

template <typename Printable>
std::string printed(const Printable& tree) {
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
