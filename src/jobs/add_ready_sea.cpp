// The waves that a job names: their formulas and computed parameters come from the list of ready
// seas.
#include <memory>
#include <utility>

#include "jobs/add_wave.h"
#include "jobs/bind_parameters.h"
#include "jobs/failure.h"
#include "jobs/ready_sea.h"
#include "jobs/wave_steps.h"
#include "sea/piecewise_text.h"

namespace Jobs {
namespace {

Declared declared_by(const ReadySea& sea) {
  Declared declared;
  for (const ReadyParameter& parameter : sea.parameters) {
    declared.params.declare(parameter.name, Base::resolve_units(parameter.units));
    declared.meanings[parameter.name] = parameter.meaning;
    if (parameter.fallback) declared.fallbacks[parameter.name] = *parameter.fallback;
    if (!parameter.required()) declared.optional.push_back(parameter.name);
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

}  // namespace

void add_ready_sea(Preparation& p, const WavePlace& wave, const ReadySea& ready) {
  auto params = bind_parameters(wave.part, declared_by(ready), p.faults);
  if (!params || !p.has_site) return;
  WaveFormulas formulas{wave.part.span, nullptr};
  const bool is_single = ready.makes == ReadySea::Makes::single_wave;
  try {
    ready.complete(*params, ready_context(p));
    if (!is_single) {
      formulas.pieces =
          std::make_shared<Synthesis::Piecewise>(Synthesis::parse_component_text(ready.formula));
    }
  } catch (...) {
    return add_refusal(p, wave.part, message_of_current());
  }
  if (is_single) return add_single_wave(p, wave, *params);

  const bool whole_axis = !ready.ends_at_limits;
  const OpenEnds ends{whole_axis && wave.part.parameters.find("f_min") == nullptr,
                      whole_axis && wave.part.parameters.find("f_max") == nullptr};
  if (!add_density(p, wave, formulas, *params, ends)) return;
  AskedWave& asked = wave.sea.asked.back();
  asked.peak = ready.peak(*params);
  // The crest is that of the run's harmonics, and the integral that of the density.
  if (params->contains("crest")) asked.crest = params->read("crest", Base::Category::length);
  hand_over(p, wave, *params,
            [&] { return p.run.experiment.add_spectrum(wave.sea.id, wave.name, ready.formula); });
}

}  // namespace Jobs
