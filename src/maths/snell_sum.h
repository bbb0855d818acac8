// The phase lag of many fronts over one piece of the tank, with the vector instructions of the
// machine.
#ifndef KELPBOX_MATHS_SNELL_SUM_H_
#define KELPBOX_MATHS_SNELL_SUM_H_

#include <cstddef>

namespace Maths {

// to[i] = from[i] + sqrt(k2[i] - ky2[i]) dx for `count` fronts, where k2 and ky2 are the squares of
// the wave number on the piece and of the part of it across the tank, which Snell's law conserves.
// Rounded as these operations one by one, on every instruction set. `to` may be `from`.
void add_piece(const double* k2, const double* ky2, double dx, std::size_t count,
               const double* from, double* to);

}  // namespace Maths

#endif  // KELPBOX_MATHS_SNELL_SUM_H_
