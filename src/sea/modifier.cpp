#include "sea/modifier.h"

#include <utility>

#include "sea/piecewise_text.h"

namespace Synthesis {

Modifier::Modifier(Slot slot, std::string name, Base::UnitCategory limit_units,
                   Base::UnitCategory output_units, const std::string& text)
    : slot_(slot),
      name_(std::move(name)),
      expression_(parse_modifier_text(text, limit_units, output_units)) {}

void Modifier::query(Base::Params& out) {
  expression_.declare(out);
  on_query(out);
}

void Modifier::set(Base::Params& in) {
  expression_.bind(in, params_);
  on_set(in, params_);
  expression_.append_limits();
}

double Modifier::value(double x) const {
  if (expression_.function_count() == 0) throw name_ + "::evaluate::there is no expression";
  return expression_.evaluate(x);
}

Modifier::Values::Values(const Modifier& modifier)
    : modifier_(modifier),
      curves_(modifier.expression_.curves(modifier.expression_.units().input,
                                          modifier.expression_.units().output)) {}

double Modifier::Values::operator()(double x) const {
  if (curves_.empty()) return modifier_.value(x);
  return curves_[modifier_.expression_.function_at(x)](x);
}

}  // namespace Synthesis
