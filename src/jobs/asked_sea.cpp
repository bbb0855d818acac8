#include "jobs/asked_sea.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>

#include "jobs/ready_sea.h"

namespace Jobs {
namespace {

// A list of so many fronts is a random sea rather than a few waves.
constexpr std::size_t many_lines = 30;

double factor(const BuiltSea& sea, const Carried& carried, double f) {
  const double gain = sea.gain ? value_or_nan(sea.gain, f) : 1.0;
  return gain * gain * (carried ? value_or_nan(carried, f) : 1.0);
}

SeaKind kind_of(const AskedWave& wave, const SeaChanges& changes) {
  if (wave.density || wave.crest)
    return changes.random_phases ? SeaKind::irregular : SeaKind::group;
  if (wave.lines.size() >= many_lines || wave.kind == "record") return SeaKind::irregular;
  if (wave.lines.size() == 1) return SeaKind::regular;
  return wave.lines.empty() ? SeaKind::group : SeaKind::lines;
}

bool still(const AskedWave& wave) {
  if (wave.density || wave.crest || (wave.lines.empty() && !wave.variance)) return false;
  return wave.variance.value_or(0.0) == 0.0 &&
         std::all_of(wave.lines.begin(), wave.lines.end(),
                     [](const AskedLine& line) { return line.amplitude == 0.0; });
}

}  // namespace

double value_or_nan(const std::function<double(double)>& function, double frequency) {
  try {
    return function(frequency);
  } catch (...) {
    return std::numeric_limits<double>::quiet_NaN();
  }
}

SeaChanges changes_of(const Sea& sea) {
  SeaChanges changes;
  for (const Part& part : sea.changes) {
    const ReadyChange* ready = find_ready_change(part.kind);
    const std::string& modifier = ready != nullptr ? ready->modifier : part.kind;
    if (modifier == "PhaseRandom" || modifier == "PhaseWNoise") changes.random_phases = true;
    if (modifier == "PhaseWNoise") changes.random_amplitudes = true;
    if (modifier == "AngleSweep") changes.fan = true;
  }
  return changes;
}

Moments AskedSea::moments(double from, double to) const {
  Moments sum;
  if (density) {
    const double first = std::max(from, low);
    const double last = std::min(to, high);
    if (last > first) sum = density_moments(density, first, last, breaks, peaks);
  }
  for (const VarianceLine& line : lines) {
    if (line.frequency >= from && line.frequency < to) sum.add(line.frequency, line.variance);
  }
  return sum;
}

AskedSea asked_sea(const std::vector<BuiltSea>& seas, const std::vector<SeaChanges>& changes,
                   const std::vector<Carried>& carried) {
  struct Term {
    const BuiltSea* sea;
    const AskedWave* wave;
    Carried carried;
  };
  AskedSea asked;
  std::vector<Term> terms;
  asked.low = std::numeric_limits<double>::infinity();
  for (std::size_t s = 0; s < seas.size(); ++s) {
    const BuiltSea& sea = seas[s];
    for (const AskedWave& wave : sea.asked) {
      if (still(wave)) continue;
      const SeaKind kind = kind_of(wave, changes[s]);
      // Two sine waves are no regular wave.
      const bool second = asked.kind == SeaKind::regular && kind == SeaKind::regular;
      asked.kind = second ? SeaKind::lines : std::max(asked.kind, kind);
      for (const AskedLine& line : wave.lines) {
        const double amplitude2 = line.amplitude * line.amplitude;
        const double v = amplitude2 / 2.0 * factor(sea, carried[s], line.frequency);
        if (line.frequency > 0.0) asked.lines.push_back({line.frequency, v});
      }
      if (wave.density) {
        terms.push_back({&sea, &wave, carried[s]});
        asked.low = std::min(asked.low, std::max(wave.low, 0.0));
        asked.high = std::max(asked.high, wave.high);
        if (wave.low > 0.0) asked.breaks.push_back(wave.low);
        if (std::isfinite(wave.high)) asked.breaks.push_back(wave.high);
        asked.breaks.insert(asked.breaks.end(), wave.breaks.begin(), wave.breaks.end());
        if (wave.peak > 0.0) asked.peaks.push_back(wave.peak);
      } else if (wave.variance) {
        asked.other += *wave.variance;
        asked.has_other = true;
      } else if (wave.lines.empty()) {
        asked.unknown = true;
      }
    }
  }
  if (terms.empty()) {
    asked.low = 0.0;
    return asked;
  }
  asked.density = [terms = std::move(terms)](double f) {
    double sum = 0.0;
    for (const Term& term : terms) {
      if (f < term.wave->low || f > term.wave->high) continue;
      const double s = value_or_nan(term.wave->density, f);
      if (s != 0.0) sum += s * factor(*term.sea, term.carried, f);
    }
    return sum;
  };
  return asked;
}

}  // namespace Jobs
