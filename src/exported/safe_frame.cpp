#include "exported/safe_frame.h"

#include <limits>
#include <new>

#include "base/compose.h"
#include "exported/host_text.h"
#include "facade/failure_message.h"

namespace Kelpbox {
namespace {

// `message` is in modified UTF-8. If the class is missing, the virtual machine's own exception is
// pending.
void throw_failure(JNIEnv* env, const char* message) noexcept {
  jclass found = env->FindClass("tidelab/waves/component/WaveSynthesisException");
  if (found != nullptr) env->ThrowNew(found, message);
}

}  // namespace

void throw_current(JNIEnv* env) noexcept {
  // The messages of exhausted memory need no memory.
  try {
    try {
      throw;
    } catch (const PendingException&) {
    } catch (const std::bad_alloc&) {
      throw;
    } catch (...) {
      throw_failure(env, modified_utf8(message_of_current()).c_str());
    }
  } catch (...) {
    throw_failure(env, "There is not enough memory");
  }
}

std::uint32_t number(jlong raw, const char* what) {
  if (raw < 0 || raw > jlong{std::numeric_limits<std::uint32_t>::max()}) {
    throw Base::compose(what, " ", raw, " is out of range");
  }
  return static_cast<std::uint32_t>(raw);
}

}  // namespace Kelpbox
