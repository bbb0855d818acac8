// The statistics of the wave at a point, under the names that the analysis of a measured record
// uses.
#ifndef KELPBOX_POINT_POINT_STATS_H_
#define KELPBOX_POINT_POINT_STATS_H_

#include "base/params.h"
#include "maths/front_set.h"
#include "maths/tank_run.h"
#include "point/surface_point.h"

namespace Synthesis {

// Reads "rate", which must be that of the point. Adds "reg_t" and "reg_h" for a regular wave,
// otherwise "max_amp", "sig_t" and "sig_h", and in both cases "Hs", "Ts" and "Var". Treats the
// record as cyclic. Throws std::string "Insufficient zero crossings in time series", "Insufficient
// points for irregular wave analysis", "\"<name>\"::Duplicate parameter:" for a result that is
// already there, and as surface_at and require_point_memory.
void point_stats(const Maths::FrontSet& fronts, Maths::TankRun& run, const PointSpec& point,
                 Base::Params& params);

}  // namespace Synthesis

#endif  // KELPBOX_POINT_POINT_STATS_H_
