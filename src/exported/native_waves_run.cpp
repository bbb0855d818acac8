// Native: building runs, and what is made of them.
#include <cstdint>
#include <vector>

#include "base/params.h"
#include "exported/host_array.h"
#include "exported/safe_frame.h"
#include "facade/facade.h"

using namespace Kelpbox;
using Base::Params;

KELPBOX_SAFE(void, buildRun)(JNIEnv* env, jclass, jlong experiment, jlong definition) {
  safely(env, [&] { object<Facade>(experiment).run_build(id(definition)); });
}

KELPBOX_SAFE(void, buildMotion)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong params) {
  safely(env, [&] {
    object<Facade>(experiment).paddle_motion_build(id(definition), object<Params>(params));
  });
}

KELPBOX_SAFE(void, motionStatistics)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong bank, jlong params) {
  safely(env, [&] {
    object<Facade>(experiment)
        .paddle_motion_stats(id(definition), number(bank, "bank"), object<Params>(params));
  });
}

KELPBOX_SAFE(void, buildPoint)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong params) {
  safely(env,
         [&] { object<Facade>(experiment).twod_build(id(definition), object<Params>(params)); });
}

KELPBOX_SAFE(void, pointStatistics)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong params) {
  safely(env,
         [&] { object<Facade>(experiment).twod_stats(id(definition), object<Params>(params)); });
}

KELPBOX_SAFE(void, layOutFrames)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong params) {
  safely(env,
         [&] { object<Facade>(experiment).animate_init(id(definition), object<Params>(params)); });
}

KELPBOX_SAFE(void, buildColumns)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong first, jlong afterLast) {
  safely(env, [&] {
    object<Facade>(experiment)
        .animate_build_slice(id(definition), Params(), number(first, "column"),
                             number(afterLast, "column"));
  });
}

KELPBOX_SAFE(jdoubleArray, repeat)(JNIEnv* env, jclass, jlong experiment, jlong definition) {
  return safely(env, [&] {
    Facade& facade = object<Facade>(experiment);
    const Maths::RunData& run = facade.repeat(id(definition));
    return host_array(env, std::vector<double>{
                               run.value(), static_cast<double>(run.size()),
                               static_cast<double>(run.min_harmonic()),
                               static_cast<double>(run.max_harmonic()), run.dalrymple() ? 1.0 : 0.0,
                               static_cast<double>(facade.run_size(id(definition)))});
  });
}

KELPBOX_SAFE(jdoubleArray, position)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong set) {
  return safely(env, [&] {
    const Maths::Position& position =
        object<Facade>(experiment).position(id(definition), number(set, "set"));
    return host_array(env, std::vector<double>{position.x, position.y, position.t});
  });
}
