// The value that a token carries from the scanner to the parser.
#ifndef KELPBOX_EXPRESSION_TOKEN_H_
#define KELPBOX_EXPRESSION_TOKEN_H_

#include <string>

#include "expression/operators.h"

namespace Expression {

// Only the field of the token's kind is valid.
struct TokenValue {
  double number;            // CONST_VAL
  OperatorNumber op;        // UNARY_FUNC, BINARY_FUNC
  const std::string* text;  // PARAMETER, and UNITS without its brackets
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_TOKEN_H_
