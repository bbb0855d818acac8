// A point of the tank and the samples of the wave there.
#ifndef KELPBOX_POINT_POINT_SPEC_H_
#define KELPBOX_POINT_POINT_SPEC_H_

#include <cstdint>

namespace Synthesis {

struct PointSpec {
  double x = 0.0;             // metres
  double y = 0.0;             // metres
  std::uint32_t samples = 0;  // in one repeat time
};

}  // namespace Synthesis

#endif  // KELPBOX_POINT_POINT_SPEC_H_
