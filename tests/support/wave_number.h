// The wave number of linear theory, exact to rounding.
#ifndef KELPBOX_TESTS_SUPPORT_WAVE_NUMBER_H_
#define KELPBOX_TESTS_SUPPORT_WAVE_NUMBER_H_

#include <cmath>

namespace Testing {

// The root k of omega^2 = g k tanh(k depth), by bisection to the last bits. It shares nothing with
// the library's approximation.
inline double exact_wave_number(double omega, double depth, double g = 9.81) {
  // The root lies below the sum of the deep and the shallow water limits.
  double low = 0.0;
  double high = omega * omega / g + omega / std::sqrt(g * depth);
  for (int halving = 0; halving < 200; ++halving) {
    const double k = 0.5 * (low + high);
    (g * k * std::tanh(k * depth) < omega * omega ? low : high) = k;
  }
  return 0.5 * (low + high);
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_WAVE_NUMBER_H_
