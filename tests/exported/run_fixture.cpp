#include "run_fixture.h"

namespace Testing {

void RunHostTest::make_run() {
  run = host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), experiment, proxy, "run");
  group = host.call(NATIVE(Kelpbox_1Experiment_1add_1specification), experiment, proxy, run);
}

void RunHostTest::set(jlong id, jlong values) {
  host.call(NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_11), experiment, proxy, id, values, proxy);
}

void RunHostTest::set_run(double repeat) {
  const jlong values = params({{"repeat", repeat, "s"}});
  insert_enum(values, "dalrymple", "False", "Bool");
  insert_enum(values, "wave_merge", "Null", "WaveMerge");
  set(run, values);
}

void RunHostTest::set_place(double x, double y, double t) {
  set(group, params({{"x", x, "m"}, {"y", y, "m"}, {"t", t, "s"}}));
}

jlong RunHostTest::add_single() {
  return host.call(NATIVE(Kelpbox_1Experiment_1add_1single), experiment, proxy, group);
}

void RunHostTest::set_single(jlong wave, double f, double a, double angle, double phase) {
  set(wave,
      params({{"f", f, "Hz"}, {"a", a, "m"}, {"angle", angle, "rad"}, {"phase", phase, "rad"}}));
}

Thrown RunHostTest::thrown_by_run_build() {
  return thrown_by(NATIVE(Kelpbox_1Experiment_1run_1build), experiment, proxy, run);
}

void RunHostTest::unmake_tank() {
  const jlong values = params();
  host.call(NATIVE(Kelpbox_1Analysis_1query), experiment, proxy, values, proxy);
  host.call(NATIVE(Kelpbox_1Analysis_1set), experiment, proxy, values, proxy);
}

}  // namespace Testing
