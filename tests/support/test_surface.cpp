#include "support/test_surface.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "support/test_site.h"

namespace Testing {
namespace {

constexpr double two_pi = 2.0 * std::numbers::pi;

// The depth of a tabulated profile, which starts at the paddle line.
double depth_at(const Maths::TankConfig& tank, double x) {
  for (std::size_t i = 1; i < tank.profile.size(); ++i) {
    const Maths::ProfilePoint& a = tank.profile[i - 1];
    const Maths::ProfilePoint& b = tank.profile[i];
    if (x <= b.x && b.x > a.x) return a.depth + (b.depth - a.depth) * (x - a.x) / (b.x - a.x);
  }
  return tank.profile.back().depth;
}

}  // namespace

double group_factor(double k, double depth) {
  return 1.0 + 2.0 * k * depth / std::sinh(2.0 * k * depth);
}

double Arrival::at(double y, double t) const {
  return amp * std::cos(omega * t - along - ky * y + phase);
}

std::vector<Arrival> arrivals(const Maths::TankConfig& tank,
                              const std::vector<Synthesis::Front>& fronts, double x) {
  const double end_depth = depth_at(tank, x);
  std::vector<Arrival> result;
  for (const Synthesis::Front& front : fronts) {
    const double omega = two_pi * front.freq;
    const double k0 = wave_number(omega, tank.paddle_depth);
    const double k1 = wave_number(omega, end_depth);
    const double ky = k0 * std::sin(front.angle);
    double along = 0.0;
    for (std::size_t i = 1; i < tank.profile.size(); ++i) {
      const double from = tank.profile[i - 1].x;
      const double to = std::min(tank.profile[i].x, x);
      if (to - from < 1e-6) continue;
      const double depth = 0.5 * (tank.profile[i - 1].depth +
                                  (to < tank.profile[i].x ? end_depth : tank.profile[i].depth));
      const double k = wave_number(omega, depth);
      along += std::sqrt(k * k - ky * ky) * (to - from);
    }
    if (std::cos(front.angle) < 0.0) along = -along;
    const double speed0 = group_factor(k0, tank.paddle_depth) / k0;
    const double speed1 = group_factor(k1, end_depth) / k1;
    result.push_back({omega, front.amp * std::sqrt(speed0 / speed1), along, ky, front.phase});
  }
  return result;
}

double surface(const std::vector<Arrival>& arrivals, double y, double t) {
  double sum = 0.0;
  for (const Arrival& arrival : arrivals) sum += arrival.at(y, t);
  return sum;
}

double surface(const Maths::TankConfig& tank, const std::vector<Synthesis::Front>& fronts, double x,
               double y, double t) {
  return surface(arrivals(tank, fronts, x), y, t);
}

}  // namespace Testing
