// The spectrum of one record.
#ifndef KELPBOX_ANALYSIS_SPECTRUM_H_
#define KELPBOX_ANALYSIS_SPECTRUM_H_

#include <complex>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "base/forward_transform.h"

namespace Analysis {

// Element h is the one-sided complex amplitude of harmonic h, as in base/fft.h. The elements are
// stored as the transform leaves them, and scaled where they are read: only a few ever are.
class Spectrum {
 public:
  // Transforms the samples, of which there may be none. Uses the transform if it has their number,
  // and otherwise replaces it. Throws as Base::ForwardTransform.
  Spectrum(std::span<const double> samples, std::unique_ptr<Base::ForwardTransform>& transform);

  std::size_t size() const { return size_; }
  // Without a check of the index.
  std::complex<double> operator[](std::size_t h) const {
    return {parts_[2 * h] * scale_, parts_[2 * h + 1] * scale_};
  }
  // Throws std::string "Index N out of range" for an index greater than the number of elements. An
  // index equal to that number passes and gives 0, as for Base::BaseVec.
  std::complex<double> at(std::uint64_t h) const;

  // The element of greatest magnitude from `start` on. The lowest one wins a tie. If all are 0, the
  // result is `start`.
  std::uint32_t peak(std::uint32_t start) const;

 private:
  std::size_t size_;
  double scale_ = 0.0;
  std::unique_ptr<double[]> parts_;  // real and imaginary parts in turn
};

// As Spectrum::peak, of elements that are given by their real and imaginary parts and multiplied by
// the scale.
std::uint32_t peak_bin(std::span<const double> parts, double scale, std::uint32_t start);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_SPECTRUM_H_
