// The points of a depth profile that draw its shape.
#ifndef KELPBOX_OUTPUTS_MAIN_POINTS_H_
#define KELPBOX_OUTPUTS_MAIN_POINTS_H_

#include <cstddef>
#include <vector>

#include "maths/tank_config.h"

namespace Outputs {

// At most `most` points of a profile: those between which straight lines differ least from it. Ends
// early when no point is further from the lines than `tolerance` of the greatest depth.
std::vector<Maths::ProfilePoint> main_points(const std::vector<Maths::ProfilePoint>& profile,
                                             std::size_t most, double tolerance);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_MAIN_POINTS_H_
