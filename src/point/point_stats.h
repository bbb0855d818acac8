// The statistics of the wave at a point, in the words of the analysis of a measured record.
#ifndef KELPBOX_POINT_POINT_STATS_H_
#define KELPBOX_POINT_POINT_STATS_H_

#include "base/params.h"
#include "maths/front_set.h"
#include "maths/tank_run.h"
#include "point/surface_point.h"

namespace Synthesis {

// Reads "rate", which must be the point's. Adds "reg_t" and "reg_h" for a regular wave, "max_amp",
// "sig_t" and "sig_h" for any other, then "Hs", "Ts" and "Var". The record closes on itself. Throws
// std::string "Insufficient zero crossings in time series", "Insufficient points for irregular
// wave analysis", and "\"<name>\"::Duplicate parameter:" for parameters that hold a result.
void point_stats(const Maths::FrontSet& fronts, Maths::TankRun& run, const PointSpec& point,
                 Base::Params& params);

}  // namespace Synthesis

#endif  // KELPBOX_POINT_POINT_STATS_H_
