// An expression of several functions with limits between them.
//
// The functions are of frequency, time or angle. A component's expression begins and ends with a
// limit, a modifier's with a function: piecewise_text.h parses both. limit_rules.h decides which
// function holds where. Failures are thrown as std::string.
#ifndef KELPBOX_SEA_PIECEWISE_H_
#define KELPBOX_SEA_PIECEWISE_H_

#include <cstddef>
#include <vector>

#include "base/params.h"
#include "base/units.h"
#include "expression/curve.h"
#include "expression/function.h"
#include "sea/limit_rules.h"

namespace Synthesis {

// Limits and functions, in the order of the text.
using Formulas = std::vector<Expression::Function>;

// The functions of an expression, for use at many values.
using Curves = std::vector<Expression::Curve>;

// The categories of the limits, and of the arguments and results of the functions.
struct PieceUnits {
  Base::UnitCategory limit = Base::Category::error;
  Base::UnitCategory input = Base::Category::error;
  Base::UnitCategory output = Base::Category::error;
};

class Piecewise {
 public:
  enum class Begins { with_limit, with_function };

  Piecewise(Formulas formulas, Begins begins, const PieceUnits& units);

  std::size_t function_count() const;
  const Expression::Function& function(std::size_t i) const;
  const Limits& limits() const { return limits_; }
  const PieceUnits& units() const { return units_; }

  // Declares the parameters of the formulas.
  void declare(Base::Params& out) const;

  // For components: binds the formulas again, and reads each limit as soon as it is bound. After a
  // failure, the limits before it remain.
  void bind_with_limits(const Base::Params& in, Base::Params& stored);
  // Whether the last bind_with_limits read all limits.
  bool has_all_limits() const { return limits_.size() == function_count() + 1; }
  // Throws "Limit values do not increase in size".
  void check_limits_rise() const;

  // For modifiers: binds the formulas, and reads no limit.
  void bind(const Base::Params& in, Base::Params& stored);
  // Appends the limits to those of earlier calls. Throws "Incompatible expression", "Limiting
  // function not constant", "Limits out of order".
  void append_limits();
  // The function that holds at x, and its value there, both in base units. There must be at least
  // one function.
  std::size_t function_at(double x) const;
  double evaluate(double x) const;

  // All functions as they are bound now, for a variable and a result of those categories.
  Curves curves(Base::UnitCategory input, Base::UnitCategory output) const;

 private:
  bool is_limit(std::size_t formula) const { return formula % 2 != first_function_; }

  Formulas formulas_;
  std::size_t first_function_;  // its place among the formulas, 0 or 1
  PieceUnits units_;
  Limits limits_;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_PIECEWISE_H_
