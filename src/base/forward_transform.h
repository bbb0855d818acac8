// Repeated transforms of samples to spectra of one size, straight from and to the caller's memory.
#ifndef KELPBOX_BASE_FORWARD_TRANSFORM_H_
#define KELPBOX_BASE_FORWARD_TRANSFORM_H_

#include <cstddef>
#include <memory>
#include <span>

namespace Base {

class ForwardTransform {
 public:
  // For at least one sample. Throws as every transform of base/fft.h.
  explicit ForwardTransform(std::size_t samples);
  ~ForwardTransform();
  ForwardTransform(const ForwardTransform&) = delete;
  ForwardTransform& operator=(const ForwardTransform&) = delete;

  std::size_t samples() const;

  // Fills `parts` with the real and imaginary part of each of the samples / 2 + 1 elements. They
  // are samples / 2 times the elements of KLPFFT_time_to_freq, except the mean and the element at
  // samples / 2, which are `samples` times theirs. The parts are aligned as memory of a vector is.
  // Samples that are not are copied first, so that a record has the same spectrum wherever it lies
  // in memory.
  void run(std::span<const double> samples, std::span<double> parts);

 private:
  struct Work;
  std::unique_ptr<Work> work_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_FORWARD_TRANSFORM_H_
