#include "cli/analysis_doubts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/constants.h"

namespace Cli {
namespace {

// A window of the whole periods, from the start of the present one.
std::string whole_periods(const ProbeRecords& records, const RecordPeak& peak) {
  const double whole = std::floor(peak.periods);
  const double samples = std::round(static_cast<double>(records.samples()) * whole / peak.periods);
  return fmt::format("--stop \"{:.6g} s\" holds {:.0f}", records.start + samples / records.rate,
                     whole);
}

}  // namespace

std::vector<std::string> doubts_of(const ProbeRecords& records, const RecordPeak& peak,
                                   const WaveTrains& trains) {
  std::vector<std::string> doubts;
  constexpr double low_share = 0.5;
  if (peak.share < low_share) {
    doubts.push_back(fmt::format(
        "only {:.0f} % of the energy lies at {:.4g} Hz and its harmonics: the waves are irregular, "
        "and the wave trains are those of this frequency alone",
        100.0 * peak.share, peak.frequency));
    return doubts;
  }
  const double offset = std::abs(peak.periods - static_cast<double>(peak.element));
  constexpr double least_offset = 0.05;  // an amplitude is then 0.4 % too low
  if (offset > least_offset) {
    const double loss = 1.0 - std::sin(Base::Pi * offset) / (Base::Pi * offset);
    doubts.push_back(fmt::format(
        "the window holds {:.2f} periods, not a whole number, so amplitudes are about {:.0f} % too "
        "low; {}",
        peak.periods, std::max(100.0 * loss, 1.0), whole_periods(records, peak)));
  }
  // A spacing of 0.45 wave lengths between two probes, the greatest that Goda and Suzuki (1976)
  // recommend, has a gain of 3.2.
  constexpr double high_gain = 3.2;
  if (trains.gain.fundamental > high_gain) {
    doubts.push_back(fmt::format(
        "the probes stand near whole multiples of half a wave length, {:.3g} m, apart, or close "
        "together: noise in forward and backward is amplified {:.2g} times",
        0.5 * trains.wave_length, trains.gain.fundamental));
  }
  constexpr double high_harmonic_gain = 2.0 * high_gain;
  if (trains.has_harmonics && trains.gain.harmonic > high_harmonic_gain) {
    doubts.push_back(
        fmt::format("the layout hardly tells bound from free harmonics: noise in them is amplified "
                    "{:.2g} times",
                    trains.gain.harmonic));
  }
  return doubts;
}

std::string separation_failure(const std::string& message, const RecordPeak& peak, double rate) {
  if (message == "Too few independant probes to process") {
    return fmt::format("the probes stand too close together for waves of {:.4g} Hz",
                       peak.frequency);
  }
  if (message.starts_with("Index ")) {
    return fmt::format("the fourth harmonic of {:.4g} Hz lies above half of the rate, {:.4g} Hz",
                       peak.frequency, 0.5 * rate);
  }
  return message;
}

}  // namespace Cli
