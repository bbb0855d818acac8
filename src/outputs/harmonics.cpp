#include "outputs/harmonics.h"

#include <algorithm>
#include <complex>

#include "base/fft.h"

namespace Outputs {

std::vector<double> amplitudes(const std::vector<double>& samples, std::size_t last) {
  std::vector<std::complex<double>> spectrum(samples.size() / 2 + 1);
  KLPFFT_time_to_freq(&samples, &spectrum);
  std::vector<double> made(std::min(last + 1, spectrum.size()));
  for (std::size_t h = 0; h < made.size(); ++h) made[h] = std::abs(spectrum[h]);
  return made;
}

std::size_t last_shown(std::size_t highest_harmonic) {
  return highest_harmonic + std::max<std::size_t>(8, highest_harmonic / 10);
}

}  // namespace Outputs
