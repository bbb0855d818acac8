// The frame of the functions of tidelab.waves.Native: every failure becomes an exception in Java,
// and none of them leaves the library or ends the process.
//
//   KELPBOX_SAFE(jdoubleArray, profile)
//   (JNIEnv* env, jclass, jlong experiment, jlong params) {
//     return safely(env, [&] {
//       return host_array(env, object<Facade>(experiment).profile(object<Base::Params>(params)));
//     });
//   }
//
// The functions are called by the package tidelab.waves only, which checks what hosts pass. An
// address must be 0 or that of an object of the right class.
#ifndef KELPBOX_EXPORTED_SAFE_FRAME_H_
#define KELPBOX_EXPORTED_SAFE_FRAME_H_

#include <jni.h>
#include <tidelab_waves_Native.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "exported/argument.h"

#define KELPBOX_SAFE_NAME(name) Java_tidelab_waves_Native_##name

// Opens the definition of a function of tidelab.waves.Native. Does not compile unless Java declares
// it with these types.
#define KELPBOX_SAFE(type, name)                                        \
  static_assert(std::is_function_v<decltype(KELPBOX_SAFE_NAME(name))>); \
  extern "C" JNIEXPORT type JNICALL KELPBOX_SAFE_NAME(name)

namespace Kelpbox {

// Thrown when the virtual machine has left an exception of its own pending, such as
// OutOfMemoryError. Until the native function returns, the environment must not be used further.
struct PendingException {};

// Throws PendingException for a null result of the environment.
template <typename T>
T not_pending(T result) {
  if (result == nullptr) throw PendingException();
  return result;
}

// Leaves the current exception pending in Java. To be called in a catch block.
void throw_current(JNIEnv* env) noexcept;

// Returns what the operation returns, or 0, false or null after a failure.
template <typename Operation>
auto safely(JNIEnv* env, Operation operation) -> decltype(operation()) {
  try {
    return operation();
  } catch (...) {
    throw_current(env);
    return decltype(operation())();
  }
}

// Throws std::string for the address 0.
template <typename T>
T& object(jlong address) {
  if (address == 0) throw std::string("The address of an object is 0");
  return *pointer_from<T>(address);
}

// An ID, or a number of a bank, paddle, set or frame. Throws std::string if it does not fit into 32
// bits.
std::uint32_t number(jlong raw, const char* what);
inline std::uint32_t id(jlong raw) { return number(raw, "ID"); }

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_SAFE_FRAME_H_
