// A function of plain numbers: a formula whose variable and result have fixed units.
#ifndef KELPBOX_EXPRESSION_CURVE_H_
#define KELPBOX_EXPRESSION_CURVE_H_

#include "base/quantity.h"
#include "base/units.h"
#include "expression/function.h"
#include "expression/program.h"

namespace Expression {

// Refers to the function, which must outlive it. A later parse or bind of the function makes it out
// of date.
class Curve {
 public:
  // The variable is in the default units of `input`, the result in the base unit of `output`. Never
  // fails: what is wrong with the formula or its units is reported when a value is read.
  Curve(const Function& function, Base::UnitCategory input, Base::UnitCategory output);

  // The same bits as Function::evaluate(Quantity(x, input)).get(output), and the same failures.
  double operator()(double x) const {
    if (compiled_) return program_.run(x);
    return function_->evaluate(Base::Quantity(x, input_)).get(output_);
  }

 private:
  const Function* function_;
  Base::UnitCategory input_;
  Base::UnitCategory output_;
  Program program_;
  bool compiled_ = false;
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_CURVE_H_
