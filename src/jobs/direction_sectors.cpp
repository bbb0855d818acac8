#include "jobs/direction_sectors.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "maths/angle.h"

namespace Jobs {
namespace {

constexpr double pi = std::numbers::pi;
constexpr double width = 2.0 * pi / sector_count;

// cos^power(scale d), by Simpson's rule.
struct CosinePower {
  double power = 0.0;
  double scale = 1.0;

  double at(double d) const { return std::pow(std::max(std::cos(scale * d), 0.0), power); }
  double integral(double from, double to) const {
    // It falls as exp(-power (scale d)^2 / 2).
    const double step = 0.125 / (scale * std::sqrt(std::max(power, 1.0)));
    const int pieces = 2 * std::max(static_cast<int>(std::ceil((to - from) / (2.0 * step))), 2);
    const double h = (to - from) / pieces;
    double sum = at(from) + at(to);
    for (int i = 1; i < pieces; ++i) sum += (i % 2 == 1 ? 4.0 : 2.0) * at(from + i * h);
    return sum * h / 3.0;
  }
};

}  // namespace

std::size_t sector_of(double direction) {
  const double from_first = Maths::wrap_angle(direction) - sector_edge(0);
  return static_cast<std::size_t>(std::max(from_first / width, 0.0)) % sector_count;
}

double sector_edge(std::size_t sector) { return -pi + (static_cast<double>(sector) - 0.5) * width; }

Sectors sector_shares(const SpreadLaw& law, double s) {
  Sectors shares{};
  if (!(s >= 0.0) || !std::isfinite(s)) {
    shares.fill(NAN);
    return shares;
  }
  CosinePower shape;
  shape.power = law.half_angle ? 2.0 * s : s;
  shape.scale = law.half_angle ? 0.5 : 1.0;
  // Nothing is left so many radians away.
  const double reach = std::min(10.0 / (shape.scale * std::sqrt(std::max(shape.power, 1e-6))),
                                law.half_angle ? pi : 0.5 * pi);
  const double lowest = law.limits_asked ? -std::min(law.below, reach) : -reach;
  const double highest = law.limits_asked ? std::min(law.above, reach) : reach;
  const double mean = Maths::wrap_angle(law.mean);
  double sum = 0.0;
  for (std::size_t i = 0; i < sector_count; ++i) {
    for (const double turn : {-2.0 * pi, 0.0, 2.0 * pi}) {
      const double from = std::max(sector_edge(i) + turn - mean, lowest);
      const double to = std::min(sector_edge(i + 1) + turn - mean, highest);
      if (to > from) shares[i] += shape.integral(from, to);
    }
    sum += shares[i];
  }
  if (!(sum > 0.0)) {  // limits that leave only the mean
    shares[sector_of(mean)] = 1.0;
    return shares;
  }
  for (double& share : shares) share /= sum;
  return shares;
}

DirectionGrid::DirectionGrid(std::uint64_t lowest_harmonic, std::uint64_t highest_harmonic)
    : lowest_(lowest_harmonic), highest_(std::max(highest_harmonic, lowest_harmonic)) {
  constexpr std::uint64_t most_rows = 2000;
  const std::uint64_t count = highest_ - lowest_ + 1;
  per_row_ = (count + most_rows - 1) / most_rows;
  rows_.resize((count + per_row_ - 1) / per_row_);
}

std::size_t DirectionGrid::row_of(std::uint64_t harmonic) const {
  return (std::clamp(harmonic, lowest_, highest_) - lowest_) / per_row_;
}

std::uint64_t DirectionGrid::first_harmonic(std::size_t row) const {
  return std::min(lowest_ + row * per_row_, highest_ + 1);
}

}  // namespace Jobs
