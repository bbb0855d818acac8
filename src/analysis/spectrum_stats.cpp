#include "analysis/spectrum_stats.h"

#include <cmath>
#include <complex>
#include <cstddef>

namespace Analysis {

SpectrumStats::SpectrumStats(Base::DataSet& set) { spectrum = set.freq(df); }

void SpectrumStats::report(Base::Params& out) const {
  double s0 = 0.0;  // moments of the squared amplitudes over the harmonics
  double s1 = 0.0;
  for (std::size_t i = 1; i < spectrum.data.size(); ++i) {
    const double square = std::norm(spectrum.data[i]);
    s0 += square;
    s1 += static_cast<double>(i) * square;
  }
  out.insert("Hs", 4.0 * std::sqrt(s0 * 0.5), spectrum.units);
  out.insert("Ts", 1.0 / (s1 * (df / s0)), "s");
  out.insert("Var", std::sqrt(Base::rms(spectrum)), "");
}

}  // namespace Analysis
