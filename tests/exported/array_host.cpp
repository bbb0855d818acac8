#include "array_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

ArrayHost::ArrayHost() {
  functions_.FindClass = &find;
  functions_.NewStringUTF = &make_string;
  functions_.GetArrayLength = &length_of;
  functions_.NewObjectArray = &make_objects;
  functions_.GetObjectArrayElement = &object_at;
  functions_.SetObjectArrayElement = &set_object_at;
  functions_.DeleteLocalRef = &forget;
  functions_.GetStringLength = &units_of;
  functions_.GetStringRegion = &read_units;
  functions_.NewDoubleArray = [](JNIEnv* env, jsize length) {
    return static_cast<jdoubleArray>(make<double>(env, length));
  };
  functions_.NewShortArray = [](JNIEnv* env, jsize length) {
    return static_cast<jshortArray>(make<jshort>(env, length));
  };
  functions_.SetDoubleArrayRegion = [](JNIEnv* env, jdoubleArray array, jsize start, jsize length,
                                       const double* values) {
    write(env, array, start, length, values);
  };
  functions_.SetShortArrayRegion = [](JNIEnv* env, jshortArray array, jsize start, jsize length,
                                      const jshort* values) {
    write(env, array, start, length, values);
  };
  functions_.GetDoubleArrayRegion = [](JNIEnv* env, jdoubleArray array, jsize start, jsize length,
                                       double* values) { read(env, array, start, length, values); };
  functions_.GetIntArrayRegion = [](JNIEnv* env, jintArray array, jsize start, jsize length,
                                    jint* values) { read(env, array, start, length, values); };
  functions_.GetByteArrayRegion = [](JNIEnv* env, jbyteArray array, jsize start, jsize length,
                                     jbyte* values) { read(env, array, start, length, values); };
}

jdoubleArray ArrayHost::doubles(std::vector<double> values) {
  return static_cast<jdoubleArray>(keep(std::move(values)));
}

jintArray ArrayHost::ints(std::vector<jint> values) {
  return static_cast<jintArray>(keep(std::move(values)));
}

jbyteArray ArrayHost::bytes(const std::string& characters) {
  return static_cast<jbyteArray>(keep(std::vector<jbyte>(characters.begin(), characters.end())));
}

jobjectArray ArrayHost::texts(const std::vector<std::optional<std::u16string>>& values) {
  std::vector<jobject> objects;
  for (const auto& value : values) {
    objects.push_back(value ? reinterpret_cast<jobject>(&wide_.emplace_back(*value)) : nullptr);
  }
  return static_cast<jobjectArray>(keep(std::move(objects)));
}

jdoubleArray ArrayHost::endless(jsize length) {
  const auto array = doubles({});
  arrays_.back().claimed = length;
  return array;
}

std::vector<std::string> ArrayHost::texts_of(jobject array) {
  std::vector<std::string> texts;
  for (jobject text : values_of<jobject>(array)) {
    texts.push_back(characters_of(static_cast<jstring>(text)));
  }
  return texts;
}

bool ArrayHost::may_make(const char* what) {
  expect_nothing_pending();
  if (objects_left-- > 0) {
    refer(1);
    return true;
  }
  pending_ = std::make_unique<Thrown>(Thrown{"java/lang/OutOfMemoryError", what});
  return false;
}

void ArrayHost::refer(int change) {
  references_ += change;
  most_references = std::max(most_references, references_);
}

void ArrayHost::expect_nothing_pending() const {
  EXPECT_EQ(pending_, nullptr) << "a call while an exception is pending";
}

template <typename T>
jobject ArrayHost::make(JNIEnv* env, jsize length) {
  if (!self(env).may_make("array")) return nullptr;
  return self(env).keep(std::vector<T>(static_cast<std::size_t>(length)));
}

template <typename T>
void ArrayHost::write(JNIEnv* env, jobject array, jsize start, jsize length, const T* values) {
  self(env).expect_nothing_pending();
  auto& target = std::get<std::vector<T>>(data_of(array));
  ASSERT_TRUE(start >= 0 && length >= 0 && start + length <= static_cast<jsize>(target.size()));
  std::copy_n(values, length, target.begin() + start);
}

template <typename T>
void ArrayHost::read(JNIEnv* env, jobject array, jsize start, jsize length, T* values) {
  self(env).expect_nothing_pending();
  const auto& source = std::get<std::vector<T>>(data_of(array));
  ASSERT_TRUE(start >= 0 && length >= 0 && start + length <= static_cast<jsize>(source.size()));
  std::copy_n(source.begin() + start, length, values);
}

jclass ArrayHost::find(JNIEnv* env, const char* name) {
  self(env).expect_nothing_pending();
  self(env).refer(1);
  return find_class(env, name);
}

jstring ArrayHost::make_string(JNIEnv* env, const char* characters) {
  return self(env).may_make("string") ? new_string(env, characters) : nullptr;
}

jsize ArrayHost::length_of(JNIEnv* env, jarray array) {
  self(env).expect_nothing_pending();
  const Array& held = *reinterpret_cast<Array*>(array);
  const auto size = [](const auto& values) { return static_cast<jsize>(values.size()); };
  return held.claimed.value_or(std::visit(size, held.data));
}

jobjectArray ArrayHost::make_objects(JNIEnv* env, jsize length, jclass type, jobject first) {
  EXPECT_NE(type, nullptr);
  EXPECT_EQ(first, nullptr);
  return static_cast<jobjectArray>(make<jobject>(env, length));
}

jobject ArrayHost::object_at(JNIEnv* env, jobjectArray array, jsize index) {
  self(env).expect_nothing_pending();
  jobject found =
      std::get<std::vector<jobject>>(data_of(array)).at(static_cast<std::size_t>(index));
  if (found != nullptr) self(env).refer(1);
  return found;
}

void ArrayHost::set_object_at(JNIEnv* env, jobjectArray array, jsize index, jobject value) {
  self(env).expect_nothing_pending();
  std::get<std::vector<jobject>>(data_of(array)).at(static_cast<std::size_t>(index)) = value;
}

void ArrayHost::forget(JNIEnv* env, jobject object) {
  EXPECT_NE(object, nullptr);
  self(env).refer(-1);
}

jsize ArrayHost::units_of(JNIEnv* env, jstring text) {
  self(env).expect_nothing_pending();
  return static_cast<jsize>(reinterpret_cast<std::u16string*>(text)->size());
}

void ArrayHost::read_units(JNIEnv* env, jstring text, jsize start, jsize length, jchar* units) {
  self(env).expect_nothing_pending();
  const auto& source = *reinterpret_cast<std::u16string*>(text);
  ASSERT_TRUE(start >= 0 && length >= 0 && start + length <= static_cast<jsize>(source.size()));
  std::copy_n(source.begin() + start, length, units);
}
