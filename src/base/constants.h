// Pi and two pi, computed from atan2 when the library is loaded.
#ifndef KELPBOX_BASE_CONSTANTS_H_
#define KELPBOX_BASE_CONSTANTS_H_

namespace Base {

extern const double Pi;     // 4 atan2(1, 1)
extern const double TwoPi;  // 8 atan2(1, 1): also the radians per second of one hertz

}  // namespace Base

#endif  // KELPBOX_BASE_CONSTANTS_H_
