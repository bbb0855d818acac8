// How the result of a native operation is returned to the host.
#ifndef KELPBOX_EXPORTED_RESULT_H_
#define KELPBOX_EXPORTED_RESULT_H_

#include <jni.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

namespace Kelpbox {

// The host's handle of an object: its address.
template <typename T>
jlong handle_of(T* object) {
  return reinterpret_cast<jlong>(object);
}

// An object returned by value is moved to the heap, and the host must delete it.
template <typename Native>
struct Result {
  using Host = jlong;
  static jlong to_host(JNIEnv*, Native&& result) {
    return handle_of(new Native(std::move(result)));
  }
};

// An object returned by reference or pointer keeps its owner.
template <typename T>
struct Result<T&> {
  using Host = jlong;
  static jlong to_host(JNIEnv*, T& result) { return handle_of(&result); }
};
template <typename T>
struct Result<T*> {
  using Host = jlong;
  static jlong to_host(JNIEnv*, T* result) { return handle_of(result); }
};

template <>
struct Result<void> {
  using Host = void;
};

template <>
struct Result<std::string> {
  using Host = jstring;
  static jstring to_host(JNIEnv* env, const std::string& result) {
    return env->NewStringUTF(result.c_str());
  }
};

template <typename Native, typename HostType>
struct PrimitiveResult {
  using Host = HostType;
  static HostType to_host(JNIEnv*, Native result) { return static_cast<HostType>(result); }
};

template <>
struct Result<bool> : PrimitiveResult<bool, jboolean> {};
template <>
struct Result<double> : PrimitiveResult<double, jdouble> {};
template <>
struct Result<float> : PrimitiveResult<float, jfloat> {};
template <>
struct Result<short> : PrimitiveResult<short, jshort> {};
template <>
struct Result<std::uint32_t> : PrimitiveResult<std::uint32_t, jlong> {};
template <>
struct Result<std::size_t> : PrimitiveResult<std::size_t, jlong> {};

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_RESULT_H_
