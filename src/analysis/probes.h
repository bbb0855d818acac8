// The probes of a set, projected onto the wave direction.
#ifndef KELPBOX_ANALYSIS_PROBES_H_
#define KELPBOX_ANALYSIS_PROBES_H_

#include <complex>
#include <cstdint>
#include <vector>

#include "analysis/record.h"

namespace Analysis {

struct ProbeRecord {
  std::uint32_t index = 0;     // the probe's place in the set
  double position = 0.0;       // along the wave direction from the origin of the tank, metres
  std::complex<double> value;  // the element of the probe's spectrum that is being separated
};

struct ProbeRow {
  std::vector<ProbeRecord> records;  // values not yet taken
  double mean_x = 0.0;               // metres along the tank
};

// Projects each probe's "x" and "y" onto the direction, in radians from the tank's x axis. The
// records are in the order of the set. Throws as Record::param and Quantity::get.
ProbeRow locate_probes(const std::vector<Record>& sets, double direction);

void sort_by_position(std::vector<ProbeRecord>& records);

// Counts the first probe, and each probe that is more than a tenth of a radian of phase after the
// last counted one. Needs at least one record, sorted by position. k in rad/m.
std::uint32_t independent_probes(const std::vector<ProbeRecord>& records, double k);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_PROBES_H_
