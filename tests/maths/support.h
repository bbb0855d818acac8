// What the tests of wave mathematics share.
#ifndef KELPBOX_TESTS_MATHS_SUPPORT_H_
#define KELPBOX_TESTS_MATHS_SUPPORT_H_

#include <cmath>
#include <string>

// The text that a call throws, or a mark that it threw none.
template <typename Call>
std::string thrown_text(Call&& call) {
  try {
    call();
  } catch (const std::string& text) {
    return text;
  }
  return "(nothing thrown)";
}

// The wave number, by bisection of the dispersion relation down to the last bits.
inline double exact_wave_number(double omega, double depth, double g) {
  double low = 0.0;
  double high = omega * omega / g + omega / std::sqrt(g * depth);
  for (int halving = 0; halving < 200; ++halving) {
    const double k = 0.5 * (low + high);
    (g * k * std::tanh(k * depth) < omega * omega ? low : high) = k;
  }
  return 0.5 * (low + high);
}

// The integral of f from a to b, by Simpson's rule on `pieces` (even) pieces.
template <typename F>
auto simpson(F&& f, double a, double b, int pieces) {
  const double h = (b - a) / pieces;
  auto sum = f(a) + f(b);
  for (int i = 1; i < pieces; ++i) sum += f(a + i * h) * (i % 2 == 1 ? 4.0 : 2.0);
  return sum * (h / 3.0);
}

#endif  // KELPBOX_TESTS_MATHS_SUPPORT_H_
