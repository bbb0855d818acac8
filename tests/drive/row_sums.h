// The sums of the fronts of one harmonic over a row of paddles: those of the library, and the plain
// ones.
#ifndef KELPBOX_TESTS_DRIVE_ROW_SUMS_H_
#define KELPBOX_TESTS_DRIVE_ROW_SUMS_H_

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <span>
#include <vector>

#include "drive/front_sums.h"

namespace Testing {

// The library's.
inline void add_fronts(const Synthesis::PaddleRow& row, const Synthesis::PaddleHarmonic& harmonic,
                       std::span<const Maths::HarmonicFront> fronts, std::complex<double>* sums) {
  Synthesis::FrontSums adder(row);
  std::vector<double> real(adder.padded());
  std::vector<double> imaginary(adder.padded());
  for (std::size_t p = 0; p < row.x.size(); ++p) {
    real[p] = sums[p].real();
    imaginary[p] = sums[p].imag();
  }
  adder.add(harmonic, fronts, {real.data(), imaginary.data()});
  for (std::size_t p = 0; p < row.x.size(); ++p) sums[p] = {real[p], imaginary[p]};
}

inline void add_front(const Synthesis::PaddleRow& row, const Synthesis::PaddleHarmonic& harmonic,
                      const Maths::HarmonicFront& front, std::complex<double>* sums) {
  add_fronts(row, harmonic, {&front, 1}, sums);
}

// The sum for one paddle, straight from the formula. The order of the operations in the phase
// counts far from the origin, where rounding exceeds all other errors.
inline std::complex<double> plain_sum(const Synthesis::PaddleRow& row, std::size_t p,
                                      const std::vector<Maths::HarmonicFront>& fronts, double k,
                                      double ratio) {
  const double pi = std::numbers::pi;
  const double kw = k * row.width;
  std::complex<double> sum = 0.0;
  for (const Maths::HarmonicFront& front : fronts) {
    const double d = front.angle - row.angle[p];
    if (kw >= pi && std::abs(d) > std::asin(pi / kw)) continue;
    const double v = std::abs(std::sin(d) * kw / 2.0);
    const double obliquity = v > 1e-6 ? std::cos(d) * v / std::sin(v) : std::cos(d);
    const double ks = std::sin(front.angle) * k;
    const double kc = std::cos(front.angle) * k;
    const double psi = front.phase - (ks * row.y[p] + kc * row.x[p] + pi / 2.0);
    const double gain = obliquity * front.amp * (1.0 / ratio);
    sum += std::complex<double>(gain * std::cos(psi), gain * std::sin(psi));
  }
  return sum;
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_DRIVE_ROW_SUMS_H_
