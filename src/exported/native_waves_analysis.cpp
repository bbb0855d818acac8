// Native: series, sets and results of analyses.
#include <cstdint>
#include <vector>

#include "exported/host_array.h"
#include "exported/safe_frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

KELPBOX_SAFE(jlong, addSeries)
(JNIEnv* env, jclass, jlong analysis, jlong params, jdoubleArray samples) {
  return safely(env, [&]() -> jlong {
    return object<Facade>(analysis).add_series(object<Base::Params>(params),
                                               values_of<double>(env, samples));
  });
}

KELPBOX_SAFE(jlong, createSet)
(JNIEnv* env, jclass, jlong analysis, jlong params, jintArray series) {
  return safely(env, [&]() -> jlong {
    const std::vector<jint> given = values_of<jint>(env, series);
    const std::vector<std::uint32_t> ids(given.begin(), given.end());
    return object<Facade>(analysis).create_set(object<Base::Params>(params), ids);
  });
}

KELPBOX_SAFE(jdoubleArray, data)
(JNIEnv* env, jclass, jlong analysis, jlong process, jlong params) {
  return safely(env, [&] {
    return host_array(
        env, object<Facade>(analysis).get_data(id(process), object<const Base::Params>(params)));
  });
}
