// The arguments of exported functions: one struct for each way in which an argument is passed.
//
// Each holds the raw argument. `take` reads it; if it refuses the argument, it leaves an exception
// pending in the host and returns false. `value` is what the native operation receives.
#ifndef KELPBOX_EXPORTED_ARGUMENT_H_
#define KELPBOX_EXPORTED_ARGUMENT_H_

#include <jni.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "exported/exception.h"
#include "exported/reference_text.h"

namespace Kelpbox {

// A handle is the address of an object. The handle 0 is null.
template <typename T>
T* pointer_from(jlong handle) {
  return reinterpret_cast<T*>(handle);  // NOLINT(performance-no-int-to-ptr): hosts hold integers
}

// The object that a method is called on. It is not checked: the handle 0 has undefined behaviour.
template <typename T>
struct Self {
  jlong handle;

  bool take(JNIEnv*) const { return true; }
  T& value() const { return *pointer_from<T>(handle); }
};

// An object passed by reference. T is the declared type, such as `Base::Params&`, and the message
// that refuses 0 names it.
template <typename T>
struct Reference {
  static_assert(std::is_reference_v<T>);
  jlong handle;

  bool take(JNIEnv* env) const {
    if (handle != 0) return true;
    throw_standard(env, Standard::null_pointer, ReferenceText<T>::null);
    return false;
  }
  T value() const { return *pointer_from<std::remove_reference_t<T>>(handle); }
};

// A new element for a vector of T. The message that refuses 0 names the vector's value_type.
template <typename T>
struct Element {
  jlong handle;

  bool take(JNIEnv* env) const {
    if (handle != 0) return true;
    throw_standard(env, Standard::null_pointer, ElementText<T>::null);
    return false;
  }
  const T& value() const { return *pointer_from<const T>(handle); }
};

// A string. It is copied, and the host's characters are released before the next argument is taken.
struct Text {
  explicit Text(jstring host_string) : raw(host_string) {}

  bool take(JNIEnv* env) {
    if (raw == nullptr) {
      throw_standard(env, Standard::null_pointer, "null std::string");
      return false;
    }
    const char* characters = env->GetStringUTFChars(raw, nullptr);
    // The virtual machine has left its own exception pending.
    if (characters == nullptr) return false;
    text = characters;
    env->ReleaseStringUTFChars(raw, characters);
    return true;
  }
  const std::string& value() const { return text; }

  jstring raw;
  std::string text;
};

// An unsigned number: the low 32 bits of the host's long.
struct Unsigned {
  jlong raw;

  bool take(JNIEnv*) const { return true; }
  std::uint32_t value() const { return static_cast<std::uint32_t>(raw); }
};

struct Bool {
  jboolean raw;

  bool take(JNIEnv*) const { return true; }
  bool value() const { return raw != JNI_FALSE; }
};

// A number that needs no conversion.
template <typename T>
struct Number {
  T raw;

  bool take(JNIEnv*) const { return true; }
  T value() const { return raw; }
};

using Real = Number<jdouble>;
using Index = Number<jint>;

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_ARGUMENT_H_
