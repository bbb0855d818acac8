// The spectrum that was asked for, beside the one that is made, as a chart shows them.
#ifndef KELPBOX_JOBS_SEA_SPECTRUM_H_
#define KELPBOX_JOBS_SEA_SPECTRUM_H_

#include <cstdint>
#include <optional>
#include <vector>

#include "jobs/asked_wave.h"
#include "jobs/judged_run.h"

namespace Jobs {

// At the reference point. Densities are means over bands, so the areas are those of the spectra.
struct SeaSpectrum {
  Maths::Position at;
  std::uint64_t harmonics = 1;   // of the repeat time, in each band
  std::vector<double> f;         // Hz, the middle of each band
  std::vector<double> made;      // m2/Hz
  std::vector<double> asked;     // m2/Hz; empty if no density was asked for
  std::vector<AskedLine> lines;  // the highest sine waves that were asked for, in rising frequency
};

// Reaches beyond the harmonics of the run where much was asked for there. Empty if nothing was
// asked for and nothing is made.
std::optional<SeaSpectrum> sea_spectrum(const JudgedRun& judged);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SEA_SPECTRUM_H_
