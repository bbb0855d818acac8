// The two constants of the whole process, computed once at load from atan2.
#ifndef KELPBOX_BASE_CONSTANTS_H_
#define KELPBOX_BASE_CONSTANTS_H_

namespace Base {

// 4 times and 8 times atan2(1, 1). TwoPi is also the factor between frequency (cycles per
// second) and angular rate (radians per second).
extern const double Pi;
extern const double TwoPi;

}  // namespace Base

#endif  // KELPBOX_BASE_CONSTANTS_H_
