// The way along the tank from the paddle line to a position, cut at each point of the depth
// profile. It is the same for all waves.
#ifndef KELPBOX_MATHS_TANK_PATH_H_
#define KELPBOX_MATHS_TANK_PATH_H_

#include <string>
#include <vector>

#include "maths/tank_config.h"

namespace Maths {

// A piece of the tank, taken as a channel of its mean depth.
struct PathPiece {
  double dx = 0.0;     // signed length
  double depth = 0.0;  // mean

  bool operator==(const PathPiece&) const = default;
};

struct TankPath {
  // Replaces the path by that to x. Only the last piece of a path depends on where it ends: the
  // others are the first pieces of every path that goes further in the same direction.
  void lead_to(const TankConfig& tank, double x);

  std::vector<PathPiece> pieces;  // from the paddle line on
  double end_depth = 0.0;
  // False for an x beyond the profile. The pieces up to its end are there.
  bool inside = false;
};

// Throws std::string "Value x=<x> is outside dimensions of tank".
[[noreturn]] void throw_outside(double x);

}  // namespace Maths

#endif  // KELPBOX_MATHS_TANK_PATH_H_
