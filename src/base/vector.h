// Labelled vectors with units: real samples (Vector) and the spectrum of a series (Cvector).
// Failures are thrown as a std::string, unless another type is named.
#ifndef KELPBOX_BASE_VECTOR_H_
#define KELPBOX_BASE_VECTOR_H_

#include <complex>
#include <cstdint>
#include <string>
#include <vector>

#include "base/units.h"

namespace Base {

// `length` is the number of time samples that the data stands for. It is a field of its own
// because a spectrum of 101 elements may stand for 200 or for 201 samples.
template <typename T>
class BaseVec {
 public:
  BaseVec() = default;
  // A length of 0 means the number of elements. Throws "Mismatched length" when any other
  // length differs from it.
  BaseVec(std::string label, Units units, std::vector<T> data, std::uint64_t length = 0);
  virtual ~BaseVec() = default;

  BaseVec(const BaseVec&) = default;
  BaseVec(BaseVec&&) noexcept = default;
  BaseVec& operator=(const BaseVec&) = default;
  BaseVec& operator=(BaseVec&&) noexcept = default;

  // The number of elements that hold `samples` time samples.
  virtual std::uint64_t storage_size(std::uint64_t samples) const { return samples; }

  // Throws "Index N out of range" when the index is greater than the number of elements. An
  // index equal to it passes on purpose: hosts depend on the bound as it is. It reaches a spare
  // element, so that writing there harms nothing.
  T& at(std::uint64_t index);
  const T& at(std::uint64_t index) const;

  // Remove or add elements at both ends; `length` becomes the new size. Throw "BaseVec length
  // does not equal size on erase" (or "insert") when it does not equal the size before, and
  // "BaseVec erase of more elements than there are"; std::length_error "vector<T> too long" for
  // more elements than a vector may have.
  void erase(std::uint64_t front, std::uint64_t back);
  void insert(std::uint64_t front, std::uint64_t back, const T& fill);

  std::uint64_t length = 0;
  std::string label;
  Units units;
  std::vector<T> data;

 private:
  T spare_{};
};

class Vector : public BaseVec<double> {
 public:
  using BaseVec<double>::BaseVec;
};

// Element h is the one-sided complex amplitude of harmonic h; element 0 is the mean.
class Cvector : public BaseVec<std::complex<double>> {
 public:
  using BaseVec<std::complex<double>>::BaseVec;
  std::uint64_t storage_size(std::uint64_t samples) const override { return samples / 2 + 1; }
};

// The root mean square of the signal without its mean: the square root of half the sum of the
// squared magnitudes of elements 1 onward.
double rms(const Cvector& spectrum);

extern template class BaseVec<double>;
extern template class BaseVec<std::complex<double>>;

}  // namespace Base

#endif  // KELPBOX_BASE_VECTOR_H_
