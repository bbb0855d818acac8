// The change of a wave's amplitude with the depth, by conservation of energy flux.
#ifndef KELPBOX_MATHS_SHOALING_H_
#define KELPBOX_MATHS_SHOALING_H_

namespace Maths {

// Twice the ratio of group velocity to phase velocity.
double group_factor(double depth, double k);

// The ratio of the amplitude where the group factor is c1 and the wave number k1 to that where they
// are c0 and k0.
double shoaling_factor(double c0, double k0, double c1, double k1);

}  // namespace Maths

#endif  // KELPBOX_MATHS_SHOALING_H_
