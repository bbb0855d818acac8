#include "jobs/asked_density.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

#include "base/quantity.h"
#include "sea/limit_rules.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;
using Synthesis::Piecewise;

double value_at(const Piecewise& formulas, std::size_t function, double frequency) {
  return formulas.function(function)
      .evaluate(Base::Quantity(frequency, Category::frequency))
      .get(formulas.units().output);
}

std::size_t function_at(const Piecewise& formulas, double frequency) {
  const Synthesis::Limits& limits = formulas.limits();
  std::size_t i = 0;
  while (i + 1 < formulas.function_count() && frequency > limits[i + 1]) ++i;
  return i;
}

}  // namespace

AskedWave asked_density(const std::shared_ptr<const Piecewise>& formulas, OpenEnds ends) {
  const Synthesis::Limits& limits = formulas->limits();
  AskedWave wave;
  wave.low = ends.low ? 0.0 : limits.front();
  if (!ends.high) wave.high = limits.back();
  wave.breaks.assign(limits.begin() + 1, limits.end() - 1);
  // A function that cannot be evaluated is reported now.
  for (std::size_t i = 0; i < formulas->function_count(); ++i) {
    value_at(*formulas, i, 0.5 * (limits[i] + limits[i + 1]));
  }
  if (formulas->units().output != Category::variance) return wave;
  wave.density = [formulas, low = wave.low, high = wave.high](double frequency) {
    if (frequency <= 0.0 || frequency < low || frequency > high) return 0.0;
    return value_at(*formulas, function_at(*formulas, frequency), frequency);
  };
  return wave;
}

double integral_of(const Piecewise& formulas) {
  // Simpson's rule over each function.
  constexpr int parts = 4096;
  const Synthesis::Limits& limits = formulas.limits();
  double sum = 0.0;
  for (std::size_t i = 0; i + 1 < limits.size(); ++i) {
    const double step = (limits[i + 1] - limits[i]) / parts;
    double weighted = value_at(formulas, i, limits[i]) + value_at(formulas, i, limits[i + 1]);
    for (int j = 1; j < parts; ++j) {
      weighted += (j % 2 == 1 ? 4 : 2) * value_at(formulas, i, limits[i] + j * step);
    }
    sum += weighted * step / 3;
  }
  return sum;
}

double time_variance(const Piecewise& formulas, double rate, double repeat) {
  const Synthesis::Limits& limits = formulas.limits();
  const double samples = std::floor(std::min(limits.back(), repeat) * rate + 0.5);
  constexpr double most_samples = 1 << 27;
  // The library refuses such a signal when it is built.
  if (!(samples >= 1 && samples <= most_samples)) return 0.0;
  std::vector<double> x(static_cast<std::size_t>(samples));
  Synthesis::TimeWalk walk(limits);
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double t = static_cast<double>(i) * (1.0 / rate);
    if (t < limits.front()) continue;
    const std::size_t passed = walk.limits_passed(t);
    if (passed == 0 || passed == limits.size()) break;
    x[i] = formulas.function(passed - 1)
               .evaluate(Base::Quantity(t, Category::time))
               .get(Category::length);
  }
  return variance_of(x);
}

double peak_of(const AskedWave& wave) {
  // Even in the logarithm: narrower than the narrowest peak of a sea.
  constexpr int steps = 4000;
  const double low = std::max(wave.low, 1e-3);
  const double high = std::max(low, std::min(wave.high, 1e3));
  const double ratio = std::pow(high / low, 1.0 / steps);
  double peak = low;
  double greatest = 0.0;
  const auto consider = [&](double frequency) {
    const double density = wave.density(frequency);
    if (density > greatest) {
      greatest = density;
      peak = frequency;
    }
  };
  for (int i = 0; i <= steps; ++i) consider(low * std::pow(ratio, i));
  for (const double frequency : wave.breaks) consider(frequency);
  // Halve the step around the best frequency so far.
  for (double step = std::sqrt(ratio); step - 1.0 > 1e-7; step = std::sqrt(step)) {
    const double best = peak;
    consider(best / step);
    consider(best * step);
  }
  return peak;
}

double variance_of(const std::vector<double>& samples) {
  if (samples.empty()) return 0.0;
  double mean = 0.0;
  for (const double sample : samples) mean += sample;
  mean /= static_cast<double>(samples.size());
  double sum = 0.0;
  for (const double sample : samples) sum += (sample - mean) * (sample - mean);
  return sum / static_cast<double>(samples.size());
}

}  // namespace Jobs
