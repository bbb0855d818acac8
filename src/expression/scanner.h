// Cuts the text of a formula into tokens. The rules stand in expression_scan.l.
//
// A newline goes to the standard output stream; any other character that starts no token is
// skipped without a word.
#ifndef KELPBOX_EXPRESSION_SCANNER_H_
#define KELPBOX_EXPRESSION_SCANNER_H_

#include <deque>
#include <istream>
#include <string>

#include "expression/token.h"

// The header of the scanner generator makes a class of the name that it is given. The generated
// file has included it already when it comes here.
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

  // The kind of the next token, 0 at the end of the text. A text that `value` points at lives as
  // long as the scanner.
  int next(TokenValue& value);

 private:
  int yylex() override;
  // Throws a std::string. The generated scanner would end the process.
  void LexerError(const char* message) override;

  // Each fills value_ and returns the token's kind.
  int number(double value);
  int function(OperatorNumber op, int kind);
  int text(std::string text, int kind);

  TokenValue value_{};
  std::deque<std::string> texts_;
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_SCANNER_H_
