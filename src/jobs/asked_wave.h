// What one wave of a job asks for, before the run cuts it to its harmonics.
#ifndef KELPBOX_JOBS_ASKED_WAVE_H_
#define KELPBOX_JOBS_ASKED_WAVE_H_

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace Jobs {

struct AskedLine {
  double frequency = 0.0;  // Hz
  double amplitude = 0.0;  // m
};

struct AskedWave {
  std::string kind;  // as in the job
  // The variance density in m2/Hz at a frequency in Hz. Empty for waves that have none.
  std::function<double(double)> density;
  // Where the density is asked for, in Hz: a ready sea's whole axis, or a formula's limits.
  double low = 0.0;
  double high = std::numeric_limits<double>::infinity();
  // Where the density may jump or bend: limits between formulas, points of a table.
  std::vector<double> breaks;
  double peak = 0.0;  // Hz, near the greatest density; helps to place the steps of an integral
  std::vector<AskedLine> lines;  // single waves and lists of fronts
  // m2, of a record as it fills the repeat, or of a time formula over its own length.
  std::optional<double> variance;
  std::optional<double> crest;  // m, of a focused wave
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_ASKED_WAVE_H_
