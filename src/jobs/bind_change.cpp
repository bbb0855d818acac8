#include "jobs/bind_change.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/constants.h"
#include "jobs/bind_parameters.h"
#include "jobs/change_kinds.h"
#include "jobs/fallbacks.h"
#include "jobs/request_limits.h"
#include "maths/angle.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

std::string radians(double angle) { return fmt::format("{:.17g} rad", angle); }

// The limits of AngleSpread: those of the site, or all directions that it can draw from.
void add_angle_limits(Preparation& p, const Part& part, Declared& declared) {
  double low = 0.0;
  double high = 0.0;
  if (p.has_site) {
    const Common::Context& site = p.run.experiment.context();
    low = site.get(Common::Limit::min_angle);
    high = site.get(Common::Limit::max_angle);
  }
  if (low == high) {
    double mean = 0.0;
    Diagnostics ignored;  // a bad angle is reported where it is bound
    const Value* angle = part.parameters.find("angle");
    const Base::Quantity wanted(0.0, Category::angle);
    if (angle != nullptr) {
      if (const auto bound = bind_value("angle", *angle, wanted, ignored)) {
        mean = bound->get(Category::angle);
      }
    }
    // The library draws from just less than half a turn on either side.
    const double reach = Base::Pi - 0.0002;
    low = mean - reach;
    high = mean + reach;
  }
  declared.fallbacks["min_angle"] = radians(low);
  declared.fallbacks["max_angle"] = radians(high);
}

Declared declared_by(Preparation& p, const Change& change, Synthesis::Modifier& modifier,
                     const ReadyChange* ready) {
  const Part& part = change.part;
  Declared declared;
  modifier.query(declared.params);
  declared.fallbacks = fallbacks_of(change.modifier);
  if (declared.params.contains("ran_gen") && part.parameters.find("seed") != nullptr) {
    declared.fallbacks["ran_gen"] = "FullRandom";
  }
  if (change.modifier == "AngleSpread") add_angle_limits(p, part, declared);
  if (ready == nullptr) {
    if (takes_formula(change.modifier)) declared.own_keys = {"formula"};
    return declared;
  }
  for (const ReadyParameter& parameter : ready->parameters) {
    declared.meanings[parameter.name] = parameter.meaning;
  }
  return declared;
}

// What a ready change fixes is no parameter of the job.
Declared without_fixed(const Declared& declared, const ReadyChange& ready) {
  Declared open = declared;
  open.params = {};
  for (const Base::Params::Entry& entry : declared.params.entries()) {
    const bool fixed = std::any_of(ready.fixed.begin(), ready.fixed.end(),
                                   [&](const auto& value) { return value.first == entry.first; });
    if (!fixed) open.params.merge(entry);
  }
  return open;
}

void add_fixed(Preparation& p, const Change& change, const Declared& declared,
               const ReadyChange& ready, Base::Params& params) {
  for (const auto& [name, text] : ready.fixed) {
    Value value;
    value.kind = Value::Kind::text;
    value.text = text;
    value.span = change.part.span;
    params.merge({name, bind_value(name, value, declared.params.at(name), p.faults).value()});
  }
}

// Beyond the limits of the site, a range through 180 deg is none that was meant.
bool limits_rise(Preparation& p, const Change& change, const Base::Params& params) {
  if (!p.has_site) return true;
  const Common::Context& site = p.run.experiment.context();
  if (site.get(Common::Limit::min_angle) == site.get(Common::Limit::max_angle)) return true;
  const double low = params.read("min_angle", Category::angle);
  const double high = params.read("max_angle", Category::angle);
  if (high >= low) return true;
  const bool has_high = change.part.parameters.find("max_angle") != nullptr;
  p.faults.push_back({"`max_angle` must not be below `min_angle`",
                      span_of(change.part, has_high ? "max_angle" : "min_angle"), ""});
  return false;
}

// The library refuses such a mean too, without naming it.
bool is_between_limits(Preparation& p, const Change& change, const Base::Params& params) {
  const double mean = Maths::wrap_angle(params.read("angle", Category::angle));
  const double low = Maths::wrap_angle(params.read("min_angle", Category::angle));
  const double high = Maths::wrap_angle(params.read("max_angle", Category::angle));
  const bool through_pi = high <= low;
  if (through_pi || (mean >= low && mean <= high)) return true;
  const double degree = Base::Pi / 180.0;
  p.faults.push_back(
      {fmt::format("`angle` is not between {:.6g} and {:.6g} deg", low / degree, high / degree),
       span_of(change.part, "angle"), "the limits of the site, or `min_angle` and `max_angle`"});
  return false;
}

// The library divides by the step, and refuses some steps only when the waves are built.
bool is_usable_step(Preparation& p, const Change& change, const Base::Params& params) {
  const double degree = Base::Pi / 180.0;
  const double step = params.read("delta_angle", Category::angle);
  if (step > 0.999e-3 * degree && step < 360.001 * degree) return true;
  p.faults.push_back({"`delta_angle` must be between 0.001 and 360 deg",
                      span_of(change.part, "delta_angle"), "the step between two directions"});
  return false;
}

// What the library finds out about steps and rates only when the waves are built, and without the
// place.
bool numbers_are_usable(Preparation& p, const Change& change, const Base::Params& params) {
  if (change.modifier == "AngleSweep") return is_usable_step(p, change, params);
  if (change.modifier != "PhaseWNoise") return true;
  return require_samples(p, params.read("rate", Category::frequency), span_of(change.part, "rate"));
}

std::optional<Base::Params> bind_declared(Preparation& p, const Change& change,
                                          Synthesis::Modifier& modifier, const ReadyChange* ready) {
  Declared declared;
  if (!in_library(p, change.formula_span, "",
                  [&] { declared = declared_by(p, change, modifier, ready); })) {
    return std::nullopt;
  }
  if (ready == nullptr) return bind_parameters(change.part, declared, p.faults);
  auto params = bind_parameters(change.part, without_fixed(declared, *ready), p.faults);
  if (!params) return std::nullopt;
  try {
    check_values(ready->parameters, *params);
  } catch (const std::string& message) {
    add_refusal(p, change.part, message);
    return std::nullopt;
  }
  add_fixed(p, change, declared, *ready, *params);
  return params;
}

}  // namespace

std::optional<Base::Params> bind_change(Preparation& p, const Change& change,
                                        Synthesis::Modifier& modifier, const ReadyChange* ready) {
  auto params = bind_declared(p, change, modifier, ready);
  const bool is_spread = change.modifier == "AngleSpread";
  if (params && is_spread &&
      (!limits_rise(p, change, *params) || !is_between_limits(p, change, *params))) {
    return std::nullopt;
  }
  if (params && !numbers_are_usable(p, change, *params)) return std::nullopt;
  return params;
}

}  // namespace Jobs
