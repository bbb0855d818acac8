#include "base/vector.h"

#include <cmath>
#include <stdexcept>
#include <utility>

#include "base/compose.h"

namespace Base {

template <typename T>
BaseVec<T>::BaseVec(std::string in_label, Units in_units, std::vector<T> in_data,
                    std::uint64_t in_length)
    : length(in_length == 0 ? in_data.size() : in_length),
      label(std::move(in_label)),
      units(in_units),
      data(std::move(in_data)) {
  if (length != data.size()) {
    throw std::string("Mismatched length");
  }
}

template <typename T>
T& BaseVec<T>::at(std::uint64_t index) {
  return const_cast<T&>(std::as_const(*this).at(index));
}

template <typename T>
const T& BaseVec<T>::at(std::uint64_t index) const {
  if (index > data.size()) {
    throw compose("Index ", index, " out of range");
  }
  return index == data.size() ? spare_ : data[index];
}

template <typename T>
void BaseVec<T>::erase(std::uint64_t front, std::uint64_t back) {
  if (length != data.size()) {
    throw std::string("BaseVec length does not equal size on erase");
  }
  if (front > data.size() || back > data.size() - front) {
    throw std::string("BaseVec erase of more elements than there are");
  }
  const auto front_count = static_cast<std::ptrdiff_t>(front);
  const auto back_count = static_cast<std::ptrdiff_t>(back);
  data.erase(data.end() - back_count, data.end());
  data.erase(data.begin(), data.begin() + front_count);
  length = data.size();
}

template <typename T>
void BaseVec<T>::insert(std::uint64_t front, std::uint64_t back, const T& fill) {
  if (length != data.size()) {
    throw std::string("BaseVec length does not equal size on insert");
  }
  const std::uint64_t room = data.max_size() - data.size();
  if (front > room || back > room - front) {
    throw std::length_error("vector<T> too long");
  }
  // A copy, because `fill` can refer to an element of this vector.
  const T value = fill;
  // After this allocation nothing can fail.
  data.reserve(data.size() + front + back);
  data.insert(data.begin(), front, value);
  data.insert(data.end(), back, value);
  length = data.size();
}

double rms(const Cvector& spectrum) {
  double sum = 0.0;
  for (std::size_t h = 1; h < spectrum.data.size(); ++h) {
    sum += std::norm(spectrum.data[h]);
  }
  return std::sqrt(0.5 * sum);
}

template class BaseVec<double>;
template class BaseVec<std::complex<double>>;

}  // namespace Base
