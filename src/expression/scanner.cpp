#include "expression/scanner.h"

#include <utility>

#include "base/streams.h"
#include "expression_parse.hpp"

namespace Expression {

ExpressionScanner::ExpressionScanner(std::istream& text)
    : ExpressionScanFlexLexer(text, Base::progress()) {}

int ExpressionScanner::next(TokenValue& value) {
  value_ = {};
  const int kind = yylex();
  value = value_;
  return kind;
}

void ExpressionScanner::LexerError(const char* message) { throw std::string(message); }

int ExpressionScanner::number(double value) {
  value_.number = value;
  return CONST_VAL;
}

int ExpressionScanner::function(OperatorNumber op, int kind) {
  value_.op = op;
  return kind;
}

int ExpressionScanner::text(std::string text, int kind) {
  value_.text = &texts_.emplace_back(std::move(text));
  return kind;
}

}  // namespace Expression
