// Formulas that cannot give NaN or infinity, whatever their variable: made only of short numbers,
// the variable, parameters, sums, differences and products, sines and cosines.
#ifndef KELPBOX_FUZZ_BOUNDED_FORMULA_H_
#define KELPBOX_FUZZ_BOUNDED_FORMULA_H_

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace Fuzz {

inline bool is_digit(char one) { return (one >= '0' && one <= '9') || one == '.'; }

// Limits, formulas and units as a host gives them to an item. Products of so few short numbers are
// far below the largest number.
inline bool is_bounded_formula(std::string_view text) {
  constexpr std::size_t most_characters = 80;
  constexpr std::size_t most_digits = 5;
  if (text.size() > most_characters) return false;
  std::size_t digits = 0;
  while (!text.empty()) {
    std::size_t length = 1;
    if (is_digit(text[0])) {
      if (++digits > most_digits) return false;
    } else {
      digits = 0;
      for (const std::string_view word :
           {"sin(", "cos(", "$[Hz]", "$[s]", "$[rad]", "a[m]", "b[Hz]", "c[s]", "f[Hz]", "@Hz",
            "@m2s", "@ms", "@m", "@s", "@rad", "@deg"}) {
        if (text.substr(0, word.size()) == word) {
          length = word.size();
          break;
        }
      }
      if (length == 1 && std::string_view("+-*()# ").find(text[0]) == std::string_view::npos) {
        return false;
      }
    }
    text.remove_prefix(length);
  }
  return true;
}

// A spectrum that is not negative either: a negative variance density has no amplitude. It has one
// function: a limit below the band in which it counts mixes functions, and their sum may be
// negative (docs/components.md).
inline bool is_bounded_density(std::string_view text) {
  return is_bounded_formula(text) && std::count(text.begin(), text.end(), '#') == 2 &&
         text.find_first_of("-abcf") == std::string_view::npos &&
         text.find("sin") == std::string_view::npos;
}

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_BOUNDED_FORMULA_H_
