#include "jobs/add_wave.h"

#include <fmt/format.h>

#include <memory>
#include <utility>

#include "jobs/asked_density.h"
#include "jobs/failure.h"
#include "jobs/fallbacks.h"
#include "jobs/ready_sea.h"
#include "sea/piecewise_text.h"
#include "sea/single.h"
#include "sea/spectrum.h"
#include "sea/time_exp.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;
using Synthesis::Piecewise;

using Add = void (*)(Preparation&, const WavePlace&);

struct WaveKind {
  const char* name;
  Add add;
};

void add_single_wave(Preparation& p, const WavePlace& wave, Base::Params& params,
                     const std::string& kind) {
  AskedWave asked;
  asked.kind = kind;
  asked.lines.push_back(
      {params.read("f", Category::frequency), params.read("a", Category::length)});
  wave.sea.asked.push_back(std::move(asked));
  hand_over(p, wave, params, [&] { return p.run.experiment.add_single(wave.sea.id); });
}

void add_single(Preparation& p, const WavePlace& wave) {
  Declared declared;
  Synthesis::Single().query(declared.params);
  declared.fallbacks = fallbacks_of("single");
  auto params = bind_parameters(wave.part, declared, p.faults);
  if (params) add_single_wave(p, wave, *params, "single");
}

// The formulas of a wave, parsed and with the limits of a kind.
struct Parsed {
  const Value* text = nullptr;
  std::shared_ptr<Piecewise> formulas;
};

std::optional<Parsed> parse(Preparation& p, const Part& part, const char* example,
                            Base::UnitCategory limits) {
  const Value* text = formula_of(p, part, example);
  if (text == nullptr) return std::nullopt;
  Parsed parsed{text, nullptr};
  const bool good = in_library(p, text->span, "", [&] {
    parsed.formulas = std::make_shared<Piecewise>(Synthesis::parse_component_text(text->text));
  });
  if (!good) return std::nullopt;
  if (parsed.formulas->units().limit != limits) {
    const char* wanted = limits == Category::time ? "times" : "frequencies";
    p.faults.push_back({fmt::format("the limits of a `{}` formula are {}", part.kind, wanted),
                        text->span, fmt::format("such as `{}`", example)});
    return std::nullopt;
  }
  return parsed;
}

// Binds the formulas once more, for the asked wave.
bool bind_formulas(Preparation& p, Piecewise& formulas, const Span& place,
                   const Base::Params& params) {
  Base::Params unused;
  return in_library(p, place, "", [&] {
    formulas.bind_with_limits(params, unused);
    formulas.check_limits_rise();
  });
}

// The library fails to build a spectrum outside the run, without naming it.
bool lies_in_run(Preparation& p, const Piecewise& formulas, const Span& place) {
  if (!p.has_grid) return true;
  const Maths::RunData& run = p.run.experiment.repeat(p.run.definition);
  const double low = run.freq(run.min_harmonic());
  const double high = run.freq(run.max_harmonic());
  if (run.is_inrange(std::max(formulas.limits().front(), low)) &&
      run.is_inrange(std::min(formulas.limits().back(), high))) {
    return true;
  }
  p.faults.push_back(
      {fmt::format("the wave lies outside the run's harmonics, {:.4g} to {:.4g} Hz", low, high),
       place, ""});
  return false;
}

bool add_density(Preparation& p, const WavePlace& wave, const Parsed& parsed,
                 const Base::Params& params, OpenEnds ends) {
  const Span place = parsed.text != nullptr ? parsed.text->span : wave.part.span;
  AskedWave asked;
  if (!bind_formulas(p, *parsed.formulas, place, params) ||
      !lies_in_run(p, *parsed.formulas, place) ||
      !in_library(p, place, "", [&] { asked = asked_density(parsed.formulas, ends); })) {
    return false;
  }
  asked.kind = wave.part.kind;
  wave.sea.asked.push_back(std::move(asked));
  return true;
}

void add_spectrum(Preparation& p, const WavePlace& wave) {
  const auto parsed = parse(p, wave.part, "0.2@Hz#0.0001@m2s#2@Hz", Category::frequency);
  if (!parsed) return;
  Declared declared;
  declared.own_keys = {"formula"};
  if (!in_library(p, parsed->text->span, "", [&] { parsed->formulas->declare(declared.params); }))
    return;
  auto params = bind_parameters(wave.part, declared, p.faults);
  if (!params) return;
  if (!add_density(p, wave, *parsed, *params, {})) return;
  AskedWave& asked = wave.sea.asked.back();
  if (asked.density) {
    asked.peak = peak_of(asked);
  } else {
    asked.crest = integral_of(*parsed->formulas);
  }
  hand_over(p, wave, *params, [&] {
    return p.run.experiment.add_spectrum(wave.sea.id, wave.name, parsed->text->text);
  });
}

void add_time(Preparation& p, const WavePlace& wave) {
  const auto parsed = parse(p, wave.part, "0@s#0.1*cos(pi*$[s])@m#64@s", Category::time);
  if (!parsed) return;
  const std::string& text = parsed->text->text;
  Declared declared;
  declared.own_keys = {"formula"};
  if (!in_library(p, parsed->text->span, "",
                  [&] { Synthesis::TimeExp("", text).query(declared.params); }))
    return;
  auto params = bind_parameters(wave.part, declared, p.faults);
  if (!params || !bind_formulas(p, *parsed->formulas, parsed->text->span, *params)) return;
  const double rate = params->read("rate", Category::frequency);
  if (!(rate > 0.0)) {
    p.faults.push_back({"`rate` must be above 0", span_of(wave.part, "rate"), ""});
    return;
  }
  if (!p.has_grid) return;
  const double repeat = p.run.experiment.repeat(p.run.definition).value();
  AskedWave asked;
  asked.kind = wave.part.kind;
  if (!in_library(p, parsed->text->span, "",
                  [&] { asked.variance = time_variance(*parsed->formulas, rate, repeat); }))
    return;
  wave.sea.asked.push_back(std::move(asked));
  hand_over(p, wave, *params,
            [&] { return p.run.experiment.add_timeexp(wave.sea.id, wave.name, text); });
}

