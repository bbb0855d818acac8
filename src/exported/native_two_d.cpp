// Experiment: the wave at a point.
#include "exported/frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1twod_1build)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong in, jobject) {
  call(env, &Experiment::twod_build, Self<Facade>{self}, Unsigned{id},
       Reference<Base::Params&>{in});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1twod_1data)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jint which) {
  return call(env, &Experiment::twod_data, Self<Facade>{self}, Unsigned{id}, Index{which});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1twod_1stats)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong out, jobject) {
  call(env, &Experiment::twod_stats, Self<Facade>{self}, Unsigned{id},
       Reference<Base::Params&>{out});
}
