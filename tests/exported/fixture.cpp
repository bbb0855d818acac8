#include "fixture.h"

#include "support/output.h"

namespace Testing {

void HostTest::TearDown() {
  EXPECT_EQ(host.take_thrown(), Thrown{});
  while (!cleanups_.empty()) {
    cleanups_.back()();
    cleanups_.pop_back();
  }
}

Thrown HostTest::domain(const std::string& message) {
  return {"tidelab/waves/component/WaveSynthesisException", message};
}

Thrown HostTest::null_pointer(const std::string& message) {
  return {"java/lang/NullPointerException", message};
}

Thrown HostTest::index_out_of_bounds() {
  return {"java/lang/IndexOutOfBoundsException", "vector index out of range"};
}

jlong HostTest::own(jlong handle, void (*destroy)(JNIEnv*, jclass, jlong)) {
  cleanups_.push_back([=, this] { destroy(host.env(), nullptr, handle); });
  return handle;
}

jlong HostTest::params(const std::vector<Entry>& entries) {
  const jlong made = own(host.call(NATIVE(new_1Kelpbox_1Params)), NATIVE(delete_1Kelpbox_1Params));
  for (const Entry& entry : entries) {
    host.call(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_10), made, proxy, entry.name, entry.value,
              entry.units);
  }
  return made;
}

void HostTest::insert_enum(jlong params, const char* name, const char* member, const char* type) {
  host.call(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_11), params, proxy, name, member, type);
}

double HostTest::value(jlong params, const char* name, const char* units) {
  return host.call(NATIVE(Kelpbox_1Params_1get), params, proxy, name, units);
}

std::vector<std::string> HostTest::names(jlong params) {
  const jlong list = host.call(NATIVE(Kelpbox_1Params_1param_1list), params, proxy);
  const jlong size = host.call(NATIVE(Kelpbox_1StdVectorParam_1size), list, proxy);
  std::vector<std::string> result;
  for (jint i = 0; i < size; ++i) {
    const jlong param = host.call(NATIVE(Kelpbox_1StdVectorParam_1get), list, proxy, i);
    result.push_back(string_from(NATIVE(Kelpbox_1Param_1name), param, proxy));
  }
  return result;
}

std::string HostTest::units(jlong params, const std::string& name) {
  const jlong list = host.call(NATIVE(Kelpbox_1Params_1param_1list), params, proxy);
  const jlong size = host.call(NATIVE(Kelpbox_1StdVectorParam_1size), list, proxy);
  for (jint i = 0; i < size; ++i) {
    const jlong param = host.call(NATIVE(Kelpbox_1StdVectorParam_1get), list, proxy, i);
    if (string_from(NATIVE(Kelpbox_1Param_1name), param, proxy) == name) {
      return string_from(NATIVE(Kelpbox_1Param_1units), param, proxy);
    }
  }
  return "(no such parameter)";
}

std::vector<std::string> HostTest::comments(jlong params) {
  const jlong size = host.call(NATIVE(Kelpbox_1Params_1comment_1size), params, proxy);
  std::vector<std::string> result;
  for (jlong i = 0; i < size; ++i) {
    result.push_back(string_from(NATIVE(Kelpbox_1Params_1comment), params, proxy, i));
  }
  return result;
}

jlong HostTest::doubles(const std::vector<double>& values) {
  const jlong made = own(host.call(NATIVE(new_1Kelpbox_1StdVectorDouble_1_1SWIG_10)),
                         NATIVE(delete_1Kelpbox_1StdVectorDouble));
  for (const double value : values) {
    host.call(NATIVE(Kelpbox_1StdVectorDouble_1add), made, proxy, value);
  }
  return made;
}

jlong HostTest::uints(const std::vector<jlong>& values) {
  const jlong made = own(host.call(NATIVE(new_1Kelpbox_1StdVectorUInt_1_1SWIG_10)),
                         NATIVE(delete_1Kelpbox_1StdVectorUInt));
  for (const jlong value : values) {
    host.call(NATIVE(Kelpbox_1StdVectorUInt_1add), made, proxy, value);
  }
  return made;
}

std::vector<double> HostTest::values_of(jlong vector) {
  const jlong size = host.call(NATIVE(Kelpbox_1StdVectorDouble_1size), vector, proxy);
  std::vector<double> result;
  for (jint i = 0; i < size; ++i) {
    result.push_back(host.call(NATIVE(Kelpbox_1StdVectorDouble_1get), vector, proxy, i));
  }
  return result;
}

jlong HostTest::empty_experiment() {
  return own(host.call(NATIVE(new_1Kelpbox_1Experiment_1_1SWIG_10)),
             NATIVE(delete_1Kelpbox_1Experiment));
}

jlong HostTest::basin() { return site("basin.txt"); }

jlong HostTest::site(const std::string& file) {
  const jlong made = empty_experiment();
  initialise(made, TEST_ROOT "/exported/data/" + file);
  return made;
}

void HostTest::initialise(jlong experiment, const std::string& file) {
  printed([&] { host.call(NATIVE(Kelpbox_1Experiment_1initialise), experiment, proxy, file); });
}

}  // namespace Testing
