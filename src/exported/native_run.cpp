// Experiment: building a run, reading its results, and the drive signals.
#include "exported/frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1run_1build)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  call(env, &Experiment::run_build, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1run_1size)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(env, &Experiment::run_size, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1repeat)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(env, &Experiment::repeat, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1position)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong index) {
  return call(env, &Experiment::position, Self<Facade>{self}, Unsigned{id}, Unsigned{index});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1fronts_1_1SWIG_10)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong index) {
  return call(
      env, [](Experiment & experiment, std::uint32_t item, std::uint32_t set) -> auto& {
        return experiment.fronts(item, set);
      },
      Self<Facade>{self}, Unsigned{id}, Unsigned{index});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1fronts_1_1SWIG_11)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jboolean merged) {
  return call(
      env, [](Experiment & experiment, std::uint32_t item, bool m) -> auto& {
        return experiment.fronts(item, m);
      },
      Self<Facade>{self}, Unsigned{id}, Bool{merged});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1fronts_1_1SWIG_12)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(
      env,
      [](Experiment & experiment, std::uint32_t item) -> auto& { return experiment.fronts(item); },
      Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1messages)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(env, &Experiment::messages, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1paddle_1motion_1build)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong in, jobject) {
  call(env, &Experiment::paddle_motion_build, Self<Facade>{self}, Unsigned{id},
       Reference<Base::Params&>{in});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1paddle_1motion_1data)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong bank, jlong paddle) {
  return call(env, &Experiment::paddle_motion_data, Self<Facade>{self}, Unsigned{id},
              Unsigned{bank}, Unsigned{paddle});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1paddle_1motion_1stats)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong bank, jlong out, jobject) {
  call(env, &Experiment::paddle_motion_stats, Self<Facade>{self}, Unsigned{id}, Unsigned{bank},
       Reference<Base::Params&>{out});
}
