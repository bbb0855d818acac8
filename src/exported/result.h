// How the result of a native operation travels to the host.
#ifndef KELPBOX_EXPORTED_RESULT_H_
#define KELPBOX_EXPORTED_RESULT_H_

#include <jni.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

namespace Kelpbox {

// The address of an object, for the host to hold.
template <typename T>
jlong handle_of(T* object) {
  return reinterpret_cast<jlong>(object);
}

// An object by value becomes a copy on the heap, which the host frees.
template <typename Native>
struct Result {
  using Host = jlong;
  static jlong to_host(JNIEnv*, Native&& result) {
    return handle_of(new Native(std::move(result)));
  }
};

// A reference or a pointer is handed on as it is.
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
