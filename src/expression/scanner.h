// Splits a formula into tokens. The rules are in expression_scan.l.
//
// A newline is written to standard output. Any other character that starts no token is ignored.
#ifndef KELPBOX_EXPRESSION_SCANNER_H_
#define KELPBOX_EXPRESSION_SCANNER_H_

#include <deque>
#include <istream>
#include <string>

#include "expression/token.h"

// FlexLexer.h defines a class of the name given here. The generated file has included it already
// when it includes this header.
#ifndef yyFlexLexerOnce
#define yyFlexLexer ExpressionScanFlexLexer
#include <FlexLexer.h>
#undef yyFlexLexer
#endif

namespace Expression {

class ExpressionScanner final : public ExpressionScanFlexLexer {
 public:
  // Reads from `text`, which must outlive the scanner.
  explicit ExpressionScanner(std::istream& text);

  // The kind of the next token, or 0 at the end. A string that `value` points at lives as long as
  // the scanner.
  int next(TokenValue& value);

 private:
  // As the generated one, which yylex would call.
  using ExpressionScanFlexLexer::yy_create_buffer;
  yy_buffer_state* yy_create_buffer(std::istream& in, int size) override;

  int yylex() override;
  // Throws a std::string, where the generated scanner would end the process.
  void LexerError(const char* message) override;

  // Each sets the token's value and returns its kind.
  int number(double value);
  int function(OperatorNumber op, int kind);
  int text(std::string text, int kind);

  TokenValue value_{};
  std::deque<std::string> texts_;
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_SCANNER_H_
