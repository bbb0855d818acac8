// Converts the number literals of scripts and formulas. The process's locale has no effect.
#ifndef KELPBOX_BASE_LITERAL_H_
#define KELPBOX_BASE_LITERAL_H_

#include <cstdint>

namespace Base {

// Integers of any length keep their low 32 bits.
std::uint32_t decimal_literal(const char* digits);
// The digits after the "0x", in either case.
std::uint32_t hexadecimal_literal(const char* digits);

// The nearest double, infinity when the number is too large.
double real_literal(const char* digits);

}  // namespace Base

#endif  // KELPBOX_BASE_LITERAL_H_
