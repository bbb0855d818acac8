#include "jobs/spectrum_peak.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Jobs {
namespace {

// NaN counts as 0.
double at(const Density& density, double f) {
  const double value = density(f);
  return value > 0.0 ? value : 0.0;
}

// The maximum within a bracket, by the golden section.
double refine(const Density& density, double low, double high) {
  constexpr double golden = 0.618033988749894848;
  double a = high - golden * (high - low);
  double b = low + golden * (high - low);
  double at_a = at(density, a);
  double at_b = at(density, b);
  for (int step = 0; step < 60; ++step) {
    if (at_a >= at_b) {
      high = b;
      b = a;
      at_b = at_a;
      a = high - golden * (high - low);
      at_a = at(density, a);
    } else {
      low = a;
      a = b;
      at_a = at_b;
      b = low + golden * (high - low);
      at_b = at(density, b);
    }
  }
  return 0.5 * (low + high);
}

// How far the density stays at or above `level` from the peak towards `end`.
double reach(const Density& density, double peak, double end, double level) {
  constexpr int steps = 2000;
  double inside = peak;
  for (int i = 1; i <= steps; ++i) {
    const double f = peak + (end - peak) * i / steps;
    if (at(density, f) >= level) {
      inside = f;
      continue;
    }
    double outside = f;
    for (int halving = 0; halving < 50; ++halving) {
      const double middle = 0.5 * (inside + outside);
      (at(density, middle) >= level ? inside : outside) = middle;
    }
    break;
  }
  return std::fabs(inside - peak);
}

// Sums over `width` harmonics from each on. Both together are a sum weighted by a triangle.
std::vector<double> ahead(const std::vector<double>& values, std::size_t width) {
  std::vector<double> sums(values.size() + 1, 0.0);  // of all from each on
  for (std::size_t h = values.size(); h-- > 0;) sums[h] = sums[h + 1] + values[h];
  std::vector<double> result(values.size());
  for (std::size_t h = 0; h < values.size(); ++h) {
    result[h] = sums[h] - sums[std::min(h + width, values.size())];
  }
  return result;
}

// The same over those up to each.
std::vector<double> behind(std::vector<double> values, std::size_t width) {
  std::reverse(values.begin(), values.end());
  values = ahead(values, width);
  std::reverse(values.begin(), values.end());
  return values;
}

}  // namespace

std::optional<DensityPeak> density_peak(const Density& density, double from, double to,
                                        const std::vector<double>& hints) {
  if (!(to > from)) return std::nullopt;
  constexpr int parts = 400;
  std::vector<double> grid;
  for (int i = 0; i <= parts; ++i) grid.push_back(from + (to - from) * i / parts);
  for (const double hint : hints) {
    for (const double factor : {0.999, 1.0, 1.001}) {
      const double f = hint * factor;
      if (f > from && f < to) grid.push_back(f);
    }
  }
  std::sort(grid.begin(), grid.end());

  std::size_t best = 0;
  double greatest = 0.0;
  for (std::size_t i = 0; i < grid.size(); ++i) {
    const double value = grid[i] > 0.0 ? at(density, grid[i]) : 0.0;
    if (value > greatest) {
      greatest = value;
      best = i;
    }
  }
  if (!(greatest > 0.0) || !std::isfinite(greatest)) return std::nullopt;

  DensityPeak peak{grid[best], greatest, 0.0};
  const double refined = refine(density, best == 0 ? grid[0] : grid[best - 1],
                                best + 1 < grid.size() ? grid[best + 1] : grid[best]);
  const double refined_density = at(density, refined);
  if (refined_density > peak.density) peak = {refined, refined_density, 0.0};
  peak.width = reach(density, peak.frequency, from, peak.density / 2) +
               reach(density, peak.frequency, to, peak.density / 2);
  return peak;
}

std::optional<double> greatest_harmonic(const std::vector<double>& variance) {
  const auto greatest = std::max_element(variance.begin(), variance.end());
  if (greatest == variance.end() || !(*greatest > 0.0)) return std::nullopt;
  return static_cast<double>(greatest - variance.begin());
}

std::optional<double> smoothed_peak(const std::vector<double>& variance, double half_width) {
  const auto width = static_cast<std::size_t>(std::max(std::round(half_width), 1.0));
  const std::vector<double> smooth = behind(ahead(variance, width), width);
  const std::optional<double> top = greatest_harmonic(smooth);
  if (!top) return std::nullopt;
  constexpr double share = 0.8;
  const auto middle = static_cast<std::size_t>(*top);
  const double level = share * smooth[middle];
  double sum = 0.0;
  double weighted = 0.0;
  const auto add = [&](std::size_t h) {
    sum += smooth[h];
    weighted += smooth[h] * static_cast<double>(h);
  };
  for (std::size_t h = middle + 1; h-- > 0 && smooth[h] >= level;) add(h);
  for (std::size_t h = middle + 1; h < smooth.size() && smooth[h] >= level; ++h) add(h);
  return weighted / sum;
}

}  // namespace Jobs
