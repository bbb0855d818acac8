#include "exported/host_array.h"

#include <limits>
#include <string>

#include "base/compose.h"
#include "base/memory.h"

namespace Kelpbox {

jsize array_length(std::size_t elements) {
  constexpr jsize longest = std::numeric_limits<jsize>::max();
  if (elements > static_cast<std::size_t>(longest)) {
    throw Base::compose(elements, " values are too many for an array of Java: at most ", longest);
  }
  return static_cast<jsize>(elements);
}

std::size_t size_of(JNIEnv* env, jarray array) {
  if (array == nullptr) throw std::string("null array");
  return static_cast<std::size_t>(env->GetArrayLength(array));
}

void require_values(std::size_t count, std::size_t bytes) {
  using Base::operator""_MiB;
  if (bytes < 1_MiB) return;
  Base::require_memory(bytes, Base::compose(count, " values"));
}

jobjectArray host_objects(JNIEnv* env, std::size_t size, const char* class_name) {
  const jsize length = array_length(size);
  const jclass type = not_pending(env->FindClass(class_name));
  const jobjectArray array = not_pending(env->NewObjectArray(length, type, nullptr));
  env->DeleteLocalRef(type);
  return array;
}

void set_object(JNIEnv* env, jobjectArray array, std::size_t index, jobject object) {
  env->SetObjectArrayElement(array, static_cast<jsize>(index), object);
  env->DeleteLocalRef(object);
}

}  // namespace Kelpbox
