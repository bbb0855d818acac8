// A formula text, parsed: "2*$[Hz]^2 + sqrt(depth[m])/pi @m".
//
// `$[units]` is the variable, a name is a parameter, and what follows the first `@` is the units
// of the result, the plain number without one. A function is parsed, then bound to parameters,
// then evaluated as often as needed. Every failure is thrown as a std::string. Once bound,
// evaluation only reads.
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

class Function {
 public:
  Function();
  // Parses the text.
  explicit Function(const std::string& text);
  ~Function();
  Function(Function&&) noexcept;
  Function& operator=(Function&&) noexcept;

  // Replaces the tree; a text that fails leaves the function as it was. Throws "Error while
  // parsing expression ::" and the text before the first `@`, "Unknown units - " and the unit
  // text, or "Formula ..." for a number, name or unit that is too long (docs/limits.md).
  void parse(const std::string& text);

  // Everything below throws "Evaluated incomplete function" when nothing has been parsed.

  // Announces the parameters that the formula names.
  void declare(Base::Params& out) const;
  // Reads the parameters from `source`, and lists in `target` the entries that were used.
  // Returns whether the function is now one fixed value.
  bool bind(const Base::Params& source, Base::Params& target);
  // Whether the formula has no variable.
  bool is_constant();
  // Whether the variable can be given in the units of that row.
  bool compatible(std::uint32_t unit_row) const;
  // The result for that value of the variable, in the units of the function.
  Base::Quantity evaluate(const Base::Quantity& variable) const;
  // The value of a function that bind or is_constant has found to be fixed. Throws "Trying to
  // find the constant value of a non constant function", and as evaluate does when the function
  // has not been bound.
  Base::Quantity constant() const;
  Base::Units units() const { return units_; }
  // The tree in the language's notation.
  void print(std::ostream& out) const;

 private:
  class Parser;

  const Node& root() const;
  Node& root();

  std::unique_ptr<Node> root_;
  bool fixed_ = false;
  bool checked_ = false;         // fixed_ is settled
  std::optional<double> value_;  // once bound, when fixed
  Base::Units units_;
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_FUNCTION_H_
