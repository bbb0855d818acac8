// The vector families: creation, deletion and sizes.
//
// If an operation depends only on the width of the element, or not even on that, the families share
// one function. It has the name of the first family, and the other names are aliases.
#include <string>
#include <vector>

#include "base/params.h"
#include "exported/frame.h"
#include "exported/std_vector.h"
#include "maths/front.h"

using namespace Kelpbox;

// The shared functions treat a vector of one element type as a vector of another.
static_assert(sizeof(std::vector<double>) == sizeof(AnyVector));
static_assert(sizeof(Synthesis::Front) == 32 && sizeof(Maths::DisplayFront) == 32 &&
              sizeof(Maths::TransferFront) == 32 && sizeof(std::string) == 32);
static_assert(sizeof(float) == 4 && sizeof(unsigned) == 4);

// All families.

KELPBOX_EXPORT(jlong, new_1Kelpbox_1StdVectorDouble_1_1SWIG_10)
(JNIEnv*, jclass) { return handle_of(new AnyVector()); }
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorFloat_1_1SWIG_10, new_1Kelpbox_1StdVectorDouble_1_1SWIG_10);
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorShort_1_1SWIG_10, new_1Kelpbox_1StdVectorDouble_1_1SWIG_10);
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorUInt_1_1SWIG_10, new_1Kelpbox_1StdVectorDouble_1_1SWIG_10);
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorString_1_1SWIG_10, new_1Kelpbox_1StdVectorDouble_1_1SWIG_10);
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorParam_1_1SWIG_10, new_1Kelpbox_1StdVectorDouble_1_1SWIG_10);
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorFront_1_1SWIG_10, new_1Kelpbox_1StdVectorDouble_1_1SWIG_10);
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorDisplayFront_1_1SWIG_10,
              new_1Kelpbox_1StdVectorDouble_1_1SWIG_10);
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorTransferFront_1_1SWIG_10,
              new_1Kelpbox_1StdVectorDouble_1_1SWIG_10);

KELPBOX_EXPORT(jboolean, Kelpbox_1StdVectorDouble_1isEmpty)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const AnyVector& vector) { return vector.empty(); }, Self<AnyVector>{self});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorFloat_1isEmpty, Kelpbox_1StdVectorDouble_1isEmpty);
KELPBOX_ALIAS(Kelpbox_1StdVectorShort_1isEmpty, Kelpbox_1StdVectorDouble_1isEmpty);
KELPBOX_ALIAS(Kelpbox_1StdVectorUInt_1isEmpty, Kelpbox_1StdVectorDouble_1isEmpty);
KELPBOX_ALIAS(Kelpbox_1StdVectorString_1isEmpty, Kelpbox_1StdVectorDouble_1isEmpty);
KELPBOX_ALIAS(Kelpbox_1StdVectorParam_1isEmpty, Kelpbox_1StdVectorDouble_1isEmpty);
KELPBOX_ALIAS(Kelpbox_1StdVectorFront_1isEmpty, Kelpbox_1StdVectorDouble_1isEmpty);
KELPBOX_ALIAS(Kelpbox_1StdVectorDisplayFront_1isEmpty, Kelpbox_1StdVectorDouble_1isEmpty);
KELPBOX_ALIAS(Kelpbox_1StdVectorTransferFront_1isEmpty, Kelpbox_1StdVectorDouble_1isEmpty);

// Families whose elements need no destructor.

KELPBOX_EXPORT(void, delete_1Kelpbox_1StdVectorDouble)
(JNIEnv*, jclass, jlong self) { delete pointer_from<AnyVector>(self); }
KELPBOX_ALIAS(delete_1Kelpbox_1StdVectorFloat, delete_1Kelpbox_1StdVectorDouble);
KELPBOX_ALIAS(delete_1Kelpbox_1StdVectorShort, delete_1Kelpbox_1StdVectorDouble);
KELPBOX_ALIAS(delete_1Kelpbox_1StdVectorUInt, delete_1Kelpbox_1StdVectorDouble);
KELPBOX_ALIAS(delete_1Kelpbox_1StdVectorFront, delete_1Kelpbox_1StdVectorDouble);
KELPBOX_ALIAS(delete_1Kelpbox_1StdVectorDisplayFront, delete_1Kelpbox_1StdVectorDouble);
KELPBOX_ALIAS(delete_1Kelpbox_1StdVectorTransferFront, delete_1Kelpbox_1StdVectorDouble);

