// The wave at a point of a job.
#ifndef KELPBOX_OUTPUTS_POINT_WAVE_H_
#define KELPBOX_OUTPUTS_POINT_WAVE_H_

#include <cstddef>
#include <string>
#include <vector>

#include "jobs/run.h"

namespace Outputs {

struct Statistic {
  std::string name;  // of the library: "Hs"
  double value = 0.0;
  std::string units;  // "1" for a plain number
};

struct PointReport {
  std::string name;
  double x = 0.0;  // m
  double y = 0.0;
  double rate = 0.0;         // Hz, as fitted
  double delta_angle = 0.0;  // rad, as fitted
  double repeat = 0.0;       // s
  std::size_t samples = 0;
  std::vector<Statistic> statistics;  // in the order of their names; none for too few waves
  std::vector<std::string> remarks;
};

// Computes the wave at a point, and its statistics. The results of the library are then those of
// this point. Throws BadJob when the library refuses the point.
PointReport build_point(Jobs::Run& run, std::size_t point);

// The library's results for the last point that was built, valid until the next one.
struct PointWave {
  const std::vector<double>& elevation;   // m, by sample
  const std::vector<double>& amplitudes;  // m, by harmonic from 0
  const std::vector<double>& density;     // m2/Hz, by harmonic from 0
  const std::vector<double>& shares;      // of the variance, by direction sector
};
PointWave point_wave(Jobs::Run& run);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_POINT_WAVE_H_
