#include "maths/angle.h"

#include <cmath>

#include "base/constants.h"

namespace Maths {

double wrap_angle(double theta) {
  // Turns are subtracted one by one, which would take forever for a very large angle.
  if (!(std::fabs(theta) <= 1e6)) theta = std::remainder(theta, Base::TwoPi);
  while (theta > Base::Pi) theta -= Base::TwoPi;
  while (theta < -Base::Pi) theta += Base::TwoPi;
  return theta;
}

}  // namespace Maths