KELPBOX_EXPORT(void, Kelpbox_1StdVectorDouble_1clear)
(JNIEnv* env, jclass, jlong self, jobject) {
  call<NoGuard>(
      env, [](auto& vector) { vector.clear(); }, Self<AnyVector>{self});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorFloat_1clear, Kelpbox_1StdVectorDouble_1clear);
KELPBOX_ALIAS(Kelpbox_1StdVectorShort_1clear, Kelpbox_1StdVectorDouble_1clear);
KELPBOX_ALIAS(Kelpbox_1StdVectorUInt_1clear, Kelpbox_1StdVectorDouble_1clear);
KELPBOX_ALIAS(Kelpbox_1StdVectorFront_1clear, Kelpbox_1StdVectorDouble_1clear);
KELPBOX_ALIAS(Kelpbox_1StdVectorDisplayFront_1clear, Kelpbox_1StdVectorDouble_1clear);
KELPBOX_ALIAS(Kelpbox_1StdVectorTransferFront_1clear, Kelpbox_1StdVectorDouble_1clear);

// Families whose elements need a destructor.

KELPBOX_EXPORT(void, delete_1Kelpbox_1StdVectorString)
(JNIEnv*, jclass, jlong self) { delete pointer_from<std::vector<std::string>>(self); }

KELPBOX_EXPORT(void, Kelpbox_1StdVectorString_1clear)
(JNIEnv* env, jclass, jlong self, jobject) {
  call<NoGuard>(
      env, [](auto& vector) { vector.clear(); }, Self<std::vector<std::string>>{self});
}

KELPBOX_EXPORT(void, delete_1Kelpbox_1StdVectorParam)
(JNIEnv*, jclass, jlong self) { delete pointer_from<std::vector<Base::Param>>(self); }

KELPBOX_EXPORT(void, Kelpbox_1StdVectorParam_1clear)
(JNIEnv* env, jclass, jlong self, jobject) {
  call<NoGuard>(
      env, [](auto& vector) { vector.clear(); }, Self<std::vector<Base::Param>>{self});
}

// double.

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorDouble_1size)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.size(); }, Self<const std::vector<double>>{self});
}

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorDouble_1capacity)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.capacity(); },
      Self<const std::vector<double>>{self});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorDouble_1reserve)
(JNIEnv* env, jclass, jlong self, jobject, jlong count) {
  call<NoGuard>(env, &reserve<double>, Self<std::vector<double>>{self}, Number<jlong>{count});
}

KELPBOX_EXPORT(jlong, new_1Kelpbox_1StdVectorDouble_1_1SWIG_11)
(JNIEnv* env, jclass, jlong count) {
  return call<NoGuard>(env, &make_vector<double>, Number<jlong>{count});
}

// short.

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorShort_1size)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.size(); }, Self<const std::vector<short>>{self});
}

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorShort_1capacity)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.capacity(); },
      Self<const std::vector<short>>{self});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorShort_1reserve)
(JNIEnv* env, jclass, jlong self, jobject, jlong count) {
  call<NoGuard>(env, &reserve<short>, Self<std::vector<short>>{self}, Number<jlong>{count});
}

KELPBOX_EXPORT(jlong, new_1Kelpbox_1StdVectorShort_1_1SWIG_11)
(JNIEnv* env, jclass, jlong count) {
  return call<NoGuard>(env, &make_vector<short>, Number<jlong>{count});
}

// Base::Param.

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorParam_1size)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.size(); },
      Self<const std::vector<Base::Param>>{self});
}

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorParam_1capacity)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.capacity(); },
      Self<const std::vector<Base::Param>>{self});
}

KELPBOX_EXPORT(void, Kelpbox_1StdVectorParam_1reserve)
(JNIEnv* env, jclass, jlong self, jobject, jlong count) {
  call<NoGuard>(env, &reserve<Base::Param>, Self<std::vector<Base::Param>>{self},
                Number<jlong>{count});
}

