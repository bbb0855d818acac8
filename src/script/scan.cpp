#include "script/scan.h"

#include "base/streams.h"

namespace Script {

ScriptScan::ScriptScan(std::istream& in) : ScriptScanFlexLexer(in, Base::progress()), in_(in) {}

void ScriptScan::LexerOutput(const char* characters, int count) {
  Base::progress().write(characters, count);
}

int ScriptScan::LexerInput(char* buffer, int size) {
  in_.read(buffer, size);
  return in_.bad() ? -1 : static_cast<int>(in_.gcount());
}

void ScriptScan::LexerError(const char* message) { throw message; }

void ScriptScan::advance(const char* characters, int count) {
  value_ = Variable();
  token_line_ = line_;
  token_column_ = column_;
  for (const char* end = characters + count; characters != end; ++characters) {
    if (*characters == '\n') {
      ++line_;
      column_ = 1;
    } else {
      ++column_;
    }
  }
}

}  // namespace Script
