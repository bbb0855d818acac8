// The table of exported functions: what each takes and gives.
#ifndef KELPBOX_FUZZ_NATIVE_ROWS_H_
#define KELPBOX_FUZZ_NATIVE_ROWS_H_

#include <jni.h>

#include <cmath>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "exported/array_host.h"
#include "fuzz/native/handles.h"

namespace Fuzz {

enum class Kind { object, text, bytes, real, integer, boolean, reals, integers, texts };

struct Argument {
  Kind kind = Kind::integer;
  Type type = Type::params;  // of an object
  bool may_be_null = false;  // of an object
  bool owned = false;        // of an object: one that the host may delete
};

// What the `long` arguments of a function are, in their order.
inline constexpr Argument number{};
constexpr Argument self(Type type) { return {Kind::object, type, false, false}; }
constexpr Argument object(Type type) { return {Kind::object, type, true, false}; }
constexpr Argument deleted(Type type) { return {Kind::object, type, true, true}; }

// An argument as it is passed.
struct Given {
  Argument argument;
  bool null = false;
  jlong integer = 0;  // or an address
  double real = 0.0;
  std::string text;
  std::vector<std::string> list;
};

struct Gives {
  bool object = false;
  Type type = Type::params;
  Lent lent = Lent::no;
};
constexpr Gives made(Type type) { return {true, type, Lent::no}; }
constexpr Gives lent(Type type, Lent how) { return {true, type, how}; }

// What leaves a function on purpose, and ends the process of a host (docs/native-failures.md).
// Catching it here stands for not making that mistake.
enum class Leaves { nothing, site_missing, length };

struct Returned {
  jlong integer = 0;
  double real = 0.0;
  jobject object = nullptr;
  bool is_object = false;
};

struct Row {
  std::string name;  // as in Java
  std::vector<Argument> arguments;
  std::function<Returned(ArrayHost&, const std::vector<Given>&)> call;
  Gives gives;
  Leaves leaves = Leaves::nothing;
};

// Each target has one of these.
const std::vector<Row>& rows();
// Null if there is none.
const Row* find_row(std::string_view name);

// "Kelpbox_1Params_1get" as "Kelpbox_Params_get".
std::string java_name(std::string_view exported);

// The host's arrays and strings.
jstring text_for(ArrayHost& host, const Given& given);
jbyteArray bytes_for(ArrayHost& host, const Given& given);
jdoubleArray reals_for(ArrayHost& host, const Given& given);
jintArray integers_for(ArrayHost& host, const Given& given);
jobjectArray texts_for(ArrayHost& host, const Given& given);

template <typename P>
constexpr bool is_proxy = std::is_same_v<P, jobject>;

template <typename P>
constexpr Kind kind_of() {
  if constexpr (std::is_same_v<P, jstring>) return Kind::text;
  if constexpr (std::is_same_v<P, jbyteArray>) return Kind::bytes;
  if constexpr (std::is_same_v<P, jdoubleArray>) return Kind::reals;
  if constexpr (std::is_same_v<P, jintArray>) return Kind::integers;
  if constexpr (std::is_same_v<P, jobjectArray>) return Kind::texts;
  if constexpr (std::is_floating_point_v<P>) return Kind::real;
  if constexpr (std::is_same_v<P, jboolean>) return Kind::boolean;
  return Kind::integer;
}

template <typename P>
P passed(ArrayHost& host, const std::vector<Given>& given, std::size_t& at) {
  if constexpr (is_proxy<P>) {
    return nullptr;
  } else {
    const Given& one = given[at++];
    if constexpr (std::is_same_v<P, jstring>) {
      return text_for(host, one);
    } else if constexpr (std::is_same_v<P, jbyteArray>) {
      return bytes_for(host, one);
    } else if constexpr (std::is_same_v<P, jdoubleArray>) {
      return reals_for(host, one);
    } else if constexpr (std::is_same_v<P, jintArray>) {
      return integers_for(host, one);
    } else if constexpr (std::is_same_v<P, jobjectArray>) {
      return texts_for(host, one);
    } else if constexpr (std::is_same_v<P, jfloat>) {
      return std::abs(one.real) > 1e38 ? 0.0f : static_cast<jfloat>(one.real);
    } else if constexpr (std::is_same_v<P, jdouble>) {
      return one.real;
    } else if constexpr (std::is_same_v<P, jboolean>) {
      return one.integer != 0 ? JNI_TRUE : JNI_FALSE;
    } else {
      return static_cast<P>(one.integer);
    }
  }
}

template <typename R, typename... P>
Row make_row(std::string_view exported, R (*function)(JNIEnv*, jclass, P...), Gives gives,
             std::initializer_list<Argument> longs = {}, Leaves leaves = Leaves::nothing) {
  Row row;
  row.name = java_name(exported);
  row.gives = gives;
  row.leaves = leaves;
  auto next = longs.begin();
  const auto add = [&](Kind kind, bool proxy, bool is_long) {
    if (proxy) return;
    Argument argument;
    argument.kind = kind;
    if (is_long && next != longs.end()) argument = *next++;
    row.arguments.push_back(argument);
  };
  (add(kind_of<P>(), is_proxy<P>, std::is_same_v<P, jlong>), ...);
  row.call = [function](ArrayHost& host, const std::vector<Given>& given) {
    std::size_t at = 0;
    const std::tuple<P...> arguments{passed<P>(host, given, at)...};
    Returned returned;
    const auto call = [&](auto... each) { return host.call(function, each...); };
    if constexpr (std::is_void_v<R>) {
      std::apply(call, arguments);
    } else if constexpr (std::is_floating_point_v<R>) {
      returned.real = std::apply(call, arguments);
    } else if constexpr (std::is_integral_v<R>) {
      returned.integer = static_cast<jlong>(std::apply(call, arguments));
    } else {
      returned.object = std::apply(call, arguments);
      returned.is_object = true;
    }
    return returned;
  };
  return row;
}

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_NATIVE_ROWS_H_
