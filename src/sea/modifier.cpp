#include "sea/modifier.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "maths/angle.h"

namespace Synthesis {

namespace Category = Base::Category;

Modifier::Modifier(Slot slot, std::string name, Base::UnitCategory limit_units,
                   Base::UnitCategory output_units, const std::string& text)
    : slot_(slot),
      name_(std::move(name)),
      limit_units_(limit_units),
      output_units_(output_units),
      functions_(parse_modifier_text(text, limit_units, output_units)) {}

void Modifier::query(Base::Params& out) {
  for (const Expression::Function& function : functions_) function.declare(out);
  on_query(out);
}

void Modifier::set(Base::Params& in) {
  for (Expression::Function& function : functions_) function.bind(in, params_);
  on_set(in, params_);
  for (std::size_t i = 0; i < functions_.size(); i += 2) {
    if (!functions_[i].compatible(Base::default_units(limit_units_).row)) {
      throw std::string("Incompatible expression");
    }
  }
  for (std::size_t i = 1; i < functions_.size(); i += 2) {
    if (!functions_[i].is_constant()) throw std::string("Limiting function not constant");
    const double limit = functions_[i].constant().get(limit_units_);
    limits_.push_back(limit_units_ == Category::angle ? Maths::wrap_angle(limit) : limit);
  }
  check_order();
}

void Modifier::check_order() const {
  const auto refuse = [] { throw std::string("Limits out of order"); };
  if (limit_units_ != Category::angle) {
    for (std::size_t i = 1; i < limits_.size(); ++i) {
      if (limits_[i] < limits_[i - 1]) refuse();
    }
    return;
  }
  // Limits that are angles may pass once through the wrap at pi.
  for (std::size_t i = 1; i + 1 < limits_.size(); ++i) {
    const double last = limits_.back();
    const double before = limits_[i - 1];
    const double limit = limits_[i];
    const bool falls = before > limit;
    const bool passes_last = limit > last;
    if (before < last ? falls || passes_last : falls && passes_last) refuse();
  }
}

std::size_t Modifier::function_at(double x) const {
  std::size_t i = 0;
  if (limit_units_ != Category::angle) {
    while (i < limits_.size() && !(x <= limits_[i])) ++i;
    return i;
  }
  // A single limit divides no circle.
  if (limits_.size() < 2) return 0;
  const double last = limits_.back();
  for (; i < limits_.size(); ++i) {
    const double limit = limits_[i];
    if (limit <= last ? x > last || limit > x : x > last && limit > x) break;
  }
  return i;
}

double Modifier::value(double x) const {
  if (functions_.empty()) throw name_ + "::evaluate::there is no expression";
  // Limits that a further `set` has appended once more lead to no function of their own.
  const std::size_t f = std::min(function_at(x), functions_.size() / 2);
  return functions_[2 * f].evaluate(Base::Quantity(x, limit_units_)).get(output_units_);
}

}  // namespace Synthesis
