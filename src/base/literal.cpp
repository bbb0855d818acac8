#include "base/literal.h"

#include <locale.h>
#include <stdlib.h>

namespace Base {
namespace {

std::uint32_t low_bits(const char* digits, std::uint32_t base) {
  std::uint32_t value = 0;
  for (; *digits != '\0'; ++digits) {
    const char c = *digits;
    const int digit = c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
    value = value * base + static_cast<std::uint32_t>(digit);
  }
  return value;
}

}  // namespace

std::uint32_t decimal_literal(const char* digits) { return low_bits(digits, 10); }

std::uint32_t hexadecimal_literal(const char* digits) { return low_bits(digits, 16); }

double real_literal(const char* digits) {
  // The host may have set a locale with another decimal mark.
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(digits, nullptr, plain);
}

}  // namespace Base
