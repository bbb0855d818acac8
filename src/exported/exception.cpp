#include "exported/exception.h"

namespace Kelpbox {
namespace {

struct Row {
  Standard code;
  const char* class_name;
};

// Searched from the top. The last row is the fallback.
constexpr Row table[] = {
    {Standard::out_of_memory, "java/lang/OutOfMemoryError"},
    {Standard::input_output, "java/io/IOException"},
    {Standard::runtime, "java/lang/RuntimeException"},
    {Standard::index, "java/lang/IndexOutOfBoundsException"},
    {Standard::arithmetic, "java/lang/ArithmeticException"},
    {Standard::illegal_argument, "java/lang/IllegalArgumentException"},
    {Standard::null_pointer, "java/lang/NullPointerException"},
    {Standard::other_runtime, "java/lang/RuntimeException"},
    {Standard::unknown, "java/lang/UnknownError"},
    {Standard::end, "java/lang/UnknownError"},
};

}  // namespace

void throw_standard(JNIEnv* env, Standard code, const char* message) {
  env->ExceptionClear();
  const Row* row = table;
  while (row->code != code && row->code != Standard::end) ++row;
  if (jclass found = env->FindClass(row->class_name)) env->ThrowNew(found, message);
}

void throw_domain(JNIEnv* env, const char* message) {
  env->ThrowNew(env->FindClass("tidelab/waves/component/WaveSynthesisException"), message);
}

}  // namespace Kelpbox
