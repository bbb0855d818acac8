#include "maths/tank_config.h"

#include <cmath>
#include <cstddef>
#include <string>

#include "base/compose.h"

namespace Maths {
namespace {

std::size_t sample_count(double length, double delta_x) {
  if (!(delta_x > 0.0) || std::isinf(delta_x)) {
    throw Base::compose("delta_x::Sample spacing must be above 0 but is ", delta_x);
  }
  const double count = std::floor(length / delta_x) + 1;
  constexpr double most_samples = 1e7;
  if (!(count <= most_samples)) {
    throw Base::compose("delta_x::Too many depth samples for a spacing of ", delta_x);
  }
  return count > 0.0 ? static_cast<std::size_t>(count) : 0;
}

}  // namespace

void TankConfig::profile_samples(double delta_x, std::vector<double>& out) const {
  out.clear();
  if (profile.size() < 2) throw std::string("TankConfig not built");
  const std::size_t count = sample_count(x_high - x_low, delta_x);
  out.reserve(count);
  std::size_t j = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = static_cast<double>(i) * delta_x + x_low;
    while (j + 2 < profile.size() && x > profile[j + 1].x) ++j;
    const ProfilePoint& from = profile[j];
    const ProfilePoint& to = profile[j + 1];
    const double length = to.x - from.x;
    const double t = length < 1e-6 ? 1.0 : (to.x - x) / length;
    out.push_back((1 - t) * to.depth + t * from.depth);
  }
}

}  // namespace Maths
