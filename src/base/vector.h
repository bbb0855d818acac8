// Labelled vectors with units: the samples of a signal (Vector) and its spectrum (Cvector).
//
// Failures are thrown as std::string unless another type is named.
#ifndef KELPBOX_BASE_VECTOR_H_
#define KELPBOX_BASE_VECTOR_H_

#include <complex>
#include <cstdint>
#include <string>
#include <vector>

#include "base/units.h"

namespace Base {

// The number of elements in the spectrum of a signal.
constexpr std::uint64_t spectrum_size(std::uint64_t samples) { return samples / 2 + 1; }

// `length` is the number of time samples that the data represents. It is stored separately because
// a spectrum of 101 elements can represent 200 or 201 samples.
template <typename T>
class BaseVec {
 public:
  BaseVec() = default;
  // A length of 0 means the number of elements. Throws "Mismatched length" if any other length
  // differs from that number.
  BaseVec(std::string label, Units units, std::vector<T> data, std::uint64_t length = 0);
  virtual ~BaseVec() = default;

  BaseVec(const BaseVec&) = default;
  BaseVec(BaseVec&&) noexcept = default;
  BaseVec& operator=(const BaseVec&) = default;
  BaseVec& operator=(BaseVec&&) noexcept = default;

  // The number of elements that represent a signal of this number of time samples.
  virtual std::uint64_t storage_size(std::uint64_t samples) const { return samples; }

  // Throws "Index N out of range" for an index greater than the number of elements. An index equal
  // to that number passes on purpose, because hosts rely on it. It refers to a spare element, so
  // writing there does no harm.
  T& at(std::uint64_t index);
  const T& at(std::uint64_t index) const;

  // Removes elements at both ends and sets `length` to the new size. Throws "BaseVec length does
  // not equal size on erase" and "BaseVec erase of more elements than there are".
  void erase(std::uint64_t front, std::uint64_t back);
  // Adds copies of `fill` at both ends and sets `length` to the new size. Throws "BaseVec length
  // does not equal size on insert", and std::length_error "vector<T> too long" for more elements
  // than a vector can hold.
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
  std::uint64_t storage_size(std::uint64_t samples) const override {
    return spectrum_size(samples);
  }
};

// The root mean square of the signal about its mean: the square root of half the sum of the squared
// magnitudes of elements 1 onward.
double rms(const Cvector& spectrum);

extern template class BaseVec<double>;
extern template class BaseVec<std::complex<double>>;

}  // namespace Base

#endif  // KELPBOX_BASE_VECTOR_H_
