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

void take(MotionPeak& peak, double value, std::size_t signal, std::size_t sample) {
  const double size = std::fabs(value);
  if (size <= peak.value) return;
  peak.value = size;
  peak.signal = signal;
  peak.sample = sample;
}

void take_rms(MotionPeak& peak, double sum_of_squares, std::size_t n) {
  peak.rms = std::max(peak.rms, std::sqrt(sum_of_squares / static_cast<double>(n)));
}

}  // namespace

void SignalStats::add(const std::vector<double>& samples, double rate) {
  const std::size_t n = samples.size();
  const std::size_t number = signals++;
  if (n == 0) return;
  const std::vector<double> extended = cyclic(samples);
  const double rate2 = rate * rate;
  double stroke2 = 0.0;
  double velocity2 = 0.0;
  double acceleration2 = 0.0;
  for (std::size_t i = 0; i < n; ++i) {
    const double* s = extended.data() + i + reach;
    double v = 0.0;
    double a = second_centre * s[0];
    for (std::size_t d = 1; d <= reach; ++d) {
      v += first_weights[d - 1] * (s[d] - *(s - d));
      a += second_weights[d - 1] * (s[d] + *(s - d));
    }
    v *= rate;
    a *= rate2;
    stroke2 += s[0] * s[0];
    velocity2 += v * v;
    acceleration2 += a * a;
    highest = std::max(highest, s[0]);
    lowest = std::min(lowest, s[0]);
    take(stroke, s[0], number, i);
    take(velocity, v, number, i);
    take(acceleration, a, number, i);
    if (i + 1 < n) largest_step = std::max(largest_step, std::fabs(s[1] - s[0]));
  }
  take_rms(stroke, stroke2, n);
  take_rms(velocity, velocity2, n);
  take_rms(acceleration, acceleration2, n);
  first = std::max(first, std::fabs(samples.front()));
  const double step = std::fabs(samples.front() - samples.back());
  if (step > end_step) {
    end_step = step;
    end_step_signal = number;
  }
}

}  // namespace Jobs
