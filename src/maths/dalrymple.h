// Oblique waves between side walls: a tank's width admits only the cross-tank modes that fit it.
//
// Dalrymple (1989), "Directional wavemaker theory with sidewall reflection", Journal of Hydraulic
// Research 27(1).
#ifndef KELPBOX_MATHS_DALRYMPLE_H_
#define KELPBOX_MATHS_DALRYMPLE_H_

#include <vector>

#include "maths/front_set.h"
#include "maths/tank_run.h"

namespace Maths {

// Replaces the fronts of each harmonic by the modes that a tank of that width admits. A slot that
// is empty or holds a single front along the tank is left alone. Throws std::string for a width
// that gives no usable number of modes.
void dalrymple(FrontSet& set, const TankRun& tank, double width);

// Fills one coefficient for each cross-tank mode; the caller has sized the vector. Throws
// std::string "Too many mode in angle set for dalrymple_angles".
void dalrymple_angles(double k, double width, double theta, std::vector<double>& coefficients);

}  // namespace Maths

#endif  // KELPBOX_MATHS_DALRYMPLE_H_
