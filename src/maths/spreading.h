// The cosine-power law of directional spreading, its integral, and drawing from it.
#ifndef KELPBOX_MATHS_SPREADING_H_
#define KELPBOX_MATHS_SPREADING_H_

namespace Maths {

// cos^power(theta), for a power that is not a whole number by interpolation between whole powers
// of equal parity. Both throw std::string "Spreading power::..." for a power that is not a number
// or above 1e6.
double cos_power(double power, double theta);
// Its integral from 0 to theta, by the same interpolation. Above a power of 1000 the cost of both
// no longer grows with the power.
double cos_power_integral(double power, double theta);
// The angle below which the fraction of the energy between the two angles lies. Throws
// std::string "Minimum angle too small", "Maximum angle too big", "Maximum angle less than
// minimum angle", in this order.
double spread_angle(double fraction, double max_angle, double min_angle, double power);

}  // namespace Maths

#endif  // KELPBOX_MATHS_SPREADING_H_
