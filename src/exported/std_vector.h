// The operations of the vector families.
#ifndef KELPBOX_EXPORTED_STD_VECTOR_H_
#define KELPBOX_EXPORTED_STD_VECTOR_H_

#include <jni.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace Kelpbox {

// Replaces a vector of any element type without a destructor in operations that do not depend on
// the element. It counts bytes, so it frees the storage with its true size.
using AnyVector = std::vector<std::byte>;

// Throws std::length_error "vector<T> too long" above the maximum size of such a vector.
template <typename T>
std::size_t checked_length(jlong count) {
  const auto length = static_cast<std::size_t>(count);
  if (length > std::vector<T>().max_size()) throw std::length_error("vector<T> too long");
  return length;
}

template <typename T>
std::vector<T>* make_vector(jlong count) {
  return new std::vector<T>(checked_length<T>(count));
}

template <typename T>
void reserve(std::vector<T>& vector, jlong count) {
  vector.reserve(checked_length<T>(count));
}

// Throws std::out_of_range "vector index out of range".
template <typename T>
T& element(std::vector<T>& vector, jint index) {
  if (index < 0 || static_cast<std::size_t>(index) >= vector.size()) {
    throw std::out_of_range("vector index out of range");
  }
  return vector[static_cast<std::size_t>(index)];
}

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_STD_VECTOR_H_
