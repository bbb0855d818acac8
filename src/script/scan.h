// The scanner of one script file. Its patterns are in script_scan.l.
#ifndef KELPBOX_SCRIPT_SCAN_H_
#define KELPBOX_SCRIPT_SCAN_H_

#include <istream>
#include <string>

#ifndef yyFlexLexerOnce
#define yyFlexLexer ScriptScanFlexLexer
#include <FlexLexer.h>
#endif

#include "script/variable.h"

namespace Script {

class ScriptScan : public ScriptScanFlexLexer {
 public:
  // The stream is not owned.
  explicit ScriptScan(std::istream& in);

  // The kind of the next token, or 0 at the end. Throws const char* when the stream or the scanner
  // fails.
  int yylex() override;

  // The last token: its characters, its value (empty unless it is a number or a string), and where
  // it begins.
  std::string text() const { return {YYText(), static_cast<std::size_t>(YYLeng())}; }
  Variable& value() { return value_; }
  unsigned line() const { return token_line_; }
  unsigned column() const { return token_column_; }

 protected:
  // As the generated one, which yylex would call.
  using ScriptScanFlexLexer::yy_create_buffer;
  yy_buffer_state* yy_create_buffer(std::istream& in, int size) override;

  // Writes meaningless characters to standard output.
  void LexerOutput(const char* characters, int count) override;
  int LexerInput(char* buffer, int size) override;
  void LexerError(const char* message) override;

 private:
  // Clears the value and moves the position past the token.
  void advance(const char* characters, int count);

  std::istream& in_;
  Variable value_;
  unsigned line_ = 1;
  unsigned column_ = 1;
  unsigned token_line_ = 1;
  unsigned token_column_ = 1;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_SCAN_H_
