// The frame of every exported function: it takes the arguments in declared order, calls the native
// operation inside a guard, and converts the result.
//
//   KELPBOX_EXPORT(jdouble, Kelpbox_1Params_1get)
//   (JNIEnv* env, jclass, jlong self, jobject, jstring name, jstring units) {
//     return call(env, &Base::Params::get, Self<Base::Params>{self}, Text(name), Text(units));
//   }
//
// A refused argument or a caught failure leaves an exception pending in the host, and the function
// returns 0, false or null.
//
// A thrown character pointer passes every guard on purpose: a host that calls an operation before
// `initialise` is broken, and must not continue with a default result. Therefore nothing between
// the operation and the host is noexcept.
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

// Opens the definition of an exported function. In `name`, write each underscore of the Java method
// as `_1`. Does not compile unless Java declares the method with these types.
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

// Converts a string to the library's exception class.
struct DomainGuard {
  template <typename Body>
  static auto run(JNIEnv* env, Body body) -> decltype(body()) {
    try {
      return body();
    } catch (const std::string& message) {
      throw_domain(env, message.c_str());
      return decltype(body())();
    }
  }
};

// Converts a bad index to IndexOutOfBoundsException. Strings pass.
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

// Catches nothing.
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

  // Takes the arguments from left to right and stops at the first one that is refused.
  if (!(arguments.take(env) && ...)) return Host();
  return Guard::run(env, [&]() -> Host {
    if constexpr (std::is_void_v<Native>) {
      std::invoke(operation, arguments.value()...);
    } else {
      return Result<Native>::to_host(env, std::invoke(operation, arguments.value()...));
    }
  });
}

// The result of an operation that is declared `unsigned int` to the host.
inline std::uint32_t low32(std::uint64_t number) { return static_cast<std::uint32_t>(number); }

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_FRAME_H_
