// The peak of a spectrum, requested or made.
#ifndef KELPBOX_JOBS_SPECTRUM_PEAK_H_
#define KELPBOX_JOBS_SPECTRUM_PEAK_H_

#include <optional>
#include <vector>

#include "jobs/density_moments.h"

namespace Jobs {

struct DensityPeak {
  double frequency = 0.0;  // Hz
  double density = 0.0;    // m2/Hz
  double width = 0.0;      // Hz, over which the density is at least half of that at the peak
};

// The greatest density between `from` and `to` in Hz, both finite. `hints` are frequencies near the
// maxima and at jumps. Empty where the density is nowhere above 0.
std::optional<DensityPeak> density_peak(const Density& density, double from, double to,
                                        const std::vector<double>& hints);

// The harmonic of greatest variance, from the variance of each harmonic from 0. Empty for still
// water.
std::optional<double> greatest_harmonic(const std::vector<double>& variance);

// The peak of a spectrum whose amplitudes are random, in harmonics: the centre of the frequencies
// at which the spectrum, smoothed by a triangle of that half width in harmonics, is at least 80 %
// of its maximum (the Delft method of the list by IAHR and PIANC 1986).
std::optional<double> smoothed_peak(const std::vector<double>& variance, double half_width);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SPECTRUM_PEAK_H_
