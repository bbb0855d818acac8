// The vector families: reading and writing elements.
#include <string>
#include <vector>

#include "base/params.h"
#include "exported/frame.h"
#include "exported/std_vector.h"
#include "maths/front.h"

using namespace Kelpbox;

namespace {

// Numbers and strings are read by value.
template <typename T>
T get(std::vector<T>& vector, jint index) {
  return element(vector, index);
}

template <typename T>
void set(std::vector<T>& vector, jint index, const T& value) {
  element(vector, index) = value;
}

template <typename T>
void add(std::vector<T>& vector, const T& value) {
  vector.push_back(value);
}

}  // namespace

// double.

KELPBOX_EXPORT(void, Kelpbox_1StdVectorDouble_1add)
(JNIEnv* env, jclass, jlong self, jobject, jdouble value) {
  call<NoGuard>(env, &add<double>, Self<std::vector<double>>{self}, Real{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorDouble_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jdouble value) {
  call<IndexGuard>(env, &set<double>, Self<std::vector<double>>{self}, Index{index}, Real{value});
}

KELPBOX_EXPORT(jdouble, Kelpbox_1StdVectorDouble_1get)
(JNIEnv* env, jclass, jlong self, jobject, jint index) {
  return call<IndexGuard>(env, &get<double>, Self<std::vector<double>>{self}, Index{index});
}

// float.

KELPBOX_EXPORT(void, Kelpbox_1StdVectorFloat_1add)
(JNIEnv* env, jclass, jlong self, jobject, jfloat value) {
  call<NoGuard>(env, &add<float>, Self<std::vector<float>>{self}, Number<jfloat>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorFloat_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jfloat value) {
  call<IndexGuard>(env, &set<float>, Self<std::vector<float>>{self}, Index{index},
                   Number<jfloat>{value});
}

KELPBOX_EXPORT(jfloat, Kelpbox_1StdVectorFloat_1get)
(JNIEnv* env, jclass, jlong self, jobject, jint index) {
  return call<IndexGuard>(env, &get<float>, Self<std::vector<float>>{self}, Index{index});
}

// short.

KELPBOX_EXPORT(void, Kelpbox_1StdVectorShort_1add)
(JNIEnv* env, jclass, jlong self, jobject, jshort value) {
  call<NoGuard>(env, &add<short>, Self<std::vector<short>>{self}, Number<jshort>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorShort_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jshort value) {
  call<IndexGuard>(env, &set<short>, Self<std::vector<short>>{self}, Index{index},
                   Number<jshort>{value});
}

KELPBOX_EXPORT(jshort, Kelpbox_1StdVectorShort_1get)
(JNIEnv* env, jclass, jlong self, jobject, jint index) {
  return call<IndexGuard>(env, &get<short>, Self<std::vector<short>>{self}, Index{index});
}

// unsigned.

KELPBOX_EXPORT(void, Kelpbox_1StdVectorUInt_1add)
(JNIEnv* env, jclass, jlong self, jobject, jlong value) {
  call<NoGuard>(env, &add<unsigned>, Self<std::vector<unsigned>>{self}, Unsigned{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorUInt_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jlong value) {
  call<IndexGuard>(env, &set<unsigned>, Self<std::vector<unsigned>>{self}, Index{index},
                   Unsigned{value});
}

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorUInt_1get)
(JNIEnv* env, jclass, jlong self, jobject, jint index) {
  return call<IndexGuard>(env, &get<unsigned>, Self<std::vector<unsigned>>{self}, Index{index});
}

// std::string.

KELPBOX_EXPORT(void, Kelpbox_1StdVectorString_1add)
(JNIEnv* env, jclass, jlong self, jobject, jstring value) {
  call<NoGuard>(env, &add<std::string>, Self<std::vector<std::string>>{self}, Text(value));
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorString_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jstring value) {
  call<IndexGuard>(env, &set<std::string>, Self<std::vector<std::string>>{self}, Index{index},
                   Text(value));
}

KELPBOX_EXPORT(jstring, Kelpbox_1StdVectorString_1get)
(JNIEnv* env, jclass, jlong self, jobject, jint index) {
  return call<IndexGuard>(env, &get<std::string>, Self<std::vector<std::string>>{self},
                          Index{index});
}

// Records are read in place: `get` returns the element's address.

KELPBOX_EXPORT(void, Kelpbox_1StdVectorParam_1add)
(JNIEnv* env, jclass, jlong self, jobject, jlong value, jobject) {
  call<NoGuard>(env, &add<Base::Param>, Self<std::vector<Base::Param>>{self},
                Element<Base::Param>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorParam_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jlong value, jobject) {
  call<IndexGuard>(env, &set<Base::Param>, Self<std::vector<Base::Param>>{self}, Index{index},
                   Element<Base::Param>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorFront_1add)
(JNIEnv* env, jclass, jlong self, jobject, jlong value, jobject) {
  call<NoGuard>(env, &add<Synthesis::Front>, Self<std::vector<Synthesis::Front>>{self},
                Element<Synthesis::Front>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorFront_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jlong value, jobject) {
  call<IndexGuard>(env, &set<Synthesis::Front>, Self<std::vector<Synthesis::Front>>{self},
                   Index{index}, Element<Synthesis::Front>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorDisplayFront_1add)
(JNIEnv* env, jclass, jlong self, jobject, jlong value, jobject) {
  call<NoGuard>(env, &add<Maths::DisplayFront>, Self<std::vector<Maths::DisplayFront>>{self},
                Element<Maths::DisplayFront>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorDisplayFront_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jlong value, jobject) {
  call<IndexGuard>(env, &set<Maths::DisplayFront>, Self<std::vector<Maths::DisplayFront>>{self},
                   Index{index}, Element<Maths::DisplayFront>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorTransferFront_1add)
(JNIEnv* env, jclass, jlong self, jobject, jlong value, jobject) {
  call<NoGuard>(env, &add<Maths::TransferFront>, Self<std::vector<Maths::TransferFront>>{self},
                Element<Maths::TransferFront>{value});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorTransferFront_1set)
(JNIEnv* env, jclass, jlong self, jobject, jint index, jlong value, jobject) {
  call<IndexGuard>(env, &set<Maths::TransferFront>, Self<std::vector<Maths::TransferFront>>{self},
                   Index{index}, Element<Maths::TransferFront>{value});
}

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorParam_1get)
(JNIEnv* env, jclass, jlong self, jobject, jint index) {
  return call<IndexGuard>(env, &element<Base::Param>, Self<std::vector<Base::Param>>{self},
                          Index{index});
}

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorFront_1get)
(JNIEnv* env, jclass, jlong self, jobject, jint index) {
  return call<IndexGuard>(env, &element<Synthesis::Front>,
                          Self<std::vector<Synthesis::Front>>{self}, Index{index});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorDisplayFront_1get, Kelpbox_1StdVectorFront_1get);
KELPBOX_ALIAS(Kelpbox_1StdVectorTransferFront_1get, Kelpbox_1StdVectorFront_1get);
