// The properties of a tank that the wave computations use: a plain value that each run copies.
// src/site/make_config.cpp fills it from the site script.
#ifndef KELPBOX_MATHS_TANK_CONFIG_H_
#define KELPBOX_MATHS_TANK_CONFIG_H_

#include <cstdint>
#include <vector>

namespace Maths {

// A point of the depth profile: the depth and the position along the tank in metres, from the
// paddle line.
struct ProfilePoint {
  double depth = 0.0;
  double x = 0.0;

  bool operator==(const ProfilePoint&) const = default;
};

struct TankConfig {
  // The depths at x_low, x_low + delta_x, ... up to x_high, for a host's drawing. Throws
  // std::string "TankConfig not built" for a profile of fewer than two points, and "delta_x::..."
  // for a spacing that is not above 0 or gives more than ten million depths.
  void profile_samples(double delta_x, std::vector<double>& out) const;
  bool operator==(const TankConfig&) const = default;

  bool has_walls = false;  // side walls that reflect
  double width = 0.0;      // m, between the walls; twice the tank's for a single wall, a mirror
  double y_ref = 0.0;      // m, the crosswise position that phases refer to
  double min_angle = 0.0;  // rad, limits of the direction at the paddles
  double max_angle = 0.0;  // rad
  double g = 0.0;          // m/s2
  double base_rate = 0.0;  // Hz
  double x_low = 0.0;      // m, the ends of the tank
  double x_high = 0.0;
  std::uint32_t paddle_index = 0;     // of the paddle line in the profile
  double paddle_depth = 0.0;          // m, at x = 0
  std::vector<ProfilePoint> profile;  // in rising x
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_TANK_CONFIG_H_
