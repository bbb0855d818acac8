// Linear dispersion: the wave number of a frequency in a depth of water.
#ifndef KELPBOX_MATHS_DISPERSION_H_
#define KELPBOX_MATHS_DISPERSION_H_

#include <cstdint>

namespace Maths {

// The wave number k (rad/m) that solves omega^2 = g k tanh(k depth), from the explicit
// approximation of Guo (2002), "Simple and explicit solution of wave dispersion equation",
// Coastal Engineering 45, with one Newton step on the relation. omega in rad/s, depth in m, g in
// m/s2. Throws std::string "Knum calculation failed for omega=..." when the step is too large or
// anything is not a number.
double knum(double omega, double depth, double g);

// The angle brought into the closed range from -pi to pi, both limits kept.
double wrap_angle(double theta);

// The smallest power of two not below n.
std::uint64_t next_pow2(std::uint64_t n);

}  // namespace Maths

#endif  // KELPBOX_MATHS_DISPERSION_H_