KELPBOX_EXPORT(jlong, new_1Kelpbox_1StdVectorParam_1_1SWIG_11)
(JNIEnv* env, jclass, jlong count) {
  return call<NoGuard>(env, &make_vector<Base::Param>, Number<jlong>{count});
}

// Elements of 4 bytes.

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorFloat_1size)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.size(); }, Self<const std::vector<float>>{self});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorUInt_1size, Kelpbox_1StdVectorFloat_1size);

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorFloat_1capacity)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.capacity(); },
      Self<const std::vector<float>>{self});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorUInt_1capacity, Kelpbox_1StdVectorFloat_1capacity);

KELPBOX_EXPORT(void, Kelpbox_1StdVectorFloat_1reserve)
(JNIEnv* env, jclass, jlong self, jobject, jlong count) {
  call<NoGuard>(env, &reserve<float>, Self<std::vector<float>>{self}, Number<jlong>{count});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorUInt_1reserve, Kelpbox_1StdVectorFloat_1reserve);

KELPBOX_EXPORT(jlong, new_1Kelpbox_1StdVectorFloat_1_1SWIG_11)
(JNIEnv* env, jclass, jlong count) {
  return call<NoGuard>(env, &make_vector<float>, Number<jlong>{count});
}
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorUInt_1_1SWIG_11, new_1Kelpbox_1StdVectorFloat_1_1SWIG_11);

// Elements of 32 bytes. Strings share only `size` and `capacity`.

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorFront_1size)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.size(); },
      Self<const std::vector<Synthesis::Front>>{self});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorDisplayFront_1size, Kelpbox_1StdVectorFront_1size);
KELPBOX_ALIAS(Kelpbox_1StdVectorTransferFront_1size, Kelpbox_1StdVectorFront_1size);
KELPBOX_ALIAS(Kelpbox_1StdVectorString_1size, Kelpbox_1StdVectorFront_1size);

KELPBOX_EXPORT(jlong, Kelpbox_1StdVectorFront_1capacity)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call<NoGuard>(
      env, [](const auto& vector) { return vector.capacity(); },
      Self<const std::vector<Synthesis::Front>>{self});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorDisplayFront_1capacity, Kelpbox_1StdVectorFront_1capacity);
KELPBOX_ALIAS(Kelpbox_1StdVectorTransferFront_1capacity, Kelpbox_1StdVectorFront_1capacity);
KELPBOX_ALIAS(Kelpbox_1StdVectorString_1capacity, Kelpbox_1StdVectorFront_1capacity);

KELPBOX_EXPORT(void, Kelpbox_1StdVectorFront_1reserve)
(JNIEnv* env, jclass, jlong self, jobject, jlong count) {
  call<NoGuard>(env, &reserve<Synthesis::Front>, Self<std::vector<Synthesis::Front>>{self},
                Number<jlong>{count});
}
KELPBOX_ALIAS(Kelpbox_1StdVectorDisplayFront_1reserve, Kelpbox_1StdVectorFront_1reserve);
KELPBOX_ALIAS(Kelpbox_1StdVectorTransferFront_1reserve, Kelpbox_1StdVectorFront_1reserve);

KELPBOX_EXPORT(jlong, new_1Kelpbox_1StdVectorFront_1_1SWIG_11)
(JNIEnv* env, jclass, jlong count) {
  return call<NoGuard>(env, &make_vector<Synthesis::Front>, Number<jlong>{count});
}
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorDisplayFront_1_1SWIG_11,
              new_1Kelpbox_1StdVectorFront_1_1SWIG_11);
KELPBOX_ALIAS(new_1Kelpbox_1StdVectorTransferFront_1_1SWIG_11,
              new_1Kelpbox_1StdVectorFront_1_1SWIG_11);

// std::string.

KELPBOX_EXPORT(void, Kelpbox_1StdVectorString_1reserve)
(JNIEnv* env, jclass, jlong self, jobject, jlong count) {
  call<NoGuard>(env, &reserve<std::string>, Self<std::vector<std::string>>{self},
                Number<jlong>{count});
}

KELPBOX_EXPORT(jlong, new_1Kelpbox_1StdVectorString_1_1SWIG_11)
(JNIEnv* env, jclass, jlong count) {
  return call<NoGuard>(env, &make_vector<std::string>, Number<jlong>{count});
}
