#include "jobs/signal_stats.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Jobs {
namespace {

constexpr std::size_t reach = 4;
constexpr std::array<double, reach> first_weights = {4.0 / 5, -1.0 / 5, 4.0 / 105, -1.0 / 280};
constexpr std::array<double, reach> second_weights = {8.0 / 5, -1.0 / 5, 8.0 / 315, -1.0 / 560};
constexpr double second_centre = -205.0 / 72;

// The samples with the neighbours that the differences need before the first and after the last.
std::vector<double> cyclic(const std::vector<double>& samples) {
  const std::size_t n = samples.size();
  std::vector<double> extended(n + 2 * reach);
  std::copy(samples.begin(), samples.end(), extended.begin() + reach);
  for (std::size_t d = 0; d < reach; ++d) {
    extended[d] = samples[(n * reach + d - reach) % n];
    extended[n + reach + d] = samples[d % n];
  }
  return extended;
}

struct Extent {
  double highest = 0.0;
  double lowest = 0.0;
  double squares = 0.0;  // their sum

  double magnitude() const { return std::max(highest, -lowest); }
};

// In four strands, which a compiler can keep side by side in registers.
Extent extent_of(const std::vector<double>& values) {
  constexpr std::size_t strands = 4;
  std::array<double, strands> highest{};
  std::array<double, strands> lowest{};
  std::array<double, strands> squares{};
  const std::size_t whole = values.size() / strands * strands;
  for (std::size_t i = 0; i < whole; i += strands) {
    for (std::size_t k = 0; k < strands; ++k) {
      const double value = values[i + k];
      highest[k] = highest[k] < value ? value : highest[k];
      lowest[k] = value < lowest[k] ? value : lowest[k];
      squares[k] += value * value;
    }
  }
  Extent extent;
  for (std::size_t k = 0; k < strands; ++k) {
    extent.highest = std::max(extent.highest, highest[k]);
    extent.lowest = std::min(extent.lowest, lowest[k]);
    extent.squares += squares[k];
  }
  for (std::size_t i = whole; i < values.size(); ++i) {
    extent.highest = std::max(extent.highest, values[i]);
    extent.lowest = std::min(extent.lowest, values[i]);
    extent.squares += values[i] * values[i];
  }
  return extent;
}

void take(MotionPeak& peak, const std::vector<double>& values, const Extent& extent,
          std::size_t signal) {
  peak.rms = std::max(peak.rms, std::sqrt(extent.squares / static_cast<double>(values.size())));
  const double magnitude = extent.magnitude();
  if (!(magnitude > peak.value)) return;
  peak.value = magnitude;
  peak.signal = signal;
  const auto place = std::find_if(values.begin(), values.end(), [magnitude](double value) {
    return std::fabs(value) == magnitude;
  });
  peak.sample = static_cast<std::size_t>(place - values.begin());
}

// The first and the second differences, from samples with their neighbours.
void differentiate(const std::vector<double>& extended, double rate, std::vector<double>& first,
                   std::vector<double>& second) {
  const double rate2 = rate * rate;
  const double* const s = extended.data() + reach;
  for (std::size_t i = 0; i < first.size(); ++i) {
    const double* const at = s + i;
    first[i] =
        rate * (first_weights[0] * (at[1] - *(at - 1)) + first_weights[1] * (at[2] - *(at - 2)) +
                first_weights[2] * (at[3] - *(at - 3)) + first_weights[3] * (at[4] - *(at - 4)));
    second[i] =
        rate2 * (second_centre * at[0] + second_weights[0] * (at[1] + *(at - 1)) +
                 second_weights[1] * (at[2] + *(at - 2)) + second_weights[2] * (at[3] + *(at - 3)) +
                 second_weights[3] * (at[4] + *(at - 4)));
  }
}

double largest_step_of(const std::vector<double>& samples) {
  std::vector<double> steps(samples.size() - 1);
  for (std::size_t i = 0; i < steps.size(); ++i) steps[i] = samples[i + 1] - samples[i];
  return extent_of(steps).magnitude();
}

}  // namespace

void SignalStats::add(const std::vector<double>& samples, double rate) {
  const std::size_t n = samples.size();
  const std::size_t number = signals++;
  if (n == 0) return;
  std::vector<double> rates(n);
  std::vector<double> accelerations(n);
  differentiate(cyclic(samples), rate, rates, accelerations);
  const Extent strokes = extent_of(samples);
  highest = std::max(highest, strokes.highest);
  lowest = std::min(lowest, strokes.lowest);
  take(stroke, samples, strokes, number);
  take(velocity, rates, extent_of(rates), number);
  take(acceleration, accelerations, extent_of(accelerations), number);
  largest_step = std::max(largest_step, largest_step_of(samples));
  first = std::max(first, std::fabs(samples.front()));
  const double step = std::fabs(samples.front() - samples.back());
  if (step > end_step) {
    end_step = step;
    end_step_signal = number;
  }
}

}  // namespace Jobs
