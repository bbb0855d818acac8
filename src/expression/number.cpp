#include "expression/number.h"

#include <locale.h>
#include <stdlib.h>

namespace Expression {
namespace {

std::uint32_t read_integer(const char* digits, std::uint32_t base) {
  std::uint32_t value = 0;
  for (; *digits != '\0'; ++digits) {
    const char c = *digits;
    const int digit = c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
    value = value * base + static_cast<std::uint32_t>(digit);
  }
  return value;
}

}  // namespace

double read_real(const char* digits) {
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(digits, nullptr, plain);
}

double read_decimal(const char* digits) { return read_integer(digits, 10); }

double read_hexadecimal(const char* digits) { return read_integer(digits + 2, 16); }

}  // namespace Expression
