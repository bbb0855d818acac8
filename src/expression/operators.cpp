#include "expression/operators.h"

#include <array>
#include <cmath>
#include <string>

#include "expression/gamma.h"

namespace Expression {
namespace {

// By operator number. "sqr" and "log10" are printed on purpose, although the names in a formula are
// "square" and "lg10".
constexpr std::array<const char*, 16> unary_prefixes{
    "-(",    "sqr(",  "sqrt(", "tan(",  "cos(", "sin(", "atan(",  "acos(",
    "asin(", "tanh(", "cosh(", "sinh(", "exp(", "log(", "log10(", "tgamma("};

constexpr std::array<const char*, 6> binary_infixes{" ^ ", " * ", " / ", " + ", " - ", ", "};

}  // namespace

double apply_unary(OperatorNumber op, double x) {
  switch (op) {
    case Unary::negate:
      return -x;
    case Unary::square:
      return x * x;
    case Unary::square_root:
      return std::sqrt(x);
    case Unary::tangent:
      return std::tan(x);
    case Unary::cosine:
      return std::cos(x);
    case Unary::sine:
      return std::sin(x);
    case Unary::arc_tangent:
      return std::atan(x);
    case Unary::arc_cosine:
      return std::acos(x);
    case Unary::arc_sine:
      return std::asin(x);
    case Unary::hyperbolic_tangent:
      return std::tanh(x);
    case Unary::hyperbolic_cosine:
      return std::cosh(x);
    case Unary::hyperbolic_sine:
      return std::sinh(x);
    case Unary::exponential:
      return std::exp(x);
    case Unary::natural_logarithm:
      return std::log(x);
    case Unary::decimal_logarithm:
      return std::log10(x);
    case Unary::gamma:
      return tgamma(x);
    default:
      throw std::string("Unknown unary operator in eval");
  }
}

double apply_binary(OperatorNumber op, double left, double right) {
  switch (op) {
    case Binary::power:
      return std::pow(left, right);
    case Binary::times:
      return left * right;
    case Binary::divide:
      return left / right;
    case Binary::plus:
      return left + right;
    case Binary::minus:
      return left - right;
    case Binary::arc_tangent:
      return std::atan2(left, right);
    default:
      throw std::string("Unknown binary operator in eval");
  }
}

const char* unary_prefix(OperatorNumber op) {
  return op < unary_prefixes.size() ? unary_prefixes[op] : "(";
}

const char* binary_prefix(OperatorNumber op) { return op == Binary::arc_tangent ? "atan2(" : "("; }

const char* binary_infix(OperatorNumber op) {
  return op < binary_infixes.size() ? binary_infixes[op] : "";
}

}  // namespace Expression
