// Native: what a site fixes, its tunable values, and its banks of paddles.
#include <cstdint>
#include <string>
#include <vector>

#include "base/params.h"
#include "base/units.h"
#include "exported/host_array.h"
#include "exported/host_text.h"
#include "exported/safe_frame.h"
#include "facade/facade.h"

using namespace Kelpbox;
using Base::Params;

KELPBOX_SAFE(jstring, siteName)(JNIEnv* env, jclass, jlong experiment) {
  return safely(env, [&] { return host_text(env, object<Facade>(experiment).context_name()); });
}

KELPBOX_SAFE(jstring, siteText)(JNIEnv* env, jclass, jlong experiment) {
  return safely(env, [&] { return host_text(env, object<Facade>(experiment).context_string()); });
}

KELPBOX_SAFE(void, constants)(JNIEnv* env, jclass, jlong experiment, jlong params) {
  safely(env, [&] { object<Facade>(experiment).get_consts(object<Params>(params)); });
}

KELPBOX_SAFE(void, querySite)(JNIEnv* env, jclass, jlong experiment, jlong params) {
  safely(env, [&] { object<Facade>(experiment).SiteFacade::query(object<Params>(params)); });
}

KELPBOX_SAFE(void, setSite)(JNIEnv* env, jclass, jlong experiment, jlong params) {
  safely(env, [&] { object<Facade>(experiment).Experiment::set(object<Params>(params)); });
}

KELPBOX_SAFE(jdoubleArray, profile)(JNIEnv* env, jclass, jlong experiment, jlong params) {
  return safely(env, [&] {
    return host_array(env, object<Facade>(experiment).profile(object<Params>(params)));
  });
}

KELPBOX_SAFE(jint, banks)(JNIEnv* env, jclass, jlong experiment) {
  return safely(env, [&] { return static_cast<jint>(object<Facade>(experiment).paddle_banks()); });
}

KELPBOX_SAFE(jstring, bank)(JNIEnv* env, jclass, jlong experiment, jlong bank, jlong params) {
  return safely(env, [&] {
    return host_text(
        env,
        object<Facade>(experiment).paddle_bank_info(number(bank, "bank"), object<Params>(params)));
  });
}

KELPBOX_SAFE(jdoubleArray, paddles)(JNIEnv* env, jclass, jlong experiment, jlong bank) {
  return safely(env, [&] {
    Facade& facade = object<Facade>(experiment);
    const std::uint32_t index = number(bank, "bank");
    if (index >= facade.paddle_banks()) throw std::string("Paddle bank out of range");
    std::vector<double> values;
    const std::uint32_t paddles = facade.paddle_bank_size(index);
    for (std::uint32_t paddle = 0; paddle < paddles; ++paddle) {
      Params info;
      facade.paddle_info(index, paddle, info);
      values.push_back(info.read("paddle_num", Base::Category::unit));
      values.push_back(info.read("x", Base::Category::length));
      values.push_back(info.read("y", Base::Category::length));
      values.push_back(info.read("angle", Base::Category::angle));
    }
    return host_array(env, values);
  });
}
