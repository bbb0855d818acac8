// Native: the results of runs, copied into arrays.
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "exported/host_array.h"
#include "exported/host_text.h"
#include "exported/safe_frame.h"
#include "facade/facade.h"

using namespace Kelpbox;

namespace {

using Values = std::array<double, 4>;

Values values_of_front(const Synthesis::Front& front) {
  return {front.freq, front.amp, front.angle, front.phase};
}
Values values_of_front(const Maths::TransferFront& front) {
  return {static_cast<double>(front.harmonic), front.amp, front.angle, front.phase};
}

// Some fronts at a time, since Java has another order of their values.
template <typename Front>
jdoubleArray host_fronts(JNIEnv* env, const std::vector<Front>& fronts) {
  constexpr std::size_t most = 256;
  static_assert(sizeof(Values) == 4 * sizeof(double));
  std::array<Values, most> part;
  const jdoubleArray array = not_pending(env->NewDoubleArray(array_length(4 * fronts.size())));
  for (std::size_t first = 0; first < fronts.size(); first += most) {
    const std::size_t count = std::min(most, fronts.size() - first);
    for (std::size_t i = 0; i < count; ++i) part[i] = values_of_front(fronts[first + i]);
    env->SetDoubleArrayRegion(array, static_cast<jsize>(4 * first), static_cast<jsize>(4 * count),
                              part.front().data());
  }
  return array;
}

}  // namespace

KELPBOX_SAFE(jdoubleArray, fronts)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jboolean merged) {
  return safely(env, [&] {
    return host_fronts(env, object<Facade>(experiment).fronts(id(definition), merged != JNI_FALSE));
  });
}

KELPBOX_SAFE(jdoubleArray, transferFronts)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong set) {
  return safely(env, [&] {
    const std::uint32_t index = number(set, "set");
    return host_fronts(env, object<Facade>(experiment).fronts(id(definition), index));
  });
}

KELPBOX_SAFE(jobjectArray, messages)(JNIEnv* env, jclass, jlong experiment, jlong definition) {
  return safely(
      env, [&] { return host_texts(env, object<Facade>(experiment).messages(id(definition))); });
}

KELPBOX_SAFE(jdoubleArray, signal)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong bank, jlong paddle) {
  return safely(env, [&] {
    return host_array(env, object<Facade>(experiment)
                               .paddle_motion_data(id(definition), number(bank, "bank"),
                                                   number(paddle, "paddle")));
  });
}

KELPBOX_SAFE(jobjectArray, signals)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong bank) {
  return safely(env, [&] {
    Facade& facade = object<Facade>(experiment);
    const std::uint32_t index = number(bank, "bank");
    if (index >= facade.paddle_banks()) throw std::string("Paddle bank out of range");
    const std::uint32_t paddles = facade.paddle_bank_size(index);
    const jobjectArray array = host_objects(env, paddles, "[D");
    for (std::uint32_t paddle = 0; paddle < paddles; ++paddle) {
      const std::vector<double>& samples = facade.paddle_motion_data(id(definition), index, paddle);
      set_object(env, array, paddle, host_array(env, samples));
    }
    return array;
  });
}

KELPBOX_SAFE(jdoubleArray, twoD)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jint which) {
  return safely(env, [&] {
    return host_array(env, object<Facade>(experiment).twod_data(id(definition), which));
  });
}

KELPBOX_SAFE(jshortArray, frame)
(JNIEnv* env, jclass, jlong experiment, jlong definition, jlong index) {
  return safely(env, [&] {
    return host_array(
        env, object<Facade>(experiment).animate_data(id(definition), number(index, "frame")));
  });
}
