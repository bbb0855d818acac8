// Native: parameters, packed into arrays.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/params.h"
#include "exported/host_array.h"
#include "exported/host_text.h"
#include "exported/result.h"
#include "exported/safe_frame.h"

using namespace Kelpbox;
using Base::Param;
using Base::Params;

namespace {

// An element of an array of strings; nothing for null.
std::optional<std::string> text_at(JNIEnv* env, jobjectArray array, std::size_t index) {
  const auto text =
      static_cast<jstring>(env->GetObjectArrayElement(array, static_cast<jsize>(index)));
  if (text == nullptr) return std::nullopt;
  std::string copy = text_of(env, text);
  env->DeleteLocalRef(text);
  return copy;
}

std::string required_text_at(JNIEnv* env, jobjectArray array, std::size_t index) {
  std::optional<std::string> text = text_at(env, array, index);
  if (!text) throw std::string("null string");
  return *std::move(text);
}

void require_size(JNIEnv* env, jobjectArray array, std::size_t size) {
  if (size_of(env, array) != size) throw std::string("Arrays of parameters differ in length");
}

}  // namespace

KELPBOX_SAFE(jlong, newParams)
(JNIEnv* env, jclass, jobjectArray names, jdoubleArray values, jobjectArray units,
 jobjectArray types) {
  return safely(env, [&] {
    const std::vector<double> numbers = values_of<double>(env, values);
    for (jobjectArray array : {names, units, types}) require_size(env, array, numbers.size());
    auto made = std::make_unique<Params>();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      const std::string name = required_text_at(env, names, i);
      const std::string unit = required_text_at(env, units, i);
      if (const auto type = text_at(env, types, i)) {
        made->insert(name, unit, *type);
      } else {
        made->insert(name, numbers[i], unit);
      }
    }
    return handle_of(made.release());
  });
}

KELPBOX_SAFE(jobjectArray, paramTexts)(JNIEnv* env, jclass, jlong params) {
  return safely(env, [&] {
    const Params::Entries& entries = object<Params>(params).entries();
    const jobjectArray array = host_objects(env, 3 * entries.size(), "java/lang/String");
    std::size_t at = 0;
    for (const auto& [name, quantity] : entries) {
      const Param param(name, quantity);
      set_object(env, array, at, host_text(env, name));
      if (param.is_enum()) {
        set_object(env, array, at + 1, host_text(env, param.enum_value()));
        set_object(env, array, at + 2, host_text(env, param.enum_type()));
      } else {
        set_object(env, array, at + 1, host_text(env, param.units()));
      }
      at += 3;
    }
    return array;
  });
}

KELPBOX_SAFE(jdoubleArray, paramValues)(JNIEnv* env, jclass, jlong params) {
  return safely(env, [&] {
    std::vector<double> values;
    for (const auto& [name, quantity] : object<Params>(params).entries()) {
      values.push_back(quantity.is_enum() ? 0.0 : quantity.value);
    }
    return host_array(env, values);
  });
}

KELPBOX_SAFE(jobjectArray, paramComments)(JNIEnv* env, jclass, jlong params) {
  return safely(env, [&] {
    const Params& set = object<Params>(params);
    std::vector<std::string> comments;
    for (std::uint32_t i = 0; i < set.comment_size(); ++i) comments.push_back(set.comment(i));
    return host_texts(env, comments);
  });
}

KELPBOX_SAFE(jdouble, convert)(JNIEnv* env, jclass, jbyteArray from, jbyteArray to) {
  return safely(env, [&] { return Param::convert(text_of(env, from), text_of(env, to)); });
}
