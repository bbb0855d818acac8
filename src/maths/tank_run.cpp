#include "maths/tank_run.h"

#include <cmath>
#include <limits>
#include <string>

#include "base/constants.h"
#include "maths/angle.h"
#include "maths/dispersion.h"
#include "maths/power_of_two.h"
#include "maths/shoaling.h"

namespace Maths {

double TankRun::omega(std::uint64_t harmonic) const { return run_.freq(harmonic) * Base::TwoPi; }

double TankRun::depth_at(double x) const {
  const std::vector<ProfilePoint>& profile = tank_.profile;
  if (profile.size() < 2) throw std::string("TankConfig not built");
  // The first point on purpose, wherever the paddle line is: hosts rely on this depth at 0.
  if (x == 0.0) return profile.front().depth;
  const std::size_t i = segment_of(x);
  const double t = (x - profile[i].x) / (profile[i + 1].x - profile[i].x);
  return (1 - t) * profile[i].depth + t * profile[i + 1].depth;
}

std::size_t TankRun::segment_of(double x) const {
  if (!(x <= tank_.x_high && x >= tank_.x_low)) throw_outside(x);
  const std::vector<ProfilePoint>& profile = tank_.profile;
  const std::size_t count = profile.size();
  if (count == 2) return 0;
  if (count < 2) throw std::string("TankConfig not built");
  std::size_t i = 0;
  for (std::size_t step = next_pow2(count) / 2; step != 0; step /= 2) {
    if (i + step < count - 1 && x > profile[i + step].x) i = i + step;
  }
  return i;
}

void TankRun::depth_samples(std::vector<double>& out, double dx) const {
  tank_.profile_samples(dx, out);
}

void TankRun::build_ladder(std::uint64_t harmonic, double x) {
  ladder_.clear();
  ladder_harmonic_ = harmonic;
  ladder_x_ = x;
  if (std::isnan(x)) throw_outside(x);
  const double w = omega(harmonic);
  lead_to(x);
  push_rung(0.0, wave_num(w, tank_.paddle_depth));
  for (const PathPiece& piece : path_.pieces) push_rung(piece.dx, wave_num(w, piece.depth));
  if (!path_.inside) throw_outside(x);
  ladder_end_depth_ = path_.end_depth;
  push_rung(0.0, wave_num(w, ladder_end_depth_));
}

void TankRun::lead_to(double x) {
  if (x == path_x_) return;
  path_x_ = std::numeric_limits<double>::quiet_NaN();  // until the path is complete
  path_.lead_to(tank_, x);
  path_x_ = x;
}

void TankRun::push_rung(double dx, double k) { ladder_.push_back({dx, k, k * k}); }

double TankRun::wave_num(double omega, double depth) const {
  // Neighbouring pieces, and the two ends, are often equally deep.
  if (omega != last_.omega || depth != last_.depth) {
    const double k = knum(omega, depth, tank_.g);
    last_ = {omega, depth, k};
  }
  return last_.k;
}

void TankRun::ensure_ladder(std::uint64_t harmonic, double x) {
  if (harmonic == ladder_harmonic_ && std::fabs(x - ladder_x_) <= 1e-6) return;
  build_ladder(harmonic, x);
}

double TankRun::wave_num_at(std::uint64_t harmonic, double x) const {
  if (harmonic == ladder_harmonic_ && !ladder_.empty()) {
    if (std::fabs(x) < 1e-6) return ladder_.front().k;
    if (std::fabs(x - ladder_x_) < 1e-6) return ladder_.back().k;
  }
  return wave_num(omega(harmonic), depth_at(x));
}

double TankRun::shoaling(std::uint64_t harmonic, double x) {
  ensure_ladder(harmonic, x);
  if (tank_.paddle_depth == ladder_end_depth_) return 1.0;
  if (ladder_.empty()) throw std::string("knum is empty");
  const double k0 = ladder_.front().k;
  const double k1 = ladder_.back().k;
  run_.require_harmonic(harmonic);
  return shoaling_factor(group_factor(tank_.paddle_depth, k0), k0,
                         group_factor(ladder_end_depth_, k1), k1);
}

double TankRun::phase_lag(std::uint64_t harmonic, double x, double y, double theta) {
  ensure_ladder(harmonic, x);
  if (ladder_.empty()) throw std::string("knum is empty");
  const double s = std::sin(theta);
  const double k0 = ladder_.front().k;
  const double k0sq = ladder_.front().k2;
  double sum = 0.0;
  for (std::size_t i = 1; i + 1 < ladder_.size(); ++i) {
    sum = sum + std::sqrt(ladder_[i].k2 - s * s * k0sq) * ladder_[i].dx;
  }
  if (std::cos(theta) < 0) sum = -sum;
  return y * k0 * s + sum;
}

bool TankRun::angle_in_range(double theta) const {
  const double t = wrap_angle(theta);
  const double low = tank_.min_angle;
  const double high = tank_.max_angle;
  if (high == low) return true;
  if (high > low) return low <= t && t <= high;
  return t <= high || t >= low;  // the range passes through pi
}

}  // namespace Maths
