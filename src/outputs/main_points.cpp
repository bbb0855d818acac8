#include "outputs/main_points.h"

#include <algorithm>
#include <cmath>

namespace Outputs {
namespace {

// How far a point of the profile is from the straight line between two others, in depth.
double distance(const Maths::ProfilePoint& point, const Maths::ProfilePoint& from,
                const Maths::ProfilePoint& to) {
  const double length = to.x - from.x;
  const double share = length > 0 ? (point.x - from.x) / length : 0.0;
  return std::abs(point.depth - (from.depth + share * (to.depth - from.depth)));
}

}  // namespace

// Takes the point that is furthest from the lines, again and again (Douglas and Peucker 1973).
std::vector<Maths::ProfilePoint> main_points(const std::vector<Maths::ProfilePoint>& profile,
                                             std::size_t most, double tolerance) {
  if (profile.size() < 2) return profile;
  double deepest = 0.0;
  for (const Maths::ProfilePoint& point : profile) deepest = std::max(deepest, point.depth);
  std::vector<std::size_t> kept{0, profile.size() - 1};
  while (kept.size() < most) {
    double furthest = tolerance * deepest;
    std::size_t best = 0;
    for (std::size_t part = 0; part + 1 < kept.size(); ++part) {
      for (std::size_t i = kept[part] + 1; i < kept[part + 1]; ++i) {
        const double off = distance(profile[i], profile[kept[part]], profile[kept[part + 1]]);
        if (off <= furthest) continue;
        furthest = off;
        best = i;
      }
    }
    if (best == 0) break;
    kept.insert(std::upper_bound(kept.begin(), kept.end(), best), best);
  }
  std::vector<Maths::ProfilePoint> points;
  points.reserve(kept.size());
  for (const std::size_t index : kept) points.push_back(profile[index]);
  return points;
}

}  // namespace Outputs
