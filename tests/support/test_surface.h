// The surface from fronts at the paddle line, summed wave by wave: a second way to what the library
// does by transforms.
#ifndef KELPBOX_TESTS_SUPPORT_TEST_SURFACE_H_
#define KELPBOX_TESTS_SUPPORT_TEST_SURFACE_H_

#include <vector>

#include "maths/front.h"
#include "maths/tank_config.h"

namespace Testing {

// Group velocity over phase speed, times two.
double group_factor(double k, double depth);

// The surface at a point, x at least 0. Crests bend so that the crosswise wave number stays, and
// the lengthwise one is summed piece by piece of the profile at the mean depth. Amplitudes follow
// the flux of energy, a^2 times the group velocity.
double surface(const Maths::TankConfig& tank, const std::vector<Synthesis::Front>& fronts, double x,
               double y, double t);

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_TEST_SURFACE_H_
