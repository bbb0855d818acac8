// Samples of a probe, for measurements of analyses.
#ifndef KELPBOX_BENCH_RECORD_SEA_H_
#define KELPBOX_BENCH_RECORD_SEA_H_

#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace Bench {

constexpr double record_rate = 100.0;  // Hz

// A sea of ten waves of 0.5 s to 1.4 s, which does not repeat.
inline std::vector<double> record_sea(std::size_t count, double probe) {
  std::vector<double> samples(count);
  for (int wave = 0; wave < 10; ++wave) {
    const double omega =
        2.0 * 3.14159265358979 * (0.71 + 0.073 * std::sqrt(2.0 + wave) * wave / 2.0);
    const double amplitude = 0.01 / (1.0 + std::abs(wave - 4));
    const std::complex<double> step = std::polar(1.0, omega / record_rate);
    std::complex<double> turn = std::polar(amplitude, wave * wave - probe * omega * omega / 9.81);
    for (double& sample : samples) {
      sample += turn.real();
      turn *= step;
    }
  }
  return samples;
}

}  // namespace Bench

#endif  // KELPBOX_BENCH_RECORD_SEA_H_
