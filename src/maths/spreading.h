// The cosine-power law of directional spreading, its integral, and draws from it. Angles in
// radians.
#ifndef KELPBOX_MATHS_SPREADING_H_
#define KELPBOX_MATHS_SPREADING_H_

#include <limits>

namespace Maths {

// cos^power(theta). A power that is not whole is interpolated between whole powers of equal parity.
// Both functions throw std::string "Spreading power::..." for a power that is NaN or above 1e6.
double cos_power(double power, double theta);
// Its integral from 0 to theta, by the same interpolation.
double cos_power_integral(double power, double theta);

// Draws of angles. Keeps what depends on the last range and power.
class SpreadAngles {
 public:
  // The angle below which the given fraction of the energy between the two angles lies, by Newton's
  // method. Throws std::string "Minimum angle too small", "Maximum angle too big", "Maximum angle
  // less than minimum angle", in this order, and what cos_power_integral throws.
  double draw(double fraction, double max_angle, double min_angle, double power);

 private:
  double max_angle_ = std::numeric_limits<double>::quiet_NaN();  // NaN: nothing is kept
  double min_angle_ = 0.0;
  double power_ = 0.0;
  double integral_to_max_ = 0.0;
  double integral_to_min_ = 0.0;
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_SPREADING_H_
