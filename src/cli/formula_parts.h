// What a formula can be made of. The tests evaluate every entry with the library, and compare the
// functions with the names that its scanner knows.
#ifndef KELPBOX_CLI_FORMULA_PARTS_H_
#define KELPBOX_CLI_FORMULA_PARTS_H_

#include <span>
#include <string_view>

namespace Cli {

struct FormulaFunction {
  std::string_view name;
  int arguments;  // 1 or 2
  std::string_view meaning;
  std::string_view example;  // empty for a function that cannot be evaluated
  std::string_view value;    // of the example
};

struct FormulaOperator {
  std::string_view written;
  std::string_view meaning;
  std::string_view example;
  std::string_view value;
};

struct FormulaConstant {
  std::string_view name;
  std::string_view meaning;
  std::string_view value;
};

std::span<const FormulaFunction> formula_functions();
std::span<const FormulaOperator> formula_operators();  // from the strongest to the weakest binding
std::span<const FormulaConstant> formula_constants();
// What surprises people, one line each.
std::span<const std::string_view> formula_traps();

}  // namespace Cli

#endif  // KELPBOX_CLI_FORMULA_PARTS_H_
