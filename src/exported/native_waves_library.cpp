// Native: the library, and the creation and the site of experiments and analyses.
#include <string>

#include "base/compose.h"
#include "base/streams.h"
#include "exported/host_array.h"
#include "exported/host_text.h"
#include "exported/result.h"
#include "exported/safe_frame.h"
#include "facade/facade.h"
#include "script/division.h"

using namespace Kelpbox;

KELPBOX_SAFE(jstring, version)(JNIEnv* env, jclass) {
  return safely(env, [&] { return host_text(env, KELPBOX_VERSION); });
}

KELPBOX_SAFE(void, captureOutput)(JNIEnv* env, jclass, jboolean on) {
  safely(env, [&] { Base::collect_output(on != JNI_FALSE); });
}

KELPBOX_SAFE(jstring, takeOutput)(JNIEnv* env, jclass) {
  return safely(env, [&]() -> jstring {
    const std::string lines = Base::take_output();
    return lines.empty() ? nullptr : host_text(env, lines);
  });
}

KELPBOX_SAFE(jlong, newExperiment)(JNIEnv* env, jclass, jbyteArray name) {
  return safely(env, [&] { return handle_of(new Facade(text_of(env, name))); });
}

KELPBOX_SAFE(void, initialise)(JNIEnv* env, jclass, jlong experiment, jbyteArray file) {
  safely(env, [&] {
    const Script::DivisionScope divisions;
    object<Facade>(experiment).initialise(text_of(env, file));
  });
}

KELPBOX_SAFE(void, setWorkers)(JNIEnv* env, jclass, jlong experiment, jint workers) {
  safely(env, [&] {
    if (workers < 1) throw Base::compose("The number of workers is ", workers, ", not at least 1");
    object<Facade>(experiment).set_workers(static_cast<unsigned>(workers));
  });
}
