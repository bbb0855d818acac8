// What an exported function may be given, one kind for each way in which an argument travels.
//
// A kind holds the raw argument. `take` reads it and returns false when the call is refused, with
// a host exception pending; `value` is what the native operation gets.
#ifndef KELPBOX_EXPORTED_ARGUMENT_H_
#define KELPBOX_EXPORTED_ARGUMENT_H_

#include <jni.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "exported/exception.h"
#include "exported/reference_text.h"

namespace Kelpbox {

// A handle is an object's address; 0 stands for null.
template <typename T>
T* pointer_from(jlong handle) {
  return reinterpret_cast<T*>(handle);  // NOLINT(performance-no-int-to-ptr): hosts hold integers
}

// The object that a function belongs to. Not tested: 0 has undefined effect.
template <typename T>
struct Self {
  jlong handle;

  bool take(JNIEnv*) const { return true; }
  T& value() const { return *pointer_from<T>(handle); }
};

// An object of the declared type T, `Base::Params&` say. 0 is refused with the type's text.
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

// A value for a vector of T. 0 is refused with the text of the vector's value_type.
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

// A string. It is copied and the host's characters are released at once, before any other
// argument is looked at.
struct Text {
  explicit Text(jstring host_string) : raw(host_string) {}

  bool take(JNIEnv* env) {
    if (raw == nullptr) {
      throw_standard(env, Standard::null_pointer, "null std::string");
      return false;
    }
    const char* characters = env->GetStringUTFChars(raw, nullptr);
    // The virtual machine has posted its own exception.
    if (characters == nullptr) return false;
    text = characters;
    env->ReleaseStringUTFChars(raw, characters);
    return true;
  }
  const std::string& value() const { return text; }

  jstring raw;
  std::string text;
};

// An unsigned number: the low 32 bits of what the host passes.
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

// A number that travels as it is.
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
