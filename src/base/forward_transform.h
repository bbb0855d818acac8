// Repeated transforms of samples to spectra of one size, straight from and to the caller's memory.
#ifndef KELPBOX_BASE_FORWARD_TRANSFORM_H_
#define KELPBOX_BASE_FORWARD_TRANSFORM_H_

#include <cstddef>
#include <span>

#include "base/fft.h"

struct fftw_plan_s;

namespace Base {

class ForwardTransform {
 public:
  // For at least one sample. Throws std::string "FFT of N samples is too long", as in fft.h.
  explicit ForwardTransform(std::size_t samples);
  ~ForwardTransform();
  ForwardTransform(const ForwardTransform&) = delete;
  ForwardTransform& operator=(const ForwardTransform&) = delete;

  std::size_t samples() const { return samples_; }

  // Fills `parts` with the real and imaginary part of each of the samples / 2 + 1 elements. They
  // are samples / 2 times the elements of KLPFFT_time_to_freq, except the mean and the element at
  // samples / 2, which are `samples` times theirs. Samples that are not aligned to 16 bytes are
  // copied first. Throws std::string "FFT of N samples cannot be planned".
  void run(std::span<const double> samples, std::span<double> parts);

 private:
  std::size_t samples_;
  fftw_plan_s* plan_ = nullptr;  // made for the first arrays
};

}  // namespace Base

#endif  // KELPBOX_BASE_FORWARD_TRANSFORM_H_
