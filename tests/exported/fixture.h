// A test that drives the exported functions as a host does, and frees what it made.
#ifndef KELPBOX_TESTS_EXPORTED_FIXTURE_H_
#define KELPBOX_TESTS_EXPORTED_FIXTURE_H_

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "host.h"
#include "native.h"

namespace Testing {

// A parameter to insert.
struct Entry {
  const char* name;
  double value;
  const char* units;
};

class HostTest : public testing::Test {
 protected:
  // No exception may be left pending.
  void TearDown() override;

  static Thrown domain(const std::string& message);
  static Thrown null_pointer(const std::string& message);
  static Thrown index_out_of_bounds();

  // Calls an exported function and returns the host exception that it left.
  template <typename Function, typename... Arguments>
  Thrown thrown_by(Function function, Arguments... arguments) {
    host.call(function, arguments...);
    return host.take_thrown();
  }
  // The message of a character pointer that leaves an exported function, or "" for none.
  template <typename Function, typename... Arguments>
  std::string text_leaving(Function function, Arguments... arguments) {
    try {
      host.call(function, arguments...);
    } catch (const char* text) {
      return text;
    }
    return "";
  }
  template <typename Function, typename... Arguments>
  std::string string_from(Function function, Arguments... arguments) {
    return Host::characters_of(host.call(function, arguments...));
  }

  // The handle again, freed when the test ends.
  jlong own(jlong handle, void (*destroy)(JNIEnv*, jclass, jlong));

  jlong params(const std::vector<Entry>& entries = {});
  void insert_enum(jlong params, const char* name, const char* member, const char* type);
  double value(jlong params, const char* name, const char* units);
  // Names in the order of the list.
  std::vector<std::string> names(jlong params);
  std::string units(jlong params, const std::string& name);
  std::vector<std::string> comments(jlong params);
  jlong doubles(const std::vector<double>& values);
  jlong uints(const std::vector<jlong>& values);
  std::vector<double> values_of(jlong vector);

  // Without a site, with the basin of data/basin.txt, and with another file of data/.
  jlong empty_experiment();
  jlong basin();
  jlong site(const std::string& file);
  // Reads a script. The progress lines are not shown.
  void initialise(jlong experiment, const std::string& file);

  Host host;

 private:
  std::vector<std::function<void()>> cleanups_;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_EXPORTED_FIXTURE_H_
