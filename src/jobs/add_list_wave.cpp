// The waves that lists give: fronts, or the points of a spectrum.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "jobs/add_wave.h"
#include "jobs/bind_parameters.h"
#include "jobs/tabulated_density.h"
#include "jobs/wave_steps.h"
#include "jobs/wave_table.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

// Without the library's remark on the repeat time that the list itself implies.
void hand_over_fronts(Preparation& p, const WavePlace& wave, const Synthesis::DispFronts& fronts) {
  in_library(p, wave.part.span, title_in_sea(wave.part, wave.sea.name), [&] {
    Base::Params none;
    p.run.experiment.set(p.run.experiment.add_fronts(wave.sea.id, fronts), none);
  });
}

}  // namespace

void add_fronts(Preparation& p, const WavePlace& wave) {
  Declared declared;
  declared.own_keys = {"file"};
  auto params = bind_parameters(wave.part, declared, p.faults);
  const auto file = read_table(p, wave.part);
  if (!file) return;
  const auto f = named_column(p, *file, "f", Category::frequency, "Hz");
  const auto a = named_column(p, *file, "a", Category::length, "mm");
  std::vector<double> angle(file->table.columns.front().values.size());
  std::vector<double> phase = angle;
  bool good = f && a;
  for (auto& [name, values] : {std::pair<const char*, std::vector<double>&>{"angle", angle},
                               std::pair<const char*, std::vector<double>&>{"phase", phase}}) {
    if (!has_column(file->table, name)) continue;
    auto read = named_column(p, *file, name, Category::angle, "deg");
    if (read) values = std::move(*read);
    good = good && read;
  }
  if (!good || !params || !p.has_grid) return;

  const Maths::RunData& run = p.run.experiment.repeat(p.run.definition);
  Synthesis::DispFronts fronts;
  AskedWave asked;
  asked.kind = wave.part.kind;
  double largest_move = 0.0;
  for (std::size_t i = 0; i < f->size(); ++i) {
    if (!run.is_inrange((*f)[i])) {
      return add_fault(
          p, *file,
          fmt::format("{}: {:.6g} Hz lies outside the run's harmonics, {:.4g} to {:.4g} Hz",
                      line_of(*file, i), (*f)[i], run.freq(run.min_harmonic()),
                      run.freq(run.max_harmonic())));
    }
    const double made = run.freq(run.wave_num((*f)[i]));
    largest_move = std::max(largest_move, std::abs(made - (*f)[i]));
    fronts.emplace_back((*f)[i], (*a)[i], angle[i], phase[i]);
    asked.lines.push_back({(*f)[i], (*a)[i]});
  }
  constexpr double noted_move = 1e-6;  // Hz
  if (largest_move > noted_move) {
    p.run.remarks.push_back(
        fmt::format("{}: frequencies move to the nearest harmonics of the run, by up to {:.3g} Hz",
                    title_in_sea(wave.part, wave.sea.name), largest_move));
  }
  wave.sea.asked.push_back(std::move(asked));
  hand_over_fronts(p, wave, fronts);
}

void add_table(Preparation& p, const WavePlace& wave) {
  Declared declared;
  declared.own_keys = {"file"};
  auto params = bind_parameters(wave.part, declared, p.faults);
  const auto file = read_table(p, wave.part);
  if (!file) return;
  const auto f = named_column(p, *file, "f", Category::frequency, "Hz");
  const auto S = named_column(p, *file, "S", Category::variance, "m2/Hz");
  if (!f || !S || !params) return;
  TabulatedDensity density{*f, *S};
  if (const auto bad = density.bad_row()) {
    return add_fault(p, *file, line_of(*file, bad->row) + ": " + bad->fault);
  }
  if (f->size() < 2) return add_fault(p, *file, fmt::format("{} has only one line", file->given));
  if (!p.has_grid) return;
  const Maths::RunData& run = p.run.experiment.repeat(p.run.definition);
  Synthesis::DispFronts fronts;
  for (std::uint64_t h = run.min_harmonic(); h <= run.max_harmonic(); ++h) {
    const double half = 0.5 / run.value();
    const double energy = density.integral(run.freq(h) - half, run.freq(h) + half);
    if (energy > 0.0) fronts.emplace_back(run.freq(h), std::sqrt(2.0 * energy), 0.0, 0.0);
  }
  if (fronts.empty()) {
    return add_fault(
        p, *file,
        fmt::format("{} has no energy at the run's harmonics, {:.4g} to {:.4g} Hz", file->given,
                    run.freq(run.min_harmonic()), run.freq(run.max_harmonic())));
  }
  wave.sea.asked.push_back(density.asked(wave.part.kind));
  hand_over_fronts(p, wave, fronts);
}

}  // namespace Jobs
