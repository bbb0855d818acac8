// Everything that the seas of a run ask for, in one spectrum at the reference point.
#ifndef KELPBOX_JOBS_ASKED_SEA_H_
#define KELPBOX_JOBS_ASKED_SEA_H_

#include <functional>
#include <vector>

#include "jobs/density_moments.h"
#include "jobs/run.h"
#include "jobs/sea_moments.h"

namespace Jobs {

enum class SeaKind {
  still,      // nothing is asked for
  regular,    // one sine wave
  lines,      // a few sine waves
  group,      // densities whose phases are not random
  irregular,  // random phases, records, long lists of waves
};

struct VarianceLine {
  double frequency = 0.0;  // Hz
  double variance = 0.0;   // m2
};

// Random changes of a sea.
struct SeaChanges {
  bool random_phases = false;
  bool random_amplitudes = false;
  bool fan = false;  // an AngleSweep, whose directions meet in phase
};
SeaChanges changes_of(const Sea& sea);

struct AskedSea {
  Density density;  // of all waves together; empty without one
  double low = 0.0;
  double high = 0.0;           // may be infinite
  std::vector<double> breaks;  // Hz
  std::vector<double> peaks;   // Hz
  std::vector<VarianceLine> lines;
  double other = 0.0;      // m2, of records and time formulas
  bool has_other = false;  // their periods are not known
  bool unknown = false;    // some wave does not say how much variance it asks for
  SeaKind kind = SeaKind::still;

  // Of densities and lines between two frequencies in Hz.
  Moments moments(double from, double to) const;
};

// NaN where the function throws: a formula may fail at a frequency that the run does not use.
double value_or_nan(const std::function<double(double)>& function, double frequency);

// The ratio of the variance at the reference point to that at a sea's position, for a frequency in
// Hz; empty for 1.
using Carried = std::function<double(double)>;

// `carried` has one entry for each sea. Refers to the seas, which must outlive the result.
AskedSea asked_sea(const std::vector<BuiltSea>& seas, const std::vector<SeaChanges>& changes,
                   const std::vector<Carried>& carried);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_ASKED_SEA_H_
