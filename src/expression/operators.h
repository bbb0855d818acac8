// The numbers of the operators of the expression language, shared by its scanner, its grammar and
// its nodes. Plain numbers, since a function name may carry one that no node can evaluate.
#ifndef KELPBOX_EXPRESSION_OPERATORS_H_
#define KELPBOX_EXPRESSION_OPERATORS_H_

#include <cstdint>

namespace Expression {

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
// The language knows the name `mod`, and hosts rely on it to parse; it has no evaluation.
inline constexpr OperatorNumber modulo = 6;
}  // namespace Binary

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_OPERATORS_H_
