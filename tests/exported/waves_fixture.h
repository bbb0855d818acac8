// A test that calls the functions of tidelab.waves.Native. Names of the other class serve to make
// and free what these functions work on.
#ifndef KELPBOX_TESTS_EXPORTED_WAVES_FIXTURE_H_
#define KELPBOX_TESTS_EXPORTED_WAVES_FIXTURE_H_

#include <tidelab_waves_Native.h>

#include "array_host.h"
#include "run_fixture.h"

#define WAVES(name) Java_tidelab_waves_Native_##name

namespace Testing {

class WavesTest : public RunHostTest {
 protected:
  // No exception may be left pending, and each call may hold few local references.
  void TearDown() override {
    EXPECT_EQ(waves.take_thrown(), Thrown{});
    EXPECT_LE(waves.most_references, 16);
    RunHostTest::TearDown();
  }

  // Calls a function and returns the exception that it left.
  template <typename Function, typename... Arguments>
  Thrown thrown_in(Function function, Arguments... arguments) {
    waves.call(function, arguments...);
    return waves.take_thrown();
  }
  jbyteArray bytes(const std::string& characters) { return waves.bytes(characters); }
  static std::vector<double> numbers(jobject array) { return ArrayHost::values_of<double>(array); }

  jlong new_experiment() {
    return own(waves.call(WAVES(newExperiment), bytes("tank")),
               NATIVE(delete_1Kelpbox_1Experiment));
  }
  jlong own_params(jlong handle) { return own(handle, NATIVE(delete_1Kelpbox_1Params)); }

  ArrayHost waves;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_EXPORTED_WAVES_FIXTURE_H_
