#include "maths/angle.h"

#include <cmath>

#include "base/constants.h"

namespace Maths {

double wrap_angle(double theta) {
  // Whole turns are subtracted one by one, which a very large angle would make endless.
  if (!(std::fabs(theta) <= 1e6)) theta = std::remainder(theta, Base::TwoPi);
  while (theta > Base::Pi) theta -= Base::TwoPi;
  while (theta < -Base::Pi) theta += Base::TwoPi;
  return theta;
}

}  // namespace Maths
