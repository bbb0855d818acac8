// Brings directions and phases into one turn.
#ifndef KELPBOX_MATHS_ANGLE_H_
#define KELPBOX_MATHS_ANGLE_H_

namespace Maths {

// The angle (rad) in the closed range from -pi to pi. Both ends are kept as they are.
double wrap_angle(double theta);

}  // namespace Maths

#endif  // KELPBOX_MATHS_ANGLE_H_
