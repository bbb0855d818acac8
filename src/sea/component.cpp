#include "sea/component.h"

#include <cstddef>
#include <utility>

namespace Synthesis {

Component::Component(std::string name, const std::string& text)
    : name_(std::move(name)), functions_(parse_component_text(text)) {
  limit_units_ = find_limit_units(functions_);
  output_units_ = find_output_units(functions_);
  input_units_ = find_input_units(functions_);
  check_constant_limits(functions_);
}

Component::Component(std::string name) : name_(std::move(name)) {}

void Component::query(Base::Params& out) {
  for (const Expression::Function& function : functions_) function.declare(out);
  on_query(out);
}

void Component::set(Base::Params& in) {
  params_.clear();
  evaluated_ = false;
  limits_.clear();
  for (std::size_t i = 0; i < functions_.size(); ++i) {
    functions_[i].bind(in, params_);
    if (i % 2 == 0) limits_.push_back(functions_[i].constant().get(limit_units_));
  }
  on_set(in, params_);
  for (std::size_t i = 1; i < limits_.size(); ++i) {
    // Written so that a limit which is not a number fails too.
    if (!(limits_[i] > limits_[i - 1])) throw std::string("Limit values do not increase in size");
  }
  ready_ = true;
}

void Component::evaluate(Maths::FrontSet& fronts, const RunContext& context) {
  if (!ready_) throw name_ + "::evaluate::when not ready";
  if (enabled_) on_evaluate(params_, fronts, context);
  evaluated_ = true;
}

void Component::write_frequencies(std::ostream&, const std::string&) const {}

}  // namespace Synthesis
