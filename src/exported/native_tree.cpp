// Experiment: the tree of definitions, specifications, components and modifiers.
#include <string>

#include "exported/frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1add_1definition)
(JNIEnv* env, jclass, jlong self, jobject, jstring name) {
  return call(env, &Experiment::add_definition, Self<Facade>{self}, Text(name));
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1add_1specification)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(env, &Experiment::add_specification, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1add_1fronts)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong fronts, jobject) {
  return call(env, &Experiment::add_fronts, Self<Facade>{self}, Unsigned{id},
              Reference<const Synthesis::DispFronts&>{fronts});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1add_1single)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  return call(env, &Experiment::add_single, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1add_1spectrum)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jstring name, jstring text) {
  return call(env, &Experiment::add_spectrum, Self<Facade>{self}, Unsigned{id}, Text(name),
              Text(text));
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1add_1timeexp)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jstring name, jstring text) {
  return call(env, &Experiment::add_timeexp, Self<Facade>{self}, Unsigned{id}, Text(name),
              Text(text));
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1add_1timeseries)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong vector, jobject) {
  return call(env, &Experiment::add_timeseries, Self<Facade>{self}, Unsigned{id},
              Reference<Base::Vector&>{vector});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1add_1modifier)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jstring type, jstring text) {
  return call(env, &Experiment::add_modifier, Self<Facade>{self}, Unsigned{id}, Text(type),
              Text(text));
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1query_1_1SWIG_11)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong out, jobject) {
  call(
      env,
      [](Experiment& experiment, std::uint32_t item, Base::Params& params) {
        experiment.query(item, params);
      },
      Self<Facade>{self}, Unsigned{id}, Reference<Base::Params&>{out});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1set_1_1SWIG_11)
(JNIEnv* env, jclass, jlong self, jobject, jlong id, jlong in, jobject) {
  call(
      env,
      [](Experiment& experiment, std::uint32_t item, Base::Params& params) {
        experiment.set(item, params);
      },
      Self<Facade>{self}, Unsigned{id}, Reference<Base::Params&>{in});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1remove)
(JNIEnv* env, jclass, jlong self, jobject, jlong id) {
  call(env, &Experiment::remove, Self<Facade>{self}, Unsigned{id});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1clear)(JNIEnv* env, jclass, jlong self, jobject) {
  call(env, &Experiment::clear, Self<Facade>{self});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1get_1params)
(JNIEnv* env, jclass, jstring text, jlong out, jobject) {
  call(env, &Experiment::get_params, Text(text), Reference<Base::Params&>{out});
}
