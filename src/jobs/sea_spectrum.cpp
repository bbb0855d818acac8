#include "jobs/sea_spectrum.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "jobs/made_band.h"

namespace Jobs {
namespace {

constexpr std::size_t most_bands = 500;
constexpr std::size_t most_lines = 200;

// The chart begins at this part of the lowest frequency that matters, and ends at this multiple of
// the highest.
constexpr double margin_below = 0.5;
constexpr double margin_above = 1.2;
// The end is at most at three times the highest frequency that is made.
constexpr double furthest = 3.0 / margin_above;
// Of the variance that was asked for; this share may lie outside at either end.
constexpr double share_outside = 0.0025;

struct Stretch {
  double low = std::numeric_limits<double>::infinity();  // Hz
  double high = 0.0;

  void include(double f) {
    low = std::min(low, f);
    high = std::max(high, f);
  }
};

// Of the densities, without lines.
double asked_between(const AskedSea& asked, double from, double to) {
  const double first = std::max(from, asked.low);
  const double last = std::min(to, asked.high);
  if (!(last > first)) return 0.0;
  std::vector<double> breaks;
  for (const double f : asked.breaks) {
    if (f > first && f < last) breaks.push_back(f);
  }
  return density_moments(asked.density, first, last, breaks, asked.peaks).m0;
}

// All but a small share of the variance asked for, as far as it lies below `end`.
void include_asked(const AskedSea& asked, double end, Stretch& stretch) {
  constexpr std::size_t parts = 256;
  const double step = end / parts;
  std::vector<double> below(parts + 1);  // the variance below i * step
  for (std::size_t i = 0; i < parts; ++i) {
    const double from = step * static_cast<double>(i);
    below[i + 1] = below[i] + asked_between(asked, from, from + step);
  }
  const double all =
      below.back() + asked_between(asked, end, std::numeric_limits<double>::infinity());
  if (!std::isfinite(all) || !(all > 0.0)) return;
  for (std::size_t i = 0; i < parts; ++i) {
    const bool after = below[i + 1] > share_outside * all;
    const bool before = below[i] < (1.0 - share_outside) * all;
    if (!after || !before) continue;
    // The margin below makes up for the first step.
    stretch.include(std::max(step * static_cast<double>(i), margin_below * step));
    stretch.include(step * static_cast<double>(i + 1));
  }
}

Stretch stretch_of(const JudgedRun& judged) {
  Stretch stretch;
  double end = furthest * judged.band_high;
  if (const auto made = made_band(judged.made)) {
    stretch.include(static_cast<double>(made->lowest) / judged.repeat);
    stretch.include(static_cast<double>(made->highest) / judged.repeat);
    end = furthest * stretch.high;
  }
  if (judged.asked.density) include_asked(judged.asked, end, stretch);
  for (const VarianceLine& line : judged.asked.lines) {
    if (line.variance > 0.0) stretch.include(std::min(line.frequency, end));
  }
  return stretch;
}

std::vector<AskedLine> highest_lines(const std::vector<VarianceLine>& all) {
  std::vector<AskedLine> lines;
  for (const VarianceLine& line : all) {
    if (line.variance > 0.0) lines.push_back({line.frequency, std::sqrt(2.0 * line.variance)});
  }
  if (lines.size() > most_lines) {
    std::stable_sort(lines.begin(), lines.end(), [](const AskedLine& a, const AskedLine& b) {
      return a.amplitude > b.amplitude;
    });
    lines.resize(most_lines);
  }
  std::stable_sort(lines.begin(), lines.end(), [](const AskedLine& a, const AskedLine& b) {
    return a.frequency < b.frequency;
  });
  return lines;
}

}  // namespace

std::optional<SeaSpectrum> sea_spectrum(const JudgedRun& judged) {
  const Stretch stretch = stretch_of(judged);
  if (!(stretch.high > 0.0)) return std::nullopt;
  const double T = judged.repeat;
  const double from = std::max(std::floor(margin_below * stretch.low * T), 1.0);
  const double to = std::max(std::ceil(margin_above * stretch.high * T), from);
  const auto first = static_cast<std::uint64_t>(from);
  const auto count = static_cast<std::uint64_t>(to) - first + 1;

  SeaSpectrum spectrum;
  spectrum.at = judged.reference;
  const std::uint64_t n = spectrum.harmonics = (count + most_bands - 1) / most_bands;
  const std::size_t bands = (count + n - 1) / n;
  const double width = static_cast<double>(n) / T;
  spectrum.made.assign(bands, 0.0);
  for (std::size_t h = first; h < judged.made.size(); ++h) {
    const std::size_t band = (h - first) / n;
    if (band < bands && judged.made[h] > 0.0) spectrum.made[band] += judged.made[h] / width;
  }
  for (std::size_t band = 0; band < bands; ++band) {
    const double edge = (static_cast<double>(first + band * n) - 0.5) / T;
    spectrum.f.push_back(edge + 0.5 * width);
    if (!judged.asked.density) continue;
    spectrum.asked.push_back(asked_between(judged.asked, edge, edge + width) / width);
  }
  spectrum.lines = highest_lines(judged.asked.lines);
  return spectrum;
}

}  // namespace Jobs
