// Inverse transforms of a length with a large prime factor, by convolution with a chirp (Bluestein
// 1970; Rabiner, Schafer and Rader 1969, "The chirp z-transform algorithm").
//
// The convolution has a convenient length of its own, which is hardly above the number of samples
// if the harmonics end far below half of it. Two signals are transformed as one complex signal.
#ifndef KELPBOX_BASE_CHIRP_TRANSFORM_H_
#define KELPBOX_BASE_CHIRP_TRANSFORM_H_

#include <complex>
#include <cstddef>
#include <memory>
#include <vector>

#include "base/complex_transform.h"

namespace Base {

class ChirpTransform {
 public:
  // The length of the convolution.
  static std::size_t length(std::size_t samples, std::size_t first, std::size_t count);

  // For the harmonics from `first` to `first` + `count` - 1 of at least one sample. None is above
  // samples / 2.
  // A copy shares the tables and has working memory of its own.
  ChirpTransform(std::size_t samples, std::size_t first, std::size_t count);

  // Replace bands, as real and imaginary parts of each harmonic, by the samples. NaN and infinity
  // in one signal do not reach the other, and each is exact to the rounding of its own size.
  void run(double* signal);
  void run(double* a, double* b);

 private:
  void run_scaled(double* a, double size_a, double* b, double size_b);
  void add_band(const double* band, std::complex<double> factor);

  std::size_t samples_;
  std::size_t first_;
  std::size_t count_;
  std::shared_ptr<const std::vector<std::complex<double>>> chirp_;
  std::shared_ptr<const std::vector<std::complex<double>>> kernel_;  // transformed, over the length
  ComplexTransform transform_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_CHIRP_TRANSFORM_H_
