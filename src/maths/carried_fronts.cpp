#include "maths/carried_fronts.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/constants.h"
#include "maths/dispersion.h"
#include "maths/shoaling.h"
#include "maths/snell_sum.h"

namespace Maths {

std::uint64_t CarriedFronts::memory(std::uint64_t fronts, std::uint64_t harmonics) {
  constexpr std::uint64_t of_front = 8 * sizeof(double);
  constexpr std::uint64_t of_harmonic = sizeof(Harmonic) + 4 * sizeof(double);
  return of_front * fronts + of_harmonic * harmonics;
}

CarriedFronts::CarriedFronts(const TankConfig& tank, const RunData& run, const FrontSet& fronts,
                             std::size_t first, std::size_t last)
    : tank_(tank), run_(run) {
  std::size_t filled = 0;
  std::size_t count = 0;
  for (std::size_t slot = first; slot < last; ++slot) {
    filled += fronts.slots[slot].empty() ? 0 : 1;
    count += fronts.slots[slot].size();
  }
  harmonics_.reserve(filled);
  amps_.reserve(count);
  phases_.reserve(count);
  std::vector<double>& angles = lags_;  // until the first lags are there
  angles.reserve(count);
  for (std::size_t slot = first; slot < last; ++slot) {
    if (fronts.slots[slot].empty()) continue;
    Harmonic harmonic;
    harmonic.index = slot;
    harmonic.first = amps_.size();
    for (const HarmonicFront& front : fronts.slots[slot]) {
      if (front.amp == 0.0) continue;
      amps_.push_back(front.amp);
      phases_.push_back(front.phase);
      angles.push_back(front.angle);
    }
    harmonic.last = amps_.size();
    harmonics_.push_back(harmonic);
  }
  // To the last bit: near a right angle the lag is the root of a difference of almost equal
  // numbers.
  sines_.reserve(count);
  cosines_.reserve(count);
  for (const double angle : angles) {
    sines_.push_back(std::sin(angle));
    cosines_.push_back(std::cos(angle));
  }
}

bool CarriedFronts::WaveNumbers::take(const std::vector<double>& omegas, double depth_now,
                                      double g) {
  if (depth_now == depth) return false;
  depth = std::numeric_limits<double>::quiet_NaN();  // until all are there
  k.resize(omegas.size());
  knums(omegas.data(), depth_now, g, omegas.size(), k.data());
  depth = depth_now;
  return true;
}

bool CarriedFronts::carry_to(double x, const std::function<bool()>& go_on) {
  if (harmonics_.empty()) return true;  // wherever x is: nothing has to go there
  if (omegas_.empty()) leave_paddles();
  path_.lead_to(tank_, x);
  if (!path_.inside) throw_outside(x);
  if (!follow_path(go_on)) return false;
  take_shoaling();
  return true;
}

void CarriedFronts::leave_paddles() {
  std::vector<double> omegas;
  omegas.reserve(harmonics_.size());
  for (const Harmonic& harmonic : harmonics_) {
    omegas.push_back(run_.freq(harmonic.index) * Base::TwoPi);
  }
  at_end_.take(omegas, tank_.paddle_depth, tank_.g);
  k2_.resize(amps_.size());
  ky2_.resize(amps_.size());
  group_factors_.resize(harmonics_.size());
  for (std::size_t h = 0; h < harmonics_.size(); ++h) {
    Harmonic& harmonic = harmonics_[h];
    harmonic.k0 = at_end_.k[h];
    harmonic.k1 = harmonic.k0;
    group_factors_[h] = group_factor(tank_.paddle_depth, harmonic.k0);
    const double k0_squared = harmonic.k0 * harmonic.k0;
    for (std::size_t i = harmonic.first; i < harmonic.last; ++i) {
      ky2_[i] = sines_[i] * sines_[i] * k0_squared;
    }
  }
  sums_.assign(amps_.size(), 0.0);
  omegas_ = std::move(omegas);
}

bool CarriedFronts::follow_path(const std::function<bool()>& go_on) {
  const std::vector<PathPiece>& pieces = path_.pieces;
  const std::size_t whole = pieces.empty() ? 0 : pieces.size() - 1;
  if (passed_.size() > whole || !std::equal(passed_.begin(), passed_.end(), pieces.begin())) {
    passed_.clear();
    std::fill(sums_.begin(), sums_.end(), 0.0);
  }
  for (std::size_t i = passed_.size(); i < whole; ++i) {
    if (!go_on()) return false;
    add_lags(pieces[i], sums_, sums_);
    passed_.push_back(pieces[i]);
  }
  if (pieces.empty()) {
    std::copy(sums_.begin(), sums_.end(), lags_.begin());
  } else {
    add_lags(pieces.back(), sums_, lags_);
  }
  for (std::size_t i = 0; i < lags_.size(); ++i) {
    if (cosines_[i] < 0) lags_[i] = -lags_[i];
  }
  return true;
}

void CarriedFronts::add_lags(const PathPiece& piece, const std::vector<double>& from,
                             std::vector<double>& to) {
  if (on_piece_.take(omegas_, piece.depth, tank_.g)) {
    for (std::size_t h = 0; h < harmonics_.size(); ++h) {
      const double k = on_piece_.k[h];
      for (std::size_t i = harmonics_[h].first; i < harmonics_[h].last; ++i) k2_[i] = k * k;
    }
  }
  add_piece(k2_.data(), ky2_.data(), piece.dx, to.size(), from.data(), to.data());
}

void CarriedFronts::take_shoaling() {
  const double depth = path_.end_depth;
  if (!at_end_.take(omegas_, depth, tank_.g)) return;
  for (std::size_t h = 0; h < harmonics_.size(); ++h) {
    const double k1 = at_end_.k[h];
    harmonics_[h].k1 = k1;
    harmonics_[h].shoaling =
        depth == tank_.paddle_depth
            ? 1.0
            : shoaling_factor(group_factors_[h], harmonics_[h].k0, group_factor(depth, k1), k1);
  }
}

}  // namespace Maths
