#include "script/scan.h"

#include <locale.h>

#include <clocale>
#include <cstdlib>

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

void ScriptScan::LexerError(const char* text) { throw text; }

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

std::int32_t decimal_literal(const char* digits) {
  std::uint32_t value = 0;
  for (; *digits; ++digits) value = value * 10 + static_cast<std::uint32_t>(*digits - '0');
  return std::bit_cast<std::int32_t>(value);
}

std::int32_t hexadecimal_literal(const char* digits) {
  std::uint32_t value = 0;
  for (; *digits; ++digits) {
    const char digit = *digits;
    const int four_bits = digit <= '9' ? digit - '0' : (digit | 0x20) - 'a' + 10;
    value = value << 4 | static_cast<std::uint32_t>(four_bits);
  }
  return std::bit_cast<std::int32_t>(value);
}

double real_literal(const char* digits) {
  // The host may have set a locale with another decimal mark.
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(digits, nullptr, plain);
}

}  // namespace Script
