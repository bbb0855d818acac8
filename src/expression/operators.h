// The operators and functions of the expression language: their numbers, their values and their
// printed forms. expression_scan.l has the names of the functions in a formula. docs/expressions.md
// describes them.
#ifndef KELPBOX_EXPRESSION_OPERATORS_H_
#define KELPBOX_EXPRESSION_OPERATORS_H_

#include <cmath>
#include <cstdint>

#include "expression/gamma.h"

namespace Expression {

// A plain number and not an enumeration, since the number of `mod` has no evaluation.
using OperatorNumber = std::uint32_t;

namespace Unary {
inline constexpr OperatorNumber negate = 0;
inline constexpr OperatorNumber square = 1;
inline constexpr OperatorNumber square_root = 2;
inline constexpr OperatorNumber tangent = 3;
inline constexpr OperatorNumber cosine = 4;
inline constexpr OperatorNumber sine = 5;
inline constexpr OperatorNumber arc_tangent = 6;
inline constexpr OperatorNumber arc_cosine = 7;
inline constexpr OperatorNumber arc_sine = 8;
inline constexpr OperatorNumber hyperbolic_tangent = 9;
inline constexpr OperatorNumber hyperbolic_cosine = 10;
inline constexpr OperatorNumber hyperbolic_sine = 11;
inline constexpr OperatorNumber exponential = 12;
inline constexpr OperatorNumber natural_logarithm = 13;
inline constexpr OperatorNumber decimal_logarithm = 14;
inline constexpr OperatorNumber gamma = 15;
}  // namespace Unary

namespace Binary {
inline constexpr OperatorNumber power = 0;
inline constexpr OperatorNumber times = 1;
inline constexpr OperatorNumber divide = 2;
inline constexpr OperatorNumber plus = 3;
inline constexpr OperatorNumber minus = 4;
inline constexpr OperatorNumber arc_tangent = 5;
// Kept although it cannot be evaluated: hosts rely on `mod` being parsed.
inline constexpr OperatorNumber modulo = 6;
}  // namespace Binary

[[noreturn]] void throw_unknown_unary();   // std::string "Unknown unary operator in eval"
[[noreturn]] void throw_unknown_binary();  // std::string "Unknown binary operator in eval"

// Throw as the two above, and what tgamma throws. NaN and infinity pass through. Inline because
// they are called for each part of a formula at each value of its variable.
inline double apply_unary(OperatorNumber op, double x) {
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
      throw_unknown_unary();
  }
}

inline double apply_binary(OperatorNumber op, double left, double right) {
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
      throw_unknown_binary();
  }
}

// The text printed before and between the operands. A ")" follows the last operand.
const char* unary_prefix(OperatorNumber op);
const char* binary_prefix(OperatorNumber op);
const char* binary_infix(OperatorNumber op);

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_OPERATORS_H_
