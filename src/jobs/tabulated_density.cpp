#include "jobs/tabulated_density.h"

#include <algorithm>

namespace Jobs {

std::optional<TabulatedDensity::BadRow> TabulatedDensity::bad_row() const {
  for (std::size_t i = 0; i < frequencies.size(); ++i) {
    if (frequencies[i] < 0.0) return BadRow{i, "the frequency is negative"};
    if (i > 0 && !(frequencies[i] > frequencies[i - 1])) {
      return BadRow{i, "the frequency does not rise"};
    }
    if (densities[i] < 0.0) return BadRow{i, "the density is negative"};
  }
  return std::nullopt;
}

double TabulatedDensity::at(double frequency) const {
  if (!(frequency >= frequencies.front() && frequency <= frequencies.back())) return 0.0;
  const auto next = std::upper_bound(frequencies.begin(), frequencies.end(), frequency);
  if (next == frequencies.end()) return densities.back();
  const std::size_t i = static_cast<std::size_t>(next - frequencies.begin());
  const double share = (frequency - frequencies[i - 1]) / (frequencies[i] - frequencies[i - 1]);
  return densities[i - 1] + share * (densities[i] - densities[i - 1]);
}

double TabulatedDensity::integral(double from, double to) const {
  double left = std::max(from, frequencies.front());
  const double end = std::min(to, frequencies.back());
  double sum = 0.0;
  auto next = std::upper_bound(frequencies.begin(), frequencies.end(), left);
  while (left < end) {
    const double right = next == frequencies.end() ? end : std::min(*next++, end);
    sum += 0.5 * (at(left) + at(right)) * (right - left);
    left = right;
  }
  return sum;
}

AskedWave TabulatedDensity::asked(const std::string& kind) const {
  AskedWave wave;
  wave.kind = kind;
  wave.density = [table = *this](double frequency) { return table.at(frequency); };
  wave.low = frequencies.front();
  wave.high = frequencies.back();
  wave.breaks = frequencies;
  const auto greatest = std::max_element(densities.begin(), densities.end());
  wave.peak = frequencies[static_cast<std::size_t>(greatest - densities.begin())];
  return wave;
}

}  // namespace Jobs
