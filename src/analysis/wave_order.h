// Sorting of waves.
#ifndef KELPBOX_ANALYSIS_WAVE_ORDER_H_
#define KELPBOX_ANALYSIS_WAVE_ORDER_H_

#include <vector>

#include "analysis/wave.h"

namespace Analysis {

// Sorts by a rising key in the order of total_order.h. The result is that of std::sort, also where
// keys are equal: the wave at one place of a sorted list is a result that hosts see.
void sort_waves(std::vector<Wave>& waves, double (Wave::*key)() const);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_WAVE_ORDER_H_
