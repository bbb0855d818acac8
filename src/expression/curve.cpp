#include "expression/curve.h"

#include <string>

namespace Expression {

Curve::Curve(const Function& function, Base::UnitCategory input, Base::UnitCategory output)
    : function_(&function), input_(input), output_(output) {
  try {
    compiled_ = function.compile(Base::default_units(input), program_);
    program_.finish(Base::factor_to_base(function.units(), output));
  } catch (const std::string&) {
    compiled_ = false;  // the function reports it
  }
}

}  // namespace Expression
