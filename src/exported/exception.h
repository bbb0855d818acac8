// Exceptions of the host.
//
// Posting one does not unwind anything: it is raised when the native method returns.
#ifndef KELPBOX_EXPORTED_EXCEPTION_H_
#define KELPBOX_EXPORTED_EXCEPTION_H_

#include <jni.h>

namespace Kelpbox {

// Codes of the table of standard exceptions. Any other code gives "java/lang/UnknownError".
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

// Replaces any pending exception. Does nothing more when the class is not found: the virtual
// machine has then posted an exception of its own.
void throw_standard(JNIEnv* env, Standard code, const char* message);

// "tidelab/waves/component/WaveSynthesisException", the one class of the domain. A pending
// exception stays and the class is not tested on purpose: a host without the class is broken and
// must show it.
void throw_domain(JNIEnv* env, const char* message);

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_EXCEPTION_H_
