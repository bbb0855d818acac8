// Analysis: series, sets and processes. native_site.cpp has its creation, its deletion and its
// operations on the site, which it shares with Experiment.
#include "exported/frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

KELPBOX_EXPORT(void, Kelpbox_1Analysis_1set)
(JNIEnv* env, jclass, jlong self, jobject, jlong in, jobject) {
  call(env, &Kelpbox::Analysis::set, Self<Facade>{self}, Reference<Base::Params&>{in});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Analysis_1add_1series)
(JNIEnv* env, jclass, jlong self, jobject, jlong params, jobject, jlong samples, jobject) {
  return call(env, &Kelpbox::Analysis::add_series, Self<Facade>{self},
              Reference<const Base::Params&>{params},
              Reference<const std::vector<double>&>{samples});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Analysis_1create_1set)
(JNIEnv* env, jclass, jlong self, jobject, jlong params, jobject, jlong series, jobject) {
  return call(env, &Kelpbox::Analysis::create_set, Self<Facade>{self},
              Reference<const Base::Params&>{params},
              Reference<const std::vector<unsigned int>&>{series});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Analysis_1create_1process)
(JNIEnv* env, jclass, jlong self, jobject, jlong set, jlong kind) {
  return call(env, &Kelpbox::Analysis::create_process, Self<Facade>{self}, Unsigned{set},
              Unsigned{kind});
}

KELPBOX_EXPORT(void, Kelpbox_1Analysis_1get_1results)
(JNIEnv* env, jclass, jlong self, jobject, jlong process, jlong settings, jobject, jlong out,
 jobject) {
  call(env, &Kelpbox::Analysis::get_results, Self<Facade>{self}, Unsigned{process},
       Reference<const Base::Params&>{settings}, Reference<Base::Params&>{out});
}

KELPBOX_EXPORT(jlong, Kelpbox_1Analysis_1get_1data)
(JNIEnv* env, jclass, jlong self, jobject, jlong process, jlong params, jobject) {
  return call(env, &Kelpbox::Analysis::get_data, Self<Facade>{self}, Unsigned{process},
              Reference<const Base::Params&>{params});
}

KELPBOX_EXPORT(void, Kelpbox_1Analysis_1clear)(JNIEnv* env, jclass, jlong self, jobject) {
  call(env, &Kelpbox::Analysis::clear, Self<Facade>{self});
}
