// Oblique waves between side walls, which exist only as the cross-tank modes that fit the width.
//
// Dalrymple (1989), "Directional wavemaker theory with sidewall reflection", Journal of Hydraulic
// Research 27(1).
#ifndef KELPBOX_MATHS_DALRYMPLE_H_
#define KELPBOX_MATHS_DALRYMPLE_H_

#include <vector>

#include "maths/front_set.h"
#include "maths/tank_run.h"

namespace Maths {

// Replaces the fronts of each harmonic by the modes of a tank of that width (m). A slot that is
// empty or holds a single front along the tank is not changed. Throws std::string "Dalrymple
// treatment::unusable number of modes for k * width = ...", and what FrontSet::append throws.
void dalrymple(FrontSet& set, const TankRun& tank, double width);

// Fills in the amplitude of each cross-tank mode for a front of amplitude 1 and angle `theta`
// (rad). k in rad/m, width in m. The size of the vector is the number of modes. Throws std::string
// "Too many mode in angle set for dalrymple_angles".
void dalrymple_angles(double k, double width, double theta, std::vector<double>& coefficients);

}  // namespace Maths

#endif  // KELPBOX_MATHS_DALRYMPLE_H_
