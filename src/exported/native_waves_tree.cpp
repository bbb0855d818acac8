// Native: the tree of definitions, specifications, components and modifiers.
#include <string>
#include <vector>

#include "base/units.h"
#include "base/vector.h"
#include "exported/host_array.h"
#include "exported/host_text.h"
#include "exported/result.h"
#include "exported/safe_frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

namespace {

// Four numbers for each front: frequency, amplitude, angle, phase.
Synthesis::DispFronts fronts_of(const std::vector<double>& values) {
  if (values.size() % 4 != 0) throw std::string("The values of a front are incomplete");
  Synthesis::DispFronts fronts;
  fronts.reserve(values.size() / 4);
  for (std::size_t i = 0; i < values.size(); i += 4) {
    fronts.emplace_back(values[i], values[i + 1], values[i + 2], values[i + 3]);
  }
  return fronts;
}

}  // namespace

KELPBOX_SAFE(jlong, addDefinition)(JNIEnv* env, jclass, jlong experiment, jbyteArray name) {
  return safely(env, [&]() -> jlong {
    return object<Facade>(experiment).add_definition(text_of(env, name));
  });
}

KELPBOX_SAFE(jlong, addSpecification)(JNIEnv* env, jclass, jlong experiment, jlong definition) {
  return safely(
      env, [&]() -> jlong { return object<Facade>(experiment).add_specification(id(definition)); });
}

KELPBOX_SAFE(jlong, addFronts)
(JNIEnv* env, jclass, jlong experiment, jlong specification, jdoubleArray fronts) {
  return safely(env, [&]() -> jlong {
    return object<Facade>(experiment)
        .add_fronts(id(specification), fronts_of(values_of<double>(env, fronts)));
  });
}

KELPBOX_SAFE(jlong, addSingle)(JNIEnv* env, jclass, jlong experiment, jlong specification) {
  return safely(
      env, [&]() -> jlong { return object<Facade>(experiment).add_single(id(specification)); });
}

KELPBOX_SAFE(jlong, addSpectrum)
(JNIEnv* env, jclass, jlong experiment, jlong specification, jbyteArray name, jbyteArray text) {
  return safely(env, [&]() -> jlong {
    return object<Facade>(experiment)
        .add_spectrum(id(specification), text_of(env, name), text_of(env, text));
  });
}

KELPBOX_SAFE(jlong, addTimeExpression)
(JNIEnv* env, jclass, jlong experiment, jlong specification, jbyteArray name, jbyteArray text) {
  return safely(env, [&]() -> jlong {
    return object<Facade>(experiment)
        .add_timeexp(id(specification), text_of(env, name), text_of(env, text));
  });
}

KELPBOX_SAFE(jlong, addTimeSeries)
(JNIEnv* env, jclass, jlong experiment, jlong specification, jlong vector) {
  return safely(env, [&]() -> jlong {
    return object<Facade>(experiment)
        .add_timeseries(id(specification), object<Base::Vector>(vector));
  });
}

KELPBOX_SAFE(jlong, addModifier)
(JNIEnv* env, jclass, jlong experiment, jlong specification, jbyteArray type, jbyteArray text) {
  return safely(env, [&]() -> jlong {
    return object<Facade>(experiment)
        .add_modifier(id(specification), text_of(env, type), text_of(env, text));
  });
}

KELPBOX_SAFE(jlong, newVector)
(JNIEnv* env, jclass, jbyteArray label, jbyteArray units, jdoubleArray samples) {
  return safely(env, [&] {
    const Base::Units resolved = Base::resolve_units(text_of(env, units));
    return handle_of(
        new Base::Vector(text_of(env, label), resolved, values_of<double>(env, samples)));
  });
}

KELPBOX_SAFE(void, queryItem)(JNIEnv* env, jclass, jlong experiment, jlong item, jlong params) {
  safely(env, [&] {
    object<Facade>(experiment).Experiment::query(id(item), object<Base::Params>(params));
  });
}

KELPBOX_SAFE(void, setItem)(JNIEnv* env, jclass, jlong experiment, jlong item, jlong params) {
  safely(env, [&] {
    object<Facade>(experiment).Experiment::set(id(item), object<Base::Params>(params));
  });
}

KELPBOX_SAFE(void, remove)(JNIEnv* env, jclass, jlong experiment, jlong item) {
  safely(env, [&] { object<Facade>(experiment).remove(id(item)); });
}

KELPBOX_SAFE(void, clear)(JNIEnv* env, jclass, jlong experiment) {
  safely(env, [&] { object<Facade>(experiment).Experiment::clear(); });
}

KELPBOX_SAFE(void, formulaParameters)(JNIEnv* env, jclass, jbyteArray text, jlong params) {
  safely(env, [&] { Experiment::get_params(text_of(env, text), object<Base::Params>(params)); });
}
