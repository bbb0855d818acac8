// Arrays of Java. Each crosses the boundary in one call, without another copy.
//
// The functions throw std::string for a null array and for more elements than an array of Java can
// have, and PendingException when the virtual machine refuses.
#ifndef KELPBOX_EXPORTED_HOST_ARRAY_H_
#define KELPBOX_EXPORTED_HOST_ARRAY_H_

#include <jni.h>

#include <cstddef>
#include <vector>

#include "exported/safe_frame.h"

namespace Kelpbox {

template <typename T>
struct ArrayOf;

template <>
struct ArrayOf<jdouble> {
  using Host = jdoubleArray;
  static constexpr auto make = &JNIEnv::NewDoubleArray;
  static constexpr auto write = &JNIEnv::SetDoubleArrayRegion;
  static constexpr auto read = &JNIEnv::GetDoubleArrayRegion;
};
template <>
struct ArrayOf<jshort> {
  using Host = jshortArray;
  static constexpr auto make = &JNIEnv::NewShortArray;
  static constexpr auto write = &JNIEnv::SetShortArrayRegion;
};
template <>
struct ArrayOf<jint> {
  using Host = jintArray;
  static constexpr auto read = &JNIEnv::GetIntArrayRegion;
};
template <>
struct ArrayOf<jbyte> {
  using Host = jbyteArray;
  static constexpr auto read = &JNIEnv::GetByteArrayRegion;
};

// The length of an array with that many elements.
jsize array_length(std::size_t elements);
// The number of elements of an array.
std::size_t size_of(JNIEnv* env, jarray array);

template <typename T>
typename ArrayOf<T>::Host host_array(JNIEnv* env, const std::vector<T>& values) {
  const jsize length = array_length(values.size());
  const auto array = not_pending((env->*ArrayOf<T>::make)(length));
  (env->*ArrayOf<T>::write)(array, 0, length, values.data());
  return array;
}

// Also throws std::string if memory for the values is not available.
void require_values(std::size_t count, std::size_t bytes);

template <typename T>
std::vector<T> values_of(JNIEnv* env, typename ArrayOf<T>::Host array) {
  const std::size_t count = size_of(env, array);
  require_values(count, count * sizeof(T));
  std::vector<T> values(count);
  (env->*ArrayOf<T>::read)(array, 0, static_cast<jsize>(count), values.data());
  return values;
}

// An array of nulls. The class has its name in the form of the environment, such as
// "java/lang/String".
jobjectArray host_objects(JNIEnv* env, std::size_t size, const char* class_name);
// Stores an object, and gives up the local reference to it: a native function may hold only a few.
void set_object(JNIEnv* env, jobjectArray array, std::size_t index, jobject object);

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_HOST_ARRAY_H_
