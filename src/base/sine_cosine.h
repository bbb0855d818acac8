// The sine and the cosine of each angle of an array, with the vector instructions of the machine.
//
// Results differ from the exact ones by at most 1.2e-16. They have the same bits on every
// instruction set up to an angle of 1.6e6, and are those of std::sin and std::cos above it. The
// sine of -0 is -0. Infinite angles and NaN give NaN.
#ifndef KELPBOX_BASE_SINE_COSINE_H_
#define KELPBOX_BASE_SINE_COSINE_H_

#include <cstddef>

namespace Base {

// `angles` (rad), `sines` and `cosines` each hold `count` values and do not overlap.
void sine_cosine(const double* angles, std::size_t count, double* sines, double* cosines);

}  // namespace Base

#endif  // KELPBOX_BASE_SINE_COSINE_H_
