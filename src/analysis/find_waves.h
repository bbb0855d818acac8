// The search for the individual waves of a record.
#ifndef KELPBOX_ANALYSIS_FIND_WAVES_H_
#define KELPBOX_ANALYSIS_FIND_WAVES_H_

#include <span>
#include <vector>

#include "analysis/wave.h"

namespace Analysis {

// Appends the waves of the record in the order of time. The interval between samples is in seconds.
// With `wrap` the record is cyclic: the part after the last crossing and the part before the first
// one form a wave. Otherwise both parts are discarded.
void append_waves(std::vector<Wave>& waves, std::span<const double> samples, double interval,
                  bool wrap);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_FIND_WAVES_H_
