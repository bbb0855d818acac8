// The walk along the bottom: from a tank's sections to its table of depths.
#ifndef KELPBOX_SITE_TANK_PROFILE_H_
#define KELPBOX_SITE_TANK_PROFILE_H_

#include "maths/tank_config.h"
#include "site/tank.h"

namespace Common {

// Fills `profile`, `paddle_index` and `paddle_depth`. Each section contributes a point at its start
// and one at its end, so two points share an x at a step in the bottom. Throws std::string for a
// sloping section that cannot be followed.
void make_profile(const Tank& tank, Maths::TankConfig& out);

}  // namespace Common

#endif  // KELPBOX_SITE_TANK_PROFILE_H_
