// Memory that ends after a number of allocations, as it does on a machine without swap.
#ifndef KELPBOX_TESTS_EXPORTED_LIMITED_MEMORY_H_
#define KELPBOX_TESTS_EXPORTED_LIMITED_MEMORY_H_

#include <limits>
#include <type_traits>
#include <utility>

#include "array_host.h"

namespace Testing {

inline constexpr long no_limit = std::numeric_limits<long>::max();

// The allocations that `operator new` can still make on this thread. Then all fail.
inline thread_local long allocations_left = no_limit;

// While it exists, this thread has all the memory that it needs.
class Unlimited {
 public:
  Unlimited() { std::swap(left_, allocations_left); }
  ~Unlimited() { allocations_left = left_; }
  Unlimited(const Unlimited&) = delete;
  Unlimited& operator=(const Unlimited&) = delete;

 private:
  long left_ = no_limit;
};

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

#endif  // KELPBOX_TESTS_EXPORTED_LIMITED_MEMORY_H_
