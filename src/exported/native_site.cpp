// Experiment and Analysis: creation, deletion, and the operations on the site.
#include <string>

#include "exported/frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

KELPBOX_EXPORT(jlong, new_1Kelpbox_1Experiment_1_1SWIG_10)(JNIEnv* env, jclass) {
  return call(env, [] { return new Facade(); });
}
KELPBOX_ALIAS(new_1Kelpbox_1Analysis, new_1Kelpbox_1Experiment_1_1SWIG_10);

KELPBOX_EXPORT(jlong, new_1Kelpbox_1Experiment_1_1SWIG_11)(JNIEnv* env, jclass, jstring name) {
  return call(
      env, [](const std::string& n) { return new Facade(n); }, Text(name));
}

KELPBOX_EXPORT(void, delete_1Kelpbox_1Experiment)(JNIEnv*, jclass, jlong self) {
  delete pointer_from<Facade>(self);
}
KELPBOX_ALIAS(delete_1Kelpbox_1Analysis, delete_1Kelpbox_1Experiment);

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1initialise)
(JNIEnv* env, jclass, jlong self, jobject, jstring file) {
  call(env, &SiteFacade::initialise, Self<Facade>{self}, Text(file));
}
KELPBOX_ALIAS(Kelpbox_1Analysis_1initialise, Kelpbox_1Experiment_1initialise);

KELPBOX_EXPORT(jstring, Kelpbox_1Experiment_1context_1name)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Experiment::context_name, Self<Facade>{self});
}

KELPBOX_EXPORT(jstring, Kelpbox_1Experiment_1context_1string)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Experiment::context_string, Self<Facade>{self});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1get_1consts)
(JNIEnv* env, jclass, jlong self, jobject, jlong out, jobject) {
  call(env, &SiteFacade::get_consts, Self<Facade>{self}, Reference<Base::Params&>{out});
}
KELPBOX_ALIAS(Kelpbox_1Analysis_1get_1consts, Kelpbox_1Experiment_1get_1consts);

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1query_1_1SWIG_10)
(JNIEnv* env, jclass, jlong self, jobject, jlong out, jobject) {
  call(env, &SiteFacade::query, Self<Facade>{self}, Reference<Base::Params&>{out});
}
KELPBOX_ALIAS(Kelpbox_1Experiment_1query, Kelpbox_1Experiment_1query_1_1SWIG_10);
KELPBOX_ALIAS(Kelpbox_1Analysis_1query, Kelpbox_1Experiment_1query_1_1SWIG_10);

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1profile)
(JNIEnv* env, jclass, jlong self, jobject, jlong in, jobject) {
  return call(env, &SiteFacade::profile, Self<Facade>{self}, Reference<Base::Params&>{in});
}
KELPBOX_ALIAS(Kelpbox_1Analysis_1profile, Kelpbox_1Experiment_1profile);

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1set_1_1SWIG_10)
(JNIEnv* env, jclass, jlong self, jobject, jlong in, jobject) {
  call(
      env, [](Experiment& experiment, Base::Params& params) { experiment.set(params); },
      Self<Facade>{self}, Reference<Base::Params&>{in});
}
KELPBOX_ALIAS(Kelpbox_1Experiment_1set, Kelpbox_1Experiment_1set_1_1SWIG_10);

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1paddle_1banks)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &Experiment::paddle_banks, Self<Facade>{self});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Experiment_1paddle_1bank_1size)
(JNIEnv* env, jclass, jlong self, jobject, jlong bank) {
  return call(env, &Experiment::paddle_bank_size, Self<Facade>{self}, Unsigned{bank});
}

KELPBOX_EXPORT(jstring, Kelpbox_1Experiment_1paddle_1bank_1info)
(JNIEnv* env, jclass, jlong self, jobject, jlong bank, jlong out, jobject) {
  return call(env, &Experiment::paddle_bank_info, Self<Facade>{self}, Unsigned{bank},
              Reference<Base::Params&>{out});
}

KELPBOX_EXPORT(void, Kelpbox_1Experiment_1paddle_1info)
(JNIEnv* env, jclass, jlong self, jobject, jlong bank, jlong paddle, jlong out, jobject) {
  call(env, &Experiment::paddle_info, Self<Facade>{self}, Unsigned{bank}, Unsigned{paddle},
       Reference<Base::Params&>{out});
}
