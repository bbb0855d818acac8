// The operators and functions of the expression language: their numbers, their values and their
// printed forms. expression_scan.l has the names of the functions in a formula. docs/expressions.md
// describes them.
#ifndef KELPBOX_EXPRESSION_OPERATORS_H_
#define KELPBOX_EXPRESSION_OPERATORS_H_

#include <cstdint>

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

// Throw a std::string: "Unknown unary operator in eval", "Unknown binary operator in eval", and
// what tgamma throws. NaN and infinity pass through.
double apply_unary(OperatorNumber op, double x);
double apply_binary(OperatorNumber op, double left, double right);

// The text printed before and between the operands. A ")" follows the last operand.
const char* unary_prefix(OperatorNumber op);
const char* binary_prefix(OperatorNumber op);
const char* binary_infix(OperatorNumber op);

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_OPERATORS_H_
