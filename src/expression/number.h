// The numbers of a formula, from their digits.
#ifndef KELPBOX_EXPRESSION_NUMBER_H_
#define KELPBOX_EXPRESSION_NUMBER_H_

#include <bit>
#include <cstdint>

namespace Expression {

// The language's own pi, a few units short in its last digits of the nearest double. Kept as it
// stands: the results of every formula with pi depend on it.
inline constexpr double FormulaPi = std::bit_cast<double>(std::uint64_t{0x400921FB544428F7});

// Digits with a point. A point whatever the process's locale.
double read_real(const char* digits);

// Decimal digits, read as an unsigned 32-bit integer. A larger number keeps its low 32 bits.
double read_decimal(const char* digits);

// "0x" and hexadecimal digits, read in the same way.
double read_hexadecimal(const char* digits);

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_NUMBER_H_
