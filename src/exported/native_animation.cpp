// Experiment: animation of a run.
#include "exported/frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1animate_1init)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong in, jobject) {
  call(env, &Experiment::animate_init, Self<Facade>{self}, Unsigned{id},
       Reference<Base::Params&>{in});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1animate_1build)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong in, jobject) {
  call(env, &Experiment::animate_build, Self<Facade>{self}, Unsigned{id},
       Reference<Base::Params&>{in});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1animate_1build_1slice)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong in, jobject, jlong first, jlong last) {
  call(env, &Experiment::animate_build_slice, Self<Facade>{self}, Unsigned{id},
       Reference<Base::Params&>{in}, Unsigned{first}, Unsigned{last});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1animate_1data)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong index) {
  return call(env, &Experiment::animate_data, Self<Facade>{self}, Unsigned{id}, Unsigned{index});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1animate_1size)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(env, &Experiment::animate_size, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(jdouble, Kelpbox_1Experiment_1animate_1progress)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(env, &Experiment::animate_progress, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(jboolean, Kelpbox_1Experiment_1animate_1ready)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(env, &Experiment::animate_ready, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1animate_1stop)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  call(env, &Experiment::animate_stop, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1animate_1free)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  call(env, &Experiment::animate_free, Self<Facade>{self}, Unsigned{id});
}
