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

KELPBOX_SAFE(jdoubleArray, evaluate)
(JNIEnv* env, jclass, jlong analysis, jlong set, jint kind, jlong settings, jlong results) {
  return safely(env, [&] {
    Facade& facade = object<Facade>(analysis);
    const auto& given = object<const Base::Params>(settings);
    auto& out = object<Base::Params>(results);
    // A process takes the tank that the last set of the site has asked for.
    Base::Params site;
    facade.SiteFacade::query(site);
    facade.Analysis::set(site);
    const std::uint32_t process = facade.create_process(id(set), number(kind, "kind"));
    facade.get_results(process, given, out);
    return host_array(env, facade.get_data(process, Base::Params()));
  });
}
