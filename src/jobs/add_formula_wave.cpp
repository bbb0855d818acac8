// The waves that a job writes as formulas of frequency or of time.
#include <fmt/format.h>

#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "jobs/add_wave.h"
#include "jobs/bind_parameters.h"
#include "jobs/wave_steps.h"
#include "sea/piecewise_text.h"
#include "sea/spectrum.h"
#include "sea/time_exp.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

// The formulas of a part, with limits of a kind.
std::optional<WaveFormulas> parse(Preparation& p, const Part& part, const char* example,
                                  Base::UnitCategory limits) {
  const Value* text = formula_of(p, part, example);
  if (text == nullptr) return std::nullopt;
  WaveFormulas parsed{text->span, nullptr};
  const bool good = in_library(
      p, text->span, "",
      [&] {
        parsed.pieces =
            std::make_shared<Synthesis::Piecewise>(Synthesis::parse_component_text(text->text));
      },
      formula_label);
  if (!good) return std::nullopt;
  if (parsed.pieces->units().limit != limits) {
    const char* wanted = limits == Category::time ? "times" : "frequencies";
    p.faults.push_back({fmt::format("the limits of a `{}` formula are {}", part.kind, wanted),
                        text->span, fmt::format("such as `{}`", example)});
    return std::nullopt;
  }
  return parsed;
}

}  // namespace

void add_spectrum(Preparation& p, const WavePlace& wave) {
  const auto formulas = parse(p, wave.part, "0.2@Hz#0.0001@m2s#2@Hz", Category::frequency);
  if (!formulas) return;
  const std::string& text = wave.part.parameters.find("formula")->text;
  Declared declared;
  declared.own_keys = {"formula"};
  const bool good = in_library(
      p, formulas->place, "", [&] { Synthesis::Spectrum(wave.name, text).query(declared.params); },
      formula_label);
  if (!good) return;
  auto params = bind_parameters(wave.part, declared, p.faults);
  if (!params || !add_density(p, wave, *formulas, *params, {})) return;
  AskedWave& asked = wave.sea.asked.back();
  if (asked.density) {
    asked.peak = peak_of(asked);
  } else {
    asked.crest = integral_of(*formulas->pieces);
  }
  hand_over(p, wave, *params,
            [&] { return p.run.experiment.add_spectrum(wave.sea.id, wave.name, text); });
}

void add_time(Preparation& p, const WavePlace& wave) {
  const auto formulas = parse(p, wave.part, "0@s#0.1*cos(pi*$[s])@m#64@s", Category::time);
  if (!formulas) return;
  const std::string& text = wave.part.parameters.find("formula")->text;
  Declared declared;
  declared.own_keys = {"formula"};
  const bool good = in_library(
      p, formulas->place, "", [&] { Synthesis::TimeExp(wave.name, text).query(declared.params); },
      formula_label);
  if (!good) return;
  auto params = bind_parameters(wave.part, declared, p.faults);
  if (!params || !bind_formulas(p, *formulas, *params)) return;
  const double rate = params->read("rate", Category::frequency);
  if (!(rate > 0.0)) {
    p.faults.push_back({"`rate` must be above 0", span_of(wave.part, "rate"), ""});
    return;
  }
  if (!p.has_grid) return;
  const double repeat = p.run.experiment.repeat(p.run.definition).value();
  AskedWave asked;
  asked.kind = wave.part.kind;
  const bool evaluated = in_library(p, formulas->place, "", [&] {
    asked.variance = time_variance(*formulas->pieces, rate, repeat);
  });
  if (!evaluated) return;
  if (!std::isfinite(*asked.variance)) {
    p.faults.push_back({"`formula` is not finite at all times of the run", formulas->place, ""});
    return;
  }
  wave.sea.asked.push_back(std::move(asked));
  hand_over(p, wave, *params,
            [&] { return p.run.experiment.add_timeexp(wave.sea.id, wave.name, text); });
}

}  // namespace Jobs
