#include "jobs/add_change.h"

#include <fmt/format.h>

#include <array>
#include <memory>
#include <utility>

#include "base/constants.h"
#include "base/enumerations.h"
#include "facade/wave_modifiers.h"
#include "jobs/add_wave.h"
#include "jobs/bind_parameters.h"
#include "jobs/fallbacks.h"
#include "jobs/ready_sea.h"
#include "maths/angle.h"
#include "sea/modifier.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;
using ModifierPtr = std::shared_ptr<Synthesis::Modifier>;

// A change of a job as the library takes it.
struct Change {
  const Part& part;
  std::string modifier;  // "AngleSpread"
  std::string formula;
  Span formula_span;
};

// The library's modifiers. Its enumeration also has names without a class.
std::vector<std::string> modifier_names() {
  std::vector<std::string> names;
  for (const std::string& name : members_of(Base::Quantity(Base::enum_of_type("WaveMod")))) {
    try {
      Kelpbox::make_modifier(Base::make_enum("WaveMod", name), "");
      names.push_back(name);
    } catch (const std::string&) {
      continue;
    }
  }
  return names;
}

const char* formula_example(const std::string& modifier) {
  if (modifier == "AngleChange" || modifier == "PhaseChange") return "10@deg";
  return modifier == "AngleSpread" ? "10" : "1";
}

bool takes_formula(const std::string& modifier) {
  return modifier != "PhaseRandom" && modifier != "PhaseWNoise";
}

std::string slot_name(Synthesis::Modifier::Slot slot) {
  static constexpr std::array<const char*, Synthesis::Modifier::slot_count> names = {
      "amplitude", "direction", "phase"};
  return names[slot];
}

std::string advice_for_kind(const std::string& kind) {
  if (kind == "AngleSet") return "use `AngleChange` with set = true";
  if (kind == "PhaseSet") return "use `PhaseChange` with set = true";
  return advice(kind, change_kinds());
}

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
    if (parameter.fallback) declared.fallbacks[parameter.name] = *parameter.fallback;
  }
  return declared;
}

// What a ready change fixes is no parameter of the job.
Declared without_fixed(const Declared& declared, const ReadyChange& ready) {
  Declared open = declared;
  open.params = {};
  for (const Base::Params::Entry& entry : declared.params.entries()) {
    bool fixed = false;
    for (const auto& [name, value] : ready.fixed) fixed = fixed || name == entry.first;
    if (!fixed) open.params.merge(entry);
  }
  return open;
}

bool add_fixed(Preparation& p, const Change& change, const Declared& declared,
               const ReadyChange& ready, Base::Params& params) {
  const std::size_t before = p.faults.size();
  for (const auto& [name, text] : ready.fixed) {
    Value value;
    value.kind = Value::Kind::text;
    value.text = text;
    value.span = change.part.span;
    const auto bound = bind_value(name, value, declared.params.at(name), p.faults);
    if (bound) params.merge({name, *bound});
  }
  return p.faults.size() == before;
}

std::optional<Base::Params> bind_change(Preparation& p, const Change& change,
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
  if (!add_fixed(p, change, declared, *ready, *params)) return std::nullopt;
  return params;
}

void remark_on_seed(Preparation& p, const Part& part, const std::string& title,
                    const Base::Params& params) {
  if (part.parameters.find("seed") == nullptr || !params.contains("ran_gen")) return;
  if (params.read_enum("ran_gen", Base::EnumType::RanGen) != Base::RanGen::Default) return;
  p.run.remarks.push_back(title + ": the seed has no effect with ran_gen = \"Default\"");
}

// The modifier's own value, after a `set` with the same parameters.
bool keep_gain(Preparation& p, const Change& change, const ModifierPtr& modifier,
               const Base::Params& params, BuiltSea& sea) {
  Base::Params copy = params;
  if (!in_library(p, change.formula_span, "", [&] {
        modifier->set(copy);
        modifier->value(1.0);
      })) {
    return false;
  }
  sea.gain = [modifier](double frequency) { return modifier->value(frequency); };
  return true;
}

