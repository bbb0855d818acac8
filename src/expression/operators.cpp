#include "expression/operators.h"

#include <array>
#include <string>

namespace Expression {
namespace {

// By operator number. "sqr" and "log10" are printed on purpose, although the names in a formula are
// "square" and "lg10".
constexpr std::array<const char*, 16> unary_prefixes{
    "-(",    "sqr(",  "sqrt(", "tan(",  "cos(", "sin(", "atan(",  "acos(",
    "asin(", "tanh(", "cosh(", "sinh(", "exp(", "log(", "log10(", "tgamma("};

constexpr std::array<const char*, 6> binary_infixes{" ^ ", " * ", " / ", " + ", " - ", ", "};

}  // namespace

void throw_unknown_unary() { throw std::string("Unknown unary operator in eval"); }

void throw_unknown_binary() { throw std::string("Unknown binary operator in eval"); }

const char* unary_prefix(OperatorNumber op) {
  return op < unary_prefixes.size() ? unary_prefixes[op] : "(";
}

const char* binary_prefix(OperatorNumber op) { return op == Binary::arc_tangent ? "atan2(" : "("; }

const char* binary_infix(OperatorNumber op) {
  return op < binary_infixes.size() ? binary_infixes[op] : "";
}

}  // namespace Expression
