// The frame around every exported function: arguments in declared order, the native operation
// behind a guard, the result.
//
//   KELPBOX_EXPORT(jdouble, Kelpbox_1Params_1get)
//   (JNIEnv* env, jclass, jlong self, jobject, jstring name, jstring units) {
//     return call(env, &Base::Params::get, Self<Base::Params>{self}, Text(name), Text(units));
//   }
//
// A refused argument and a caught failure leave a host exception pending, and the default of the
// result (0, false, null) is returned. A plain text (const char*) passes every guard here on
// purpose: a host that calls before `initialise` is broken and must not go on with a default. So
// nothing on the way is noexcept.
#ifndef KELPBOX_EXPORTED_FRAME_H_
#define KELPBOX_EXPORTED_FRAME_H_

#include <jni.h>
#include <tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include "exported/argument.h"
#include "exported/exception.h"
#include "exported/result.h"

#define KELPBOX_NAME(name) Java_tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI_##name
#define KELPBOX_QUOTED(token) #token
#define KELPBOX_QUOTED_NAME(token) KELPBOX_QUOTED(token)

// Opens the definition of an exported function. In `name` each underscore of the Java method is
// written `_1`. Does not compile unless Java declares the method with these types.
#define KELPBOX_EXPORT(type, name)                                 \
  static_assert(std::is_function_v<decltype(KELPBOX_NAME(name))>); \
  extern "C" JNIEXPORT type JNICALL KELPBOX_NAME(name)

// Another exported name of a function that is defined above in the same file. Does not compile
// unless Java declares both methods with the same types.
#define KELPBOX_ALIAS(name, of)                                                            \
  static_assert(std::is_same_v<decltype(KELPBOX_NAME(name)), decltype(KELPBOX_NAME(of))>); \
  extern "C" JNIEXPORT decltype(KELPBOX_NAME(name)) KELPBOX_NAME(name)                     \
      __attribute__((alias(KELPBOX_QUOTED_NAME(KELPBOX_NAME(of)))))

namespace Kelpbox {

// Strings become the host's domain exception.
struct DomainGuard {
  template <typename Body>
  static auto run(JNIEnv* env, Body body) -> decltype(body()) {
    try {
      return body();
    } catch (const std::string& text) {
      throw_domain(env, text.c_str());
      return decltype(body())();
    }
  }
};

// A bad index becomes the host's own exception; there is no handler for strings.
struct IndexGuard {
  template <typename Body>
  static auto run(JNIEnv* env, Body body) -> decltype(body()) {
    try {
      return body();
    } catch (const std::out_of_range& failure) {
      throw_standard(env, Standard::index, failure.what());
      return decltype(body())();
    }
  }
};

// Whatever is thrown leaves the exported function.
struct NoGuard {
  template <typename Body>
  static auto run(JNIEnv*, Body body) -> decltype(body()) {
    return body();
  }
};

template <typename Guard = DomainGuard, typename Operation, typename... Arguments>
auto call(JNIEnv* env, Operation operation, Arguments... arguments) {
  using Native = std::invoke_result_t<Operation, decltype(arguments.value())...>;
  using Host = typename Result<Native>::Host;

  // The fold goes from left to right and ends at the first refusal.
  if (!(arguments.take(env) && ...)) return Host();
  return Guard::run(env, [&]() -> Host {
    if constexpr (std::is_void_v<Native>) {
      std::invoke(operation, arguments.value()...);
    } else {
      return Result<Native>::to_host(env, std::invoke(operation, arguments.value()...));
    }
  });
}

// What an operation of the host's that is declared unsigned shows of a wider number.
inline std::uint32_t low32(std::uint64_t number) { return static_cast<std::uint32_t>(number); }

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_FRAME_H_
