// The tank as wave mathematics sees it: a plain value that each run copies.
#ifndef KELPBOX_MATHS_TANK_CONFIG_H_
#define KELPBOX_MATHS_TANK_CONFIG_H_

#include <cstdint>
#include <vector>

namespace Maths {

// A point of the depth profile: depth and position along the tank, metres, x from the paddle line.
struct ProfilePoint {
  double depth = 0.0;
  double x = 0.0;
};

struct TankConfig {
  // The depths at x_low, x_low + delta_x, ..., floor((x_high - x_low) / delta_x) + 1 of them, for
  // a host's drawing. Throws std::string "TankConfig not built" with fewer than two points, and
  // "delta_x::..." for a spacing that is not above 0 or gives more than ten million depths.
  void profile_samples(double delta_x, std::vector<double>& out) const;

  bool has_walls = false;  // side walls that reflect
  double width = 0.0;      // between the walls; twice the tank for a single wall, which mirrors it
  double y_ref = 0.0;      // crosswise reference position
  double min_angle = 0.0;  // radians
  double max_angle = 0.0;
  double g = 0.0;          // m/s2
  double base_rate = 0.0;  // Hz
  double x_low = 0.0;
  double x_high = 0.0;
  std::uint32_t paddle_index = 0;     // of the paddle line's point in the profile
  double paddle_depth = 0.0;          // at x = 0
  std::vector<ProfilePoint> profile;  // in rising x
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_TANK_CONFIG_H_
