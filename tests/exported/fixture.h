// A test that drives the exported functions as a host does, and frees what it made.
#ifndef KELPBOX_TESTS_EXPORTED_FIXTURE_H_
#define KELPBOX_TESTS_EXPORTED_FIXTURE_H_

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "facade/facade.h"
#include "host.h"
#include "native.h"

struct Entry {
  const char* name;
  double value;
  const char* units;
};

// An experiment whose inside can be put into states that a host's own calls do not lead to.
class OpenExperiment : public Kelpbox::Facade {
 public:
  using Kelpbox::Experiment::attach;
  using Kelpbox::Experiment::component;
  using Kelpbox::Experiment::definition;
  using Kelpbox::Experiment::modifier;
  using Kelpbox::Experiment::specification;
};

class HostTest : public testing::Test {
 protected:
  // No exception may be left pending.
  void TearDown() override;

  static Thrown domain(const std::string& message);
  static Thrown null_pointer(const std::string& message);
  static Thrown index_out_of_bounds();

  // Calls an exported function and tells which host exception it left.
  template <typename Function, typename... Arguments>
  Thrown thrown_by(Function function, Arguments... arguments) {
    host.call(function, arguments...);
    return host.take_thrown();
  }
  // The plain text (const char*) that leaves an exported function, or "" for none.
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
  std::vector<std::string> comments(jlong params);
  jlong doubles(const std::vector<double>& values);
  jlong uints(const std::vector<jlong>& values);
  std::vector<double> values_of(jlong vector);

  // One without a site, and one that has read the basin of data/basin.txt.
  jlong empty_experiment();
  jlong basin();
  // As `basin`, with its inside open; and one that has read another file of data/.
  OpenExperiment& open_basin();
  OpenExperiment& open_site(const std::string& file);
  static jlong handle(Kelpbox::Facade& facade);
  // Reads a script, with its progress lines caught.
  void initialise(jlong experiment, const std::string& file);

  Host host;

 private:
  std::vector<std::function<void()>> cleanups_;
};

#endif  // KELPBOX_TESTS_EXPORTED_FIXTURE_H_
