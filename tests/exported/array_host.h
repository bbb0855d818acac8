// A host with arrays. It checks what a virtual machine would only check under -Xcheck:jni: no call
// while an exception is pending, no region outside its array, few local references.
#ifndef KELPBOX_TESTS_EXPORTED_ARRAY_HOST_H_
#define KELPBOX_TESTS_EXPORTED_ARRAY_HOST_H_

#include <deque>
#include <limits>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host.h"

class ArrayHost : public Host {
 public:
  ArrayHost();

  // Arrays of the host's, alive as long as the host.
  jdoubleArray doubles(std::vector<double> values);
  jintArray ints(std::vector<jint> values);
  // The characters without their end.
  jbyteArray bytes(const std::string& characters);
  // Null for nothing.
  jobjectArray texts(const std::vector<std::optional<std::u16string>>& values);
  // An array that claims this length, and has no elements.
  jdoubleArray endless(jsize length);

  // The elements, empty for null and for arrays of another type.
  template <typename T>
  static std::vector<T> values_of(jobject array) {
    const auto* values = array == nullptr ? nullptr : std::get_if<std::vector<T>>(&data_of(array));
    return values == nullptr ? std::vector<T>() : *values;
  }
  // "(null)" for null.
  static std::vector<std::string> texts_of(jobject array);

  // As in Host. Each call may hold few local references.
  template <typename Function, typename... Arguments>
  auto call(Function function, Arguments... arguments) {
    references_ = 0;
    return Host::call(function, arguments...);
  }

  // The objects that the host can still make; then its memory is exhausted.
  int objects_left = std::numeric_limits<int>::max();
  // The largest number of local references held at once.
  int most_references = 0;

 private:
  using Data = std::variant<std::vector<jobject>, std::vector<double>, std::vector<jshort>,
                            std::vector<jint>, std::vector<jbyte>>;
  struct Array {
    Data data;
    std::optional<jsize> claimed;
  };

  static ArrayHost& self(JNIEnv* env) { return static_cast<ArrayHost&>(host_of(env)); }
  static Data& data_of(jobject array) { return reinterpret_cast<Array*>(array)->data; }
  jobject keep(Data data) {
    return reinterpret_cast<jobject>(&arrays_.emplace_back(Array{std::move(data), {}}));
  }
  // Counts a new object. Without memory for it an OutOfMemoryError is pending.
  bool may_make(const char* what);
  void refer(int change);
  void expect_nothing_pending() const;

  template <typename T>
  static jobject make(JNIEnv* env, jsize length);
  template <typename T>
  static void write(JNIEnv* env, jobject array, jsize start, jsize length, const T* values);
  template <typename T>
  static void read(JNIEnv* env, jobject array, jsize start, jsize length, T* values);

  static jclass JNICALL find(JNIEnv* env, const char* name);
  static jstring JNICALL make_string(JNIEnv* env, const char* characters);
  static jsize JNICALL length_of(JNIEnv* env, jarray array);
  static jobjectArray JNICALL make_objects(JNIEnv* env, jsize length, jclass, jobject first);
  static jobject JNICALL object_at(JNIEnv* env, jobjectArray array, jsize index);
  static void JNICALL set_object_at(JNIEnv* env, jobjectArray array, jsize index, jobject value);
  static void JNICALL forget(JNIEnv* env, jobject object);
  static jsize JNICALL units_of(JNIEnv* env, jstring text);
  static void JNICALL read_units(JNIEnv* env, jstring text, jsize start, jsize length,
                                 jchar* units);

  std::deque<Array> arrays_;
  std::deque<std::u16string> wide_;
  int references_ = 0;
};

#endif  // KELPBOX_TESTS_EXPORTED_ARRAY_HOST_H_
