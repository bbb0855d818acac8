// Throwing exceptions in the host.
//
// These functions return normally: the virtual machine raises the pending exception when the native
// method returns.
#ifndef KELPBOX_EXPORTED_EXCEPTION_H_
#define KELPBOX_EXPORTED_EXCEPTION_H_

#include <jni.h>

namespace Kelpbox {

// The codes of the standard exceptions. Any other code throws "java/lang/UnknownError".
enum class Standard {
  end = 0,
  out_of_memory = 1,
  input_output = 2,
  runtime = 3,
  index = 4,
  arithmetic = 5,
  illegal_argument = 6,
  null_pointer = 7,
  other_runtime = 8,
  unknown = 9,
};

// Replaces any pending exception. If the class is not found, the virtual machine's own exception
// stays pending.
void throw_standard(JNIEnv* env, Standard code, const char* message);

// Throws "tidelab/waves/component/WaveSynthesisException", the library's only exception class. It
// does not clear a pending exception or check the class, on purpose: a host without the class is
// broken and must fail visibly.
void throw_domain(JNIEnv* env, const char* message);

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_EXCEPTION_H_
