// Transfer ratios of segmented wavemakers: wave height to paddle motion.
//
// Linear wavemaker theory: Dean and Dalrymple (1991), "Water Wave Mechanics for Engineers and
// Scientists", chapter 6. Oblique waves from a row of segments: Biesel (1954), "Wave machines",
// Proceedings of the First Conference on Ships and Waves. k in rad/m, lengths in m, angles in rad.
#ifndef KELPBOX_MATHS_WAVEMAKER_RATIO_H_
#define KELPBOX_MATHS_WAVEMAKER_RATIO_H_

namespace Maths {

// Wave height per radian of stroke, or amplitude per amplitude, of a flap hinged `e` below the
// water line.
double flap_ratio(double k, double depth, double e);
// The same per metre of stroke of a piston that reaches `e` below the water line.
double piston_ratio(double k, double depth, double e);

// The same for a segment of width `w` that makes a wave at the angle `theta` to its normal.
double flap_ratio_angled(double k, double depth, double e, double w, double theta);
double piston_ratio_angled(double k, double depth, double e, double w, double theta);

// The motion of a segment of width `w` for a wave at the angle `theta` to its normal, relative to
// the motion for a wave along the normal. The angled ratios are the plain ones divided by this
// factor.
double obliquity_factor(double k, double w, double theta);

}  // namespace Maths

#endif  // KELPBOX_MATHS_WAVEMAKER_RATIO_H_
