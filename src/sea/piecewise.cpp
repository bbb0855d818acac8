#include "sea/piecewise.h"

#include <algorithm>
#include <string>
#include <utility>

#include "maths/angle.h"

namespace Synthesis {

Piecewise::Piecewise(Formulas formulas, Begins begins, const PieceUnits& units)
    : formulas_(std::move(formulas)),
      first_function_(begins == Begins::with_function ? 0 : 1),
      units_(units) {}

std::size_t Piecewise::function_count() const {
  return (formulas_.size() + 1 - first_function_) / 2;
}

const Expression::Function& Piecewise::function(std::size_t i) const {
  return formulas_[2 * i + first_function_];
}

void Piecewise::declare(Base::Params& out) const {
  for (const Expression::Function& formula : formulas_) formula.declare(out);
}

void Piecewise::bind_with_limits(const Base::Params& in, Base::Params& stored) {
  limits_.clear();
  for (std::size_t i = 0; i < formulas_.size(); ++i) {
    formulas_[i].bind(in, stored);
    if (is_limit(i)) limits_.push_back(formulas_[i].constant().get(units_.limit));
  }
}

void Piecewise::check_limits_rise() const {
  if (!limits_rise(limits_)) throw std::string("Limit values do not increase in size");
}

void Piecewise::bind(const Base::Params& in, Base::Params& stored) {
  for (Expression::Function& formula : formulas_) formula.bind(in, stored);
}

void Piecewise::append_limits() {
  const bool angles = units_.limit == Base::Category::angle;
  for (std::size_t i = 0; i < function_count(); ++i) {
    if (!function(i).compatible(Base::default_units(units_.input).row)) {
      throw std::string("Incompatible expression");
    }
  }
  for (std::size_t i = 0; i < formulas_.size(); ++i) {
    if (!is_limit(i)) continue;
    if (!formulas_[i].is_constant()) throw std::string("Limiting function not constant");
    const double limit = formulas_[i].constant().get(units_.limit);
    limits_.push_back(angles ? Maths::wrap_angle(limit) : limit);
  }
  if (!(angles ? angles_in_order(limits_) : frequencies_in_order(limits_))) {
    throw std::string("Limits out of order");
  }
}

std::size_t Piecewise::function_at(double x) const {
  const bool angles = units_.limit == Base::Category::angle;
  const std::size_t found =
      angles ? function_at_angle(limits_, x) : function_at_frequency(limits_, x);
  // Limits that a second `set` appended have no functions.
  return std::min(found, function_count() - 1);
}

double Piecewise::evaluate(double x) const {
  return function(function_at(x)).evaluate(Base::Quantity(x, units_.input)).get(units_.output);
}

Curves Piecewise::curves(Base::UnitCategory input, Base::UnitCategory output) const {
  Curves curves;
  curves.reserve(function_count());
  for (std::size_t i = 0; i < function_count(); ++i) {
    curves.emplace_back(function(i), input, output);
  }
  return curves;
}

}  // namespace Synthesis