const WaveKind kinds[] = {
    {"single", add_single}, {"spectrum", add_spectrum}, {"time", add_time},
    {"record", add_record}, {"fronts", add_fronts},     {"table", add_table},
};

Declared declared_by(const ReadySea& sea) {
  Declared declared;
  for (const ReadyParameter& parameter : sea.parameters) {
    declared.params.declare(parameter.name, Base::resolve_units(parameter.units));
    declared.meanings[parameter.name] = parameter.meaning;
    if (parameter.fallback) declared.fallbacks[parameter.name] = *parameter.fallback;
    if (!parameter.required()) declared.optional.push_back(parameter.name);
  }
  if (sea.makes == ReadySea::Makes::single_wave) {
    Base::Params single;
    Synthesis::Single().query(single);
    for (const auto& [name, fallback] : fallbacks_of("single")) {
      if (declared.params.contains(name)) continue;
      declared.params.merge(*single.find(name));
      declared.fallbacks[name] = fallback;
    }
  }
  return declared;
}

ReadyContext ready_context(Preparation& p) {
  const Common::Context& site = p.run.experiment.context();
  ReadyContext context;
  context.min_freq = site.get(Common::Limit::min_freq);
  context.max_freq = site.get(Common::Limit::max_freq);
  context.g = site.get(Common::Limit::base_g);
  context.depth = site.tank_config().paddle_depth;
  if (p.has_grid) context.repeat = p.run.experiment.repeat(p.run.definition).value();
  return context;
}

void add_ready(Preparation& p, const WavePlace& wave, const ReadySea& ready) {
  auto params = bind_parameters(wave.part, declared_by(ready), p.faults);
  if (!params || !p.has_site) return;
  Parsed parsed;
  const bool is_single = ready.makes == ReadySea::Makes::single_wave;
  try {
    ready.complete(*params, ready_context(p));
    if (!is_single) {
      parsed.formulas = std::make_shared<Piecewise>(Synthesis::parse_component_text(ready.formula));
    }
  } catch (...) {
    return add_refusal(p, wave.part, message_of_current());
  }
  if (is_single) return add_single_wave(p, wave, *params, wave.part.kind);

  const bool whole_axis = !ready.ends_at_limits;
  const OpenEnds ends{whole_axis && wave.part.parameters.find("f_min") == nullptr,
                      whole_axis && wave.part.parameters.find("f_max") == nullptr};
  if (!add_density(p, wave, parsed, *params, ends)) return;
  AskedWave& asked = wave.sea.asked.back();
  asked.peak = ready.peak(*params);
  // The crest is that of the run's harmonics, and the integral that of the density.
  if (params->contains("crest")) asked.crest = params->read("crest", Category::length);
  hand_over(p, wave, *params,
            [&] { return p.run.experiment.add_spectrum(wave.sea.id, wave.name, ready.formula); });
}

}  // namespace

std::vector<std::string> wave_kinds() {
  std::vector<std::string> names;
  for (const WaveKind& kind : kinds) names.emplace_back(kind.name);
  for (const ReadySea& sea : ready_seas()) names.push_back(sea.name);
  return names;
}

std::string wave_name(const std::string& sea, std::size_t index) {
  return fmt::format("{}, wave {}", sea, index + 1);
}

void add_wave(Preparation& p, const Part& part, BuiltSea& sea, std::size_t index) {
  if (part.kind.empty()) return;  // reported when the job was read
  const WavePlace wave{part, sea, wave_name(sea.name, index)};
  for (const WaveKind& kind : kinds) {
    if (part.kind == kind.name) return kind.add(p, wave);
  }
  if (const ReadySea* ready = find_ready_sea(part.kind)) return add_ready(p, wave, *ready);
  p.faults.push_back({fmt::format("unknown kind of wave `{}`", part.kind), part.kind_span,
                      advice(part.kind, wave_kinds())});
}

void hand_over(Preparation& p, const WavePlace& wave, Base::Params& params,
               const std::function<std::uint32_t()>& add) {
  if (!p.has_site) return;
  const std::string title = title_in_sea(wave.part, wave.sea.name);
  std::uint32_t id = 0;
  if (!in_library(p, wave.part.span, title, [&] { id = add(); })) return;
  set_with_remarks(p, wave.part, title, params,
                   [&](Base::Params& in) { p.run.experiment.set(id, in); });
}

const Value* formula_of(Preparation& p, const Part& part, const std::string& example) {
  const Value* formula = part.parameters.find("formula");
  if (formula == nullptr) {
    p.faults.push_back({fmt::format("`formula` is missing in {}", part.title), part.span,
                        fmt::format("such as \"{}\"", example)});
    return nullptr;
  }
  if (formula->kind != Value::Kind::text) {
    p.faults.push_back(
        {"`formula` is a text", formula->span, fmt::format("such as \"{}\"", example)});
    return nullptr;
  }
  return formula;
}

}  // namespace Jobs
