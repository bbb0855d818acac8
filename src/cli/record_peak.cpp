#include "cli/record_peak.h"

#include <algorithm>
#include <complex>
#include <vector>

#include "base/fft.h"
#include "base/vector.h"

namespace Cli {
namespace {

using Spectrum = std::vector<std::complex<double>>;

Spectrum spectrum_of(const Probe& probe) {
  Spectrum spectrum(Base::spectrum_size(probe.samples.size()));
  KLPFFT_time_to_freq(&probe.samples, &spectrum);
  return spectrum;
}

std::size_t greatest(const Spectrum& spectrum) {
  std::size_t found = 1;
  for (std::size_t i = 2; i < spectrum.size(); ++i) {
    if (std::abs(spectrum[i]) > std::abs(spectrum[found])) found = i;
  }
  return found;
}

double variance(const Spectrum& spectrum, std::size_t from, std::size_t to) {
  double sum = 0.0;
  for (std::size_t i = from; i <= to && i < spectrum.size(); ++i) sum += std::norm(spectrum[i]);
  return sum;
}

// Where a sine lies between two elements: their magnitudes are inverse to the distance.
double refined(const Spectrum& spectrum, std::size_t element) {
  const double before = element > 1 ? std::abs(spectrum[element - 1]) : 0.0;
  const double after = element + 1 < spectrum.size() ? std::abs(spectrum[element + 1]) : 0.0;
  const double neighbour = std::max(before, after);
  const double offset = neighbour / (std::abs(spectrum[element]) + neighbour);
  return static_cast<double>(element) + (after > before ? offset : -offset);
}

}  // namespace

RecordPeak find_peak(const ProbeRecords& records) {
  std::vector<Spectrum> spectra;
  RecordPeak peak;
  for (const Probe& probe : records.probes) {
    spectra.push_back(spectrum_of(probe));
    const std::size_t element = greatest(spectra.back());
    if (peak.element == 0 || element < peak.element) peak.element = element;
  }
  peak.frequency = static_cast<double>(peak.element) / records.duration();
  constexpr std::size_t highest_harmonic = 4;
  double near = 0.0;
  double all = 0.0;
  for (const Spectrum& spectrum : spectra) {
    peak.periods += refined(spectrum, peak.element) / static_cast<double>(spectra.size());
    all += variance(spectrum, 1, spectrum.size());
    std::size_t counted = 0;  // neighbours of low elements overlap
    for (std::size_t h = 1; h <= highest_harmonic; ++h) {
      const std::size_t first = std::max(h * peak.element - 1, counted + 1);
      near += variance(spectrum, first, h * peak.element + 1);
      counted = h * peak.element + 1;
    }
  }
  peak.share = near / all;
  return peak;
}

}  // namespace Cli
