#include "maths/tank_path.h"

#include <cstddef>

#include "base/compose.h"

namespace Maths {

void TankPath::lead_to(const TankConfig& tank, double x) {
  const std::vector<ProfilePoint>& profile = tank.profile;
  pieces.clear();
  end_depth = tank.paddle_depth;
  inside = x == 0;
  if (inside) return;
  const bool forward = x > 0;
  double x_prev = 0.0;
  double d_prev = tank.paddle_depth;
  // Backward, the walk starts at the paddle's own point and ends when the index passes 0 and wraps.
  std::size_t i = std::size_t{tank.paddle_index} + (forward ? 1 : 0);
  for (; i < profile.size(); forward ? ++i : --i) {
    double x_i = profile[i].x;
    double d_i = profile[i].depth;
    const double dx = x_i - x_prev;
    if ((forward ? dx : -dx) > 1e-6) {
      if (forward ? x <= x_i : x_i <= x) {
        const double t = (x_i - x) / dx;
        d_i = (1 - t) * d_i + t * d_prev;
        x_i = x;
      }
      pieces.push_back({x_i - x_prev, (d_prev + d_i) * 0.5});
    }
    x_prev = x_i;
    d_prev = d_i;
    if (x_i == x) {
      end_depth = d_i;
      inside = true;
      return;
    }
  }
}

void throw_outside(double x) {
  throw Base::compose("Value x=", x, " is outside dimensions of tank");
}

}  // namespace Maths
