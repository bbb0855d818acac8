#include "jobs/wave_steps.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Jobs {
namespace {

namespace Category = Base::Category;

// Each character may become a step of the formula, which takes a hundred bytes.
constexpr std::size_t longest_formula = 100'000;

// The library fails to build a spectrum outside the run, without naming it.
bool lies_in_run(Preparation& p, const Synthesis::Piecewise& formulas, const Span& place) {
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

}  // namespace

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
  if (formula->text.find_first_not_of(" \t\r\n") == std::string::npos) {
    p.faults.push_back(
        {"`formula` is empty", formula->span, fmt::format("such as \"{}\"", example)});
    return nullptr;
  }
  if (formula->text.size() > longest_formula) {
    p.faults.push_back({fmt::format("the formula has {} characters", formula->text.size()),
                        formula->span,
                        fmt::format("at most {} can be read; tables of values belong in a CSV file",
                                    longest_formula)});
    return nullptr;
  }
  return formula;
}

bool bind_formulas(Preparation& p, const WaveFormulas& formulas, const Base::Params& params) {
  Base::Params unused;
  return in_library(p, formulas.place, "", [&] {
    formulas.pieces->bind_with_limits(params, unused);
    formulas.pieces->check_limits_rise();
  });
}

bool add_density(Preparation& p, const WavePlace& wave, const WaveFormulas& formulas,
                 const Base::Params& params, OpenEnds ends) {
  const Span& place = formulas.place;
  AskedWave asked;
  if (!bind_formulas(p, formulas, params) || !lies_in_run(p, *formulas.pieces, place) ||
      !in_library(p, place, "", [&] { asked = asked_density(formulas.pieces, ends); })) {
    return false;
  }
  asked.kind = wave.part.kind;
  wave.sea.asked.push_back(std::move(asked));
  return true;
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

void add_single_wave(Preparation& p, const WavePlace& wave, Base::Params& params) {
  AskedWave asked;
  asked.kind = wave.part.kind;
  asked.lines.push_back(
      {params.read("f", Category::frequency), params.read("a", Category::length)});
  wave.sea.asked.push_back(std::move(asked));
  hand_over(p, wave, params, [&] { return p.run.experiment.add_single(wave.sea.id); });
}

}  // namespace Jobs
