#include "point/point_fronts.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "maths/dispersion.h"

namespace Synthesis {
namespace {

using Harmonic = Maths::CarriedFronts::Harmonic;

// The first slot that has fronts.
std::size_t next_filled(const Maths::FrontSet& fronts, std::size_t slot, std::size_t top) {
  while (slot < top && fronts.slots[slot].empty()) ++slot;
  return slot;
}

// The end of a part of the slots that stays in the cache and is long enough for vectors.
std::size_t end_of_part(const Maths::FrontSet& fronts, std::size_t first, std::size_t top) {
  constexpr std::size_t most_slots = 256;
  constexpr std::size_t most_fronts = 1024;
  std::size_t count = 0;
  std::size_t last = first;
  while (last < top && last - first < most_slots && count < most_fronts) {
    count += fronts.slots[last++].size();
  }
  return last;
}

// A front outside the tank's angle limits keeps its slot with amplitude 0.
bool all_refused(const std::vector<Maths::HarmonicFront>& slot) {
  return std::all_of(slot.begin(), slot.end(),
                     [](const Maths::HarmonicFront& front) { return front.amp == 0.0; });
}

}  // namespace

void PointWaves::take() {
  cosines.resize(phases.size());
  sines.resize(phases.size());
  // Of the C library, to the last bit: it decides between two sectors for a direction halfway.
  for (std::size_t i = 0; i < phases.size(); ++i) {
    cosines[i] = std::cos(phases[i]);
    sines[i] = std::sin(phases[i]);
  }
}

std::uint64_t PointFronts::memory(const Maths::FrontSet& fronts, std::size_t top) {
  std::uint64_t most = 0;
  for (std::size_t first = next_filled(fronts, 0, top); first < top;) {
    const std::size_t last = end_of_part(fronts, first, top);
    std::uint64_t count = 0;
    for (std::size_t slot = first; slot < last; ++slot) count += fronts.slots[slot].size();
    const std::uint64_t harmonics = last - first;
    constexpr std::uint64_t of_waves = std::uint64_t{9} * sizeof(double);
    most = std::max(most, Maths::CarriedFronts::memory(count, harmonics) + of_waves * count +
                              2 * sizeof(double) * harmonics);
    first = next_filled(fronts, last, top);
  }
  return most;
}

PointFronts::PointFronts(const Maths::FrontSet& fronts, std::size_t top, Maths::TankRun& run,
                         const PointSpec& point, Purpose purpose)
    : fronts_(fronts), top_(top), run_(run), point_(point), purpose_(purpose) {}

bool PointFronts::next() {
  next_slot_ = next_filled(fronts_, next_slot_, top_);
  if (next_slot_ == top_) return false;
  try {
    take_next();
  } catch (const std::string&) {
    fail_in_order();
    throw;
  }
  return true;
}

void PointFronts::take_next() {
  if (!carried_ && purpose_ == both) {
    // The surface comes first, and leaves the ladder of its last harmonic to the directions.
    std::size_t last = top_ - 1;
    while (fronts_.slots[last].empty()) --last;
    run_.shoaling(last, point_.x);
  }
  static_cast<void>(run_.depth_at(point_.x));  // throws outside the tank
  const std::size_t last = end_of_part(fronts_, next_slot_, top_);
  carried_.emplace(run_.tank(), run_.run(), fronts_, next_slot_, last);
  next_slot_ = last;
  carried_->carry_to(point_.x, [] { return true; });
  waves_.phases.resize(carried_->amps().size());
  for (const Harmonic& harmonic : carried_->harmonics()) {
    for (std::size_t i = harmonic.first; i < harmonic.last; ++i) {
      const double across = point_.y * harmonic.k0 * carried_->angle_sines()[i];
      waves_.phases[i] = carried_->phases()[i] - (across + carried_->lags()[i]);
    }
  }
  waves_.take();
}

const PointSteps& PointFronts::take_steps() {
  try {
    take_wave_numbers();
  } catch (const std::string&) {
    fail_in_order();
    throw;
  }
  const std::vector<Harmonic>& harmonics = carried_->harmonics();
  steps_.along.phases.resize(waves_.phases.size());
  steps_.across.phases.resize(waves_.phases.size());
  for (std::size_t h = 0; h < harmonics.size(); ++h) {
    constexpr double step_phase = 0.1;  // radians at the local wave number
    const double d = step_phase / k1_[h];
    for (std::size_t i = harmonics[h].first; i < harmonics[h].last; ++i) {
      const double psi = waves_.phases[i];
      steps_.along.phases[i] = psi + carried_->angle_cosines()[i] * k0_[h] * d;
      steps_.across.phases[i] = psi + carried_->angle_sines()[i] * k0_[h] * d;
    }
  }
  steps_.along.take();
  steps_.across.take();
  return steps_;
}

void PointFronts::take_wave_numbers() {
  const std::vector<Harmonic>& harmonics = carried_->harmonics();
  k0_.resize(harmonics.size());
  k1_.resize(harmonics.size());
  std::size_t h = 0;
  // Only for the first harmonic with fronts can the ladder be there. Hosts rely on the depths that
  // the others take, which are those of the profile.
  for (; h < harmonics.size() && ladder_kept_; ++h) {
    k0_[h] = run_.wave_num_at(harmonics[h].index, 0.0);
    k1_[h] = run_.wave_num_at(harmonics[h].index, point_.x);
    ladder_kept_ = harmonics[h].first == harmonics[h].last;
  }
  if (h == harmonics.size()) return;
  const auto take = [&](double depth, double known, double Harmonic::*k, std::vector<double>& out) {
    if (depth == known) {
      for (std::size_t i = h; i < harmonics.size(); ++i) out[i] = harmonics[i].*k;
    } else {
      Maths::knums(carried_->omegas().data() + h, depth, run_.tank().g, harmonics.size() - h,
                   out.data() + h);
    }
  };
  take(run_.depth_at(0.0), run_.tank().paddle_depth, &Harmonic::k0, k0_);
  take(run_.depth_at(point_.x), carried_->end_depth(), &Harmonic::k1, k1_);
}

void PointFronts::fail_in_order() const {
  Maths::TankRun plain(run_.tank(), run_.run());
  for (std::size_t h = 0; h < top_ && purpose_ != directions; ++h) {
    if (fronts_.slots[h].empty()) continue;
    static_cast<void>(plain.depth_at(point_.x));
    plain.shoaling(h, point_.x);
  }
  for (std::size_t h = 0; h < top_ && purpose_ != surface; ++h) {
    if (fronts_.slots[h].empty()) continue;
    static_cast<void>(plain.wave_num_at(h, 0.0));
    static_cast<void>(plain.wave_num_at(h, point_.x));
    if (!all_refused(fronts_.slots[h])) plain.shoaling(h, point_.x);
  }
}

}  // namespace Synthesis
