// Wave numbers of waves that are not very long, several at a time with the vector instructions of
// the machine. maths/dispersion.h has the formula for all waves.
#ifndef KELPBOX_MATHS_SHORT_WAVES_H_
#define KELPBOX_MATHS_SHORT_WAVES_H_

#include <cstddef>

namespace Maths {

// Each fills `out` with `count` wave numbers, which differ by rounding from those of the published
// formula. NaN where depth omega^2 / g is below 1/16, where the rounding would be magnified, and
// where the formula is refused.
void short_waves(const double* omegas, double depth, double g, std::size_t count, double* out);
void short_waves(double omega, const double* depths, double g, std::size_t count, double* out);

double short_wave(double omega, double depth, double g);

}  // namespace Maths

#endif  // KELPBOX_MATHS_SHORT_WAVES_H_
