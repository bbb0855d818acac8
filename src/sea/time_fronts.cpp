#include "sea/time_fronts.h"

#include <cmath>
#include <complex>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/compose.h"
#include "base/memory.h"
#include "maths/sample_count.h"

namespace Synthesis {

void add_time_fronts(Base::DataSet signal, Maths::FrontSet& fronts, const Maths::RunData& run) {
  const std::vector<std::complex<double>> bins = std::move(signal).take_freq().data;
  for (std::uint64_t h = run.min_harmonic(); h < bins.size() && h < run.max_harmonic(); ++h) {
    fronts.add_front(h, {std::abs(bins[h]), 0.0, std::atan2(bins[h].imag(), bins[h].real())});
  }
}

void check_sample_count(const std::string& name, double samples) {
  constexpr std::int64_t most_samples = std::int64_t{1} << 27;
  const double rounded = std::floor(samples + 0.5);
  if (!(rounded >= 1.0 && rounded <= static_cast<double>(most_samples))) {
    throw Base::compose(name, "::", samples, " samples in the signal, not 1 to ", most_samples);
  }
}

void prove_signal_memory(const std::string& name, std::size_t samples) {
  Base::require_memory(Maths::signal_memory(samples),
                       Base::compose(name, "::", samples, " samples in the signal"));
}

}  // namespace Synthesis
