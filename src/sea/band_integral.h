// The integral of a spectrum over the band of one harmonic.
#ifndef KELPBOX_SEA_BAND_INTEGRAL_H_
#define KELPBOX_SEA_BAND_INTEGRAL_H_

#include "expression/curve.h"

namespace Synthesis {

// The integral of a density over the band of that centre and width in Hz. The density is a function
// of frequency in Hz.
//
// The trapezium rule and the midpoint rule are refined together until they agree: each halving of
// the step reuses the values before it (Davis and Rabinowitz 1984, "Methods of Numerical
// Integration"). `last_end` is the density at the band's left edge on entry, and at its right edge
// on return, so that neighbouring bands share one evaluation.
double band_integral(const Expression::Curve& density, double centre, double width,
                     double& last_end);

}  // namespace Synthesis

#endif  // KELPBOX_SEA_BAND_INTEGRAL_H_
