// A parsed formula, such as "2*$[Hz]^2 + sqrt(depth[m])/pi @m".
//
// `$[units]` is the variable and a name is a parameter. The units of the result follow the first
// `@`; without it the result is a plain number. A function is parsed, then bound to parameters,
// then evaluated as often as needed. After binding, evaluation only reads. Every failure is thrown
// as a std::string. The functions that a formula can call, such as sqrt, are in operators.h.
#ifndef KELPBOX_EXPRESSION_FUNCTION_H_
#define KELPBOX_EXPRESSION_FUNCTION_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "base/params.h"
#include "base/quantity.h"
#include "base/units.h"

namespace Expression {

class Node;
class Program;

class Function {
 public:
  Function();
  explicit Function(const std::string& text);
  ~Function();
  Function(Function&&) noexcept;
  Function& operator=(Function&&) noexcept;

  // Replaces the formula, unless parsing fails. Throws "Error while parsing expression ::<what
  // precedes the @>", "Unknown units - <units>", or "Formula ..." for a number, name or unit that
  // is too long (docs/limits.md).
  void parse(const std::string& text);

  // Everything below throws "Evaluated incomplete function" when nothing has been parsed.

  // Declares the parameters of the formula in `out`.
  void declare(Base::Params& out) const;
  // Reads the parameters from `source` and adds the entries that it used to `target`. Returns
  // whether the function is now one fixed value.
  bool bind(const Base::Params& source, Base::Params& target);
  // Whether the formula has no variable.
  bool is_constant();
  // Whether the variable can have the units of that row of the unit table.
  bool compatible(std::uint32_t unit_row) const;
  // The result for that value of the variable.
  Base::Quantity evaluate(const Base::Quantity& variable) const;
  // The value of a function that bind or is_constant has found to be fixed. Throws "Trying to find
  // the constant value of a non constant function", and as evaluate does if it has not been bound.
  Base::Quantity constant() const;
  // Adds the steps of the formula for a variable in the given units. Returns false, or throws as
  // Base::factor does, for a formula that has none: `evaluate` then reports what is wrong.
  bool compile(Base::Units variable, Program& out) const;
  // The units of the result.
  Base::Units units() const { return units_; }
  // Writes the formula, fully parenthesised.
  void print(std::ostream& out) const;

 private:
  class Parser;

  // Throws "Evaluated incomplete function".
  Node& root() const;

  std::unique_ptr<Node> root_;
  bool fixed_ = false;           // there is no variable
  bool checked_ = false;         // fixed_ has been determined
  std::optional<double> value_;  // set by bind when fixed
  Base::Units units_;
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_FUNCTION_H_
