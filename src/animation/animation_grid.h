// The points in space and time for which an animation is made.
#ifndef KELPBOX_ANIMATION_ANIMATION_GRID_H_
#define KELPBOX_ANIMATION_ANIMATION_GRID_H_

#include <algorithm>
#include <cstdint>

#include "base/params.h"
#include "maths/run_data.h"

namespace Synthesis {

// Points at equal steps from `min` to `max`, both included, in metres.
struct GridAxis {
  double min = 0.0;
  double max = 0.0;
  double step = 0.0;  // infinite for a single point, which lies at `min`
  std::uint32_t count = 0;

  // Rounding must not move the last point past `max`, which is often the end of the tank.
  double at(std::uint32_t i) const { return i == 0 ? min : std::min(i * step + min, max); }
};

struct AnimationGrid {
  GridAxis x;
  GridAxis y;
  std::uint32_t samples = 0;  // of one cycle
  std::uint32_t divisor = 1;  // harmonics of the repeat time for each harmonic of the cycle
  bool uniform = false;       // the surface does not vary with y
};

// The grid for "x_step", "y_step" and "rate" between "x_min" and "x_max", "y_min" and
// "y_max", with the steps fitted to whole divisions and the rate to whole samples of the repeat
// time, and written back. Throws std::string "x_max not greater than x_min", "y_max not greater
// than y_min", "<name>::<value> m gives no usable grid from <min> m to <max> m", what the
// parameters throw, "Repeat time zero or less" and what sample_count throws.
AnimationGrid fit_grid(const Maths::RunData& run, Base::Params& params);

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ANIMATION_GRID_H_