// The law as the library narrows it.
void keep_spread(Preparation& p, const Change& change, const ModifierPtr& modifier,
                 const Base::Params& params, BuiltSea& sea) {
  Base::Params narrowed = params;
  // A refusal is reported when the library's own modifier is set.
  Diagnostics ignored;
  Preparation trial{p.run, ignored};
  if (!in_library(trial, change.formula_span, "", [&] { modifier->set(narrowed); })) return;
  SpreadLaw law;
  law.power = [modifier](double frequency) { return modifier->value(frequency); };
  law.half_angle =
      narrowed.read_enum("function", Base::EnumType::SpreadFunc) == Base::SpreadFunc::Cos2S;
  law.mean = narrowed.read("angle", Category::angle);
  law.below = Maths::wrap_angle(law.mean - narrowed.read("min_angle", Category::angle));
  law.above = Maths::wrap_angle(narrowed.read("max_angle", Category::angle) - law.mean);
  sea.spread = law;
}

std::optional<Change> as_modifier(Preparation& p, const Part& part, const ReadyChange* ready) {
  if (ready != nullptr) return Change{part, ready->modifier, ready->formula, part.span};
  Change change{part, part.kind, "", part.span};
  if (takes_formula(part.kind)) {
    const Value* formula = formula_of(p, part, formula_example(part.kind));
    if (formula == nullptr) return std::nullopt;
    change.formula = formula->text;
    change.formula_span = formula->span;
  }
  return change;
}

using Taken = std::array<const Part*, Synthesis::Modifier::slot_count>;

void add_change(Preparation& p, const Part& part, BuiltSea& sea, Taken& taken) {
  if (part.kind.empty()) return;  // reported when the job was read
  const ReadyChange* ready = find_ready_change(part.kind);
  const std::vector<std::string> names = modifier_names();
  if (ready == nullptr && std::find(names.begin(), names.end(), part.kind) == names.end()) {
    p.faults.push_back({fmt::format("unknown kind of change `{}`", part.kind), part.kind_span,
                        advice_for_kind(part.kind)});
    return;
  }
  const auto change = as_modifier(p, part, ready);
  if (!change) return;
  ModifierPtr modifier;
  if (!in_library(p, change->formula_span, "", [&] {
        modifier =
            Kelpbox::make_modifier(Base::make_enum("WaveMod", change->modifier), change->formula);
      })) {
    return;
  }
  const Part*& first = taken[modifier->slot()];
  const bool is_second = first != nullptr;
  if (is_second) {
    p.faults.push_back(
        {fmt::format("a second change of {} in {}", slot_name(modifier->slot()), sea.name),
         part.span, fmt::format("the first is `{}`", first->kind)});
  } else {
    first = &part;
  }
  auto params = bind_change(p, *change, *modifier, ready);
  if (!params || is_second) return;
  const std::string title = title_in_sea(part, sea.name);
  remark_on_seed(p, part, title, *params);
  const bool is_gain = change->modifier == "GainAdjust";
  if (is_gain && !keep_gain(p, *change, modifier, *params, sea)) return;
  if (change->modifier == "AngleSpread") keep_spread(p, *change, modifier, *params, sea);
  if (!p.has_site) return;
  std::uint32_t id = 0;
  if (!in_library(p, change->formula_span, title, [&] {
        id = p.run.experiment.add_modifier(sea.id, change->modifier, change->formula);
      })) {
    return;
  }
  set_with_remarks(p, part, title, *params,
                   [&](Base::Params& in) { p.run.experiment.set(id, in); });
}

}  // namespace

std::vector<std::string> change_kinds() {
  std::vector<std::string> names = modifier_names();
  for (const ReadyChange& change : ready_changes()) names.push_back(change.name);
  return names;
}

bool is_about(const std::string& message, const Part& change) {
  const ReadyChange* ready = find_ready_change(change.kind);
  const std::string modifier = ready != nullptr ? ready->modifier : change.kind;
  static const std::pair<const char*, const char*> beginnings[] = {
      {"AngleSweepModifier::", "AngleSweep"},
      {"Sweep has zero output", "AngleSweep"},
      {"AngleSpreadModifier::", "AngleSpread"},
      {"Spreading power::", "AngleSpread"},
      {"rate::", "PhaseWNoise"},
  };
  for (const auto& [beginning, name] : beginnings) {
    if (modifier == name && message.starts_with(beginning)) return true;
  }
  return false;
}

void add_changes(Preparation& p, const std::vector<Part>& changes, BuiltSea& sea) {
  Taken taken{};
  for (const Part& part : changes) add_change(p, part, sea, taken);
}

}  // namespace Jobs
