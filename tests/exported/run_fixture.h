// A test on a run of an experiment, driven through the exported functions.
#ifndef KELPBOX_TESTS_EXPORTED_RUN_FIXTURE_H_
#define KELPBOX_TESTS_EXPORTED_RUN_FIXTURE_H_

#include "fixture.h"

namespace Testing {

class RunHostTest : public HostTest {
 protected:
  // A definition and a specification of the experiment, with nothing set.
  void make_run();
  void set(jlong id, jlong values);
  void set_run(double repeat);
  void set_place(double x, double y, double t);
  // A single wave, with nothing set.
  jlong add_single();
  void set_single(jlong wave, double f, double a, double angle, double phase);
  Thrown thrown_by_run_build();
  // Takes the tank away until the site is set again: after its `set`, an analysis on the same
  // object makes the tank only with its next process.
  void unmake_tank();

  jlong experiment = 0;
  jlong run = 0;
  jlong group = 0;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_EXPORTED_RUN_FIXTURE_H_
