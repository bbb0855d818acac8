// The search for one zero crossing with vector instructions.
#ifndef KELPBOX_ANALYSIS_NEXT_CROSSING_H_
#define KELPBOX_ANALYSIS_NEXT_CROSSING_H_

#include <cstddef>

namespace Analysis {

// The index of the first sample above 0 whose predecessor is 0 or below, or `count`. Reads the
// sample before the first one too. Raises the crest, which is 0 or above, and lowers the trough,
// which is 0 or below, to the extremes of the samples before that index. NaN is
// neither a crossing nor an extreme.
std::size_t next_crossing(const double* samples, std::size_t count, double& crest, double& trough);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_NEXT_CROSSING_H_
