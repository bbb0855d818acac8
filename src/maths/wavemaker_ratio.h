// Transfer ratios of segmented wavemakers: wave height to paddle motion.
//
// Linear wavemaker theory; see Dean and Dalrymple (1991), "Water Wave Mechanics for Engineers and
// Scientists", chapter 6. k in rad/m, lengths in m, angles in rad.
#ifndef KELPBOX_MATHS_WAVEMAKER_RATIO_H_
#define KELPBOX_MATHS_WAVEMAKER_RATIO_H_

namespace Maths {

// Wave height per radian of stroke of a flap hinged `e` below the water line; also amplitude for
// amplitude.
double flap_ratio(double k, double depth, double e);
// Wave height per metre of stroke of a piston that reaches `e` below the water line.
double piston_ratio(double k, double depth, double e);

// The same for a segment of width `w` that makes a wave at the angle `theta` to its normal.
double flap_ratio_angled(double k, double depth, double e, double w, double theta);
double piston_ratio_angled(double k, double depth, double e, double w, double theta);

// What a segment of width `w` loses at the angle `theta`: the divisor of the flap's ratio.
double obliquity_factor(double k, double w, double theta);

}  // namespace Maths

#endif  // KELPBOX_MATHS_WAVEMAKER_RATIO_H_
