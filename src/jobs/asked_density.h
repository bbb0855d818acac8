// What the formulas of a wave ask for, evaluated as the library evaluates them.
#ifndef KELPBOX_JOBS_ASKED_DENSITY_H_
#define KELPBOX_JOBS_ASKED_DENSITY_H_

#include <memory>
#include <vector>

#include "jobs/asked_wave.h"
#include "sea/piecewise.h"

namespace Jobs {

// Whether the first and the last function hold beyond the limits of the text, as those of a ready
// sea do.
struct OpenEnds {
  bool low = false;
  bool high = false;
};

// For formulas of frequency that are bound with their limits. Only a variance density gives a
// density. Throws std::string when a formula cannot be evaluated.
AskedWave asked_density(const std::shared_ptr<const Synthesis::Piecewise>& formulas, OpenEnds ends);

// The integral of the formulas between their limits: of an amplitude density, the crest at which
// all phases meet.
double integral_of(const Synthesis::Piecewise& formulas);

// The variance of formulas of time, sampled as the library samples them: at `rate` Hz, up to the
// last limit or the repeat time in s. Throws std::string when a formula cannot be evaluated.
double time_variance(const Synthesis::Piecewise& formulas, double rate, double repeat);

// The frequency in Hz of the greatest density.
double peak_of(const AskedWave& wave);

// The variance about the mean.
double variance_of(const std::vector<double>& samples);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_ASKED_DENSITY_H_
