#include "outputs/field_thinning.h"

#include <algorithm>
#include <cmath>

#include "maths/dispersion.h"

namespace Outputs {
namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double gravity = 9.81;
constexpr double points_per_length = 8.0;
// A player that shows fewer frames of a long run shows no waves any more.
constexpr std::size_t least_frames = 20;

double wave_length(const PageFacts& facts) {
  const double omega = 2.0 * pi * facts.peak;
  if (!(facts.depth > 0.0)) return 2.0 * pi * gravity / (omega * omega);
  return 2.0 * pi / Maths::knum(omega, facts.depth, gravity);
}

// The largest factor that leaves so many steps.
std::size_t largest_factor(double available, double least) {
  const double factor = std::floor(available / least * (1.0 + 1e-12));
  return factor > 1.0 ? static_cast<std::size_t>(std::min(factor, 1e6)) : 1;
}

std::size_t largest_factor(const FieldAxis& axis, double length) {
  return axis.step > 0.0 ? largest_factor(length / axis.step, points_per_length) : 1;
}

}  // namespace

FieldThinning field_thinning(const FieldAxis& x, const FieldAxis& y, std::size_t frames,
                             double rate, const PageFacts& facts, std::size_t most_values) {
  const double length = wave_length(facts);
  const std::size_t most_x = largest_factor(x, length);
  const std::size_t most_y = largest_factor(y, length);
  const std::size_t most_time = thinning(rate, facts.peak);
  FieldThinning made;
  const auto points = [&] { return thinned(x.count, made.x) * thinned(y.count, made.y); };
  const auto fits = [&] { return points() * thinned(frames, made.time) <= most_values; };
  while (!fits() && (made.x < most_x || made.y < most_y)) {
    made.x = std::min(made.x + 1, most_x);
    made.y = std::min(made.y + 1, most_y);
  }
  while (!fits() && made.time < most_time) ++made.time;
  const std::size_t wanted = std::min(least_frames, thinned(frames, made.time));
  while (points() * wanted > most_values) {
    ++made.x;
    ++made.y;
  }
  made.most_frames = std::min(thinned(frames, made.time), most_values / points());
  return made;
}

std::size_t first_frame(std::size_t frames, std::size_t kept, std::size_t every,
                        std::size_t wanted) {
  const std::size_t half = kept / 2 * every;
  const std::size_t last = frames - ((kept - 1) * every + 1);  // the latest that fits
  return std::min(wanted > half ? wanted - half : 0, last);
}

}  // namespace Outputs
