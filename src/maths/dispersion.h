// Linear dispersion: the wave number of a frequency in water of a given depth.
#ifndef KELPBOX_MATHS_DISPERSION_H_
#define KELPBOX_MATHS_DISPERSION_H_

#include <cstddef>

namespace Maths {

// The wave number k (rad/m) that solves omega^2 = g k tanh(k depth), from the explicit
// approximation of Guo (2002), "Simple and explicit solution of wave dispersion equation",
// Coastal Engineering 45, with one Newton step on the relation. omega in rad/s, depth in m, g in
// m/s2. Throws std::string "Knum calculation failed for omega=..." when the step is too large or
// NaN.
//
// The operations and their order are fixed. Whether a front at the limit of the tank's angles is
// made depends on the last bit of its wave numbers.
double knum(double omega, double depth, double g);

// The wave numbers of `count` frequencies at one depth. Throws what `knum` throws for the first one
// that fails.
void knums(const double* omegas, double depth, double g, std::size_t count, double* out);

}  // namespace Maths

#endif  // KELPBOX_MATHS_DISPERSION_H_
