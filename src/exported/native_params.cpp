// Param, Params and Vector.
#include <string>
#include <vector>

#include "base/params.h"
#include "base/units.h"
#include "base/vector.h"
#include "exported/frame.h"

using namespace Kelpbox;
using Base::Param;
using Base::Params;
using Base::Vector;

// Param.

KELPBOX_EXPORT(jlong, new_1Kelpbox_1Param)(JNIEnv*, jclass) { return handle_of(new Param()); }

KELPBOX_EXPORT(void, delete_1Kelpbox_1Param)(JNIEnv*, jclass, jlong self) {
  delete pointer_from<Param>(self);
}

KELPBOX_EXPORT(jstring, Kelpbox_1Param_1name)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Param::name, Self<Param>{self});
}

KELPBOX_EXPORT(jdouble, Kelpbox_1Param_1value)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Param::value, Self<Param>{self});
}

KELPBOX_EXPORT(jstring, Kelpbox_1Param_1units)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Param::units, Self<Param>{self});
}

KELPBOX_EXPORT(jboolean, Kelpbox_1Param_1is_1enum)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Param::is_enum, Self<Param>{self});
}

KELPBOX_EXPORT(jstring, Kelpbox_1Param_1enum_1type)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Param::enum_type, Self<Param>{self});
}

KELPBOX_EXPORT(jstring, Kelpbox_1Param_1enum_1value)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Param::enum_value, Self<Param>{self});
}

KELPBOX_EXPORT(jdouble, Kelpbox_1Param_1convert)
(JNIEnv* env, jclass, jstring from, jstring to) {
  return call(env, &Param::convert, Text(from), Text(to));
}

KELPBOX_EXPORT(jlong, Kelpbox_1Param_1alternate)(JNIEnv* env, jclass, jstring units) {
  return call(env, &Param::alternate, Text(units));
}

// Params.

KELPBOX_EXPORT(jlong, new_1Kelpbox_1Params)(JNIEnv*, jclass) { return handle_of(new Params()); }

KELPBOX_EXPORT(void, delete_1Kelpbox_1Params)(JNIEnv*, jclass, jlong self) {
  delete pointer_from<Params>(self);
}

KELPBOX_EXPORT(void, Kelpbox_1Params_1clear)(JNIEnv* env, jclass, jlong self, jobject) {
  call(env, &Params::clear, Self<Params>{self});
}

KELPBOX_EXPORT(jdouble, Kelpbox_1Params_1get)
(JNIEnv* env, jclass, jlong self, jobject, jstring name, jstring units) {
  return call(env, &Params::get, Self<Params>{self}, Text(name), Text(units));
}

KELPBOX_EXPORT(jlong, Kelpbox_1Params_1get_1enum)
(JNIEnv* env, jclass, jlong self, jobject, jstring name, jstring type) {
  return call(env, &Params::get_enum, Self<Params>{self}, Text(name), Text(type));
}

KELPBOX_EXPORT(void, Kelpbox_1Params_1insert_1_1SWIG_10)
(JNIEnv* env, jclass, jlong self, jobject, jstring name, jdouble value, jstring units) {
  call(
      env,
      [](Params& params, const std::string& n, double v, const std::string& u) {
        params.insert(n, v, u);
      },
      Self<Params>{self}, Text(name), Real{value}, Text(units));
}

KELPBOX_EXPORT(void, Kelpbox_1Params_1insert_1_1SWIG_11)
(JNIEnv* env, jclass, jlong self, jobject, jstring name, jstring member, jstring type) {
  call(
      env,
      [](Params& params, const std::string& n, const std::string& m, const std::string& t) {
        params.insert(n, m, t);
      },
      Self<Params>{self}, Text(name), Text(member), Text(type));
}

KELPBOX_EXPORT(jlong, Kelpbox_1Params_1param_1list)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Params::param_list, Self<Params>{self});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Params_1comment_1size)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Params::comment_size, Self<Params>{self});
}

KELPBOX_EXPORT(jstring, Kelpbox_1Params_1comment)
(JNIEnv* env, jclass, jlong self, jobject, jlong index) {
  return call(env, &Params::comment, Self<Params>{self}, Unsigned{index});
}

KELPBOX_EXPORT(void, Kelpbox_1Params_1print)(JNIEnv* env, jclass, jlong self, jobject) {
  call(
      env, [](const Params& params) { params.print(); }, Self<Params>{self});
}

// Vector.

KELPBOX_EXPORT(jlong, new_1Kelpbox_1Vector)
(JNIEnv* env, jclass, jstring label, jstring units, jlong data, jobject) {
  return call(
      env,
      [](const std::string& l, const std::string& u, const std::vector<double>& d) {
        return new Vector(l, Base::resolve_units(u), d);
      },
      Text(label), Text(units), Reference<const std::vector<double>&>{data});
}

KELPBOX_EXPORT(void, delete_1Kelpbox_1Vector)(JNIEnv*, jclass, jlong self) {
  delete pointer_from<Vector>(self);
}

KELPBOX_EXPORT(jlong, Kelpbox_1Vector_1size)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(
      env, [](const Vector& vector) { return vector.data.size(); }, Self<Vector>{self});
}

// The index is not checked: the host must pass one below the size.
KELPBOX_EXPORT(jdouble, Kelpbox_1Vector_1getValue)
(JNIEnv* env, jclass, jlong self, jobject, jint index) {
  return call(
      env, [](const Vector& vector, jint i) { return vector.data.data()[i]; }, Self<Vector>{self},
      Index{index});
}
