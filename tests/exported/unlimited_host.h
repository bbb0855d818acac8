// A host that has memory when the library has none.
#ifndef KELPBOX_TESTS_EXPORTED_UNLIMITED_HOST_H_
#define KELPBOX_TESTS_EXPORTED_UNLIMITED_HOST_H_

#include <type_traits>

#include "array_host.h"
#include "support/failing_memory.h"

namespace Testing {

// A host whose own functions are not limited.
class UnlimitedHost : public ArrayHost {
 public:
  UnlimitedHost() {
    lift<&JNINativeInterface_::FindClass>();
    lift<&JNINativeInterface_::ThrowNew>();
    lift<&JNINativeInterface_::NewStringUTF>();
    lift<&JNINativeInterface_::NewDoubleArray>();
    lift<&JNINativeInterface_::NewObjectArray>();
  }

 private:
  template <auto member, typename Function>
  struct Lifted;
  template <auto member, typename Result, typename... Arguments>
  struct Lifted<member, Result (*)(JNIEnv*, Arguments...)> {
    static inline Result (*original)(JNIEnv*, Arguments...) = nullptr;
    static Result call(JNIEnv* env, Arguments... arguments) {
      const Unlimited unlimited;
      return original(env, arguments...);
    }
  };

  template <auto member>
  void lift() {
    using Function = std::remove_reference_t<decltype(functions_.*member)>;
    Lifted<member, Function>::original = functions_.*member;
    functions_.*member = &Lifted<member, Function>::call;
  }
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_EXPORTED_UNLIMITED_HOST_H_
