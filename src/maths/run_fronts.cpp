#include "maths/run_fronts.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <string>
#include <utility>

#include "base/constants.h"
#include "base/memory.h"
#include "base/near.h"
#include "maths/dalrymple.h"

namespace Maths {
namespace {

using Slot = std::vector<HarmonicFront>;

double energy(const Slot& fronts) {
  double sum = 0.0;
  for (const HarmonicFront& front : fronts) sum += front.amp * front.amp;
  return sum;
}

// Gives the whole energy of a harmonic to the first front of a list.
void take_all(Slot& fronts, double total) {
  if (fronts.empty()) return;
  fronts.resize(1);
  fronts.front().amp = std::sqrt(total);
}

std::size_t common_slots(const std::vector<FrontSet>& sets) {
  std::size_t count = sets.empty() ? 0 : sets.front().slots.size();
  for (const FrontSet& set : sets) count = std::min(count, set.slots.size());
  return count;
}

std::complex<double> amplitude(const HarmonicFront& front) {
  // A front that the tank refuses keeps its slot with no amplitude; its phase may be NaN.
  if (front.amp == 0.0 && !std::isfinite(front.phase)) return 0.0;
  return {front.amp * std::cos(front.phase), front.amp * std::sin(front.phase)};
}

// NaN differs from nothing.
bool differs(double p, double q) { return Base::relative_difference(p, q) >= 1e-6; }

// From the point where a set was asked for to the paddle line. `before` is the tank as the last set
// left it.
void carry_to_paddles(FrontSet& set, const TankRun& before, TankRun& tank) {
  const TankConfig& config = tank.tank();
  refer_to_paddles(set, before, config.y_ref);
  if (config.has_walls && tank.run().dalrymple()) dalrymple(set, before, config.width);
  apply_shoaling(set, tank, config.y_ref);
  set.position = Position{};
}

// Adds the set, carried to the paddle line, by way of copies of a limited number of fronts.
void add_carried(FrontSet& sum, const FrontSet& set, TankRun& tank, std::uint64_t copied) {
  const TankRun before = tank;
  const std::size_t slot_count = set.slots.size();
  FrontSet part;
  part.reset(slot_count);
  std::size_t slot = 0;
  do {
    const std::size_t first = slot;
    for (std::uint64_t fronts = 0; slot < slot_count && fronts < copied; ++slot) {
      fronts += set.slots[slot].size();
    }
    Base::require_memory(front_memory(set, first, slot), "Front set::the merged fronts");
    for (std::size_t h = first; h < slot; ++h) part.slots[h] = set.slots[h];
    part.position = set.position;
    carry_to_paddles(part, before, tank);
    merge_sets(sum, part);
    for (std::size_t done = first; done < slot; ++done) part.slots[done] = Slot();
  } while (slot < slot_count);
}

}  // namespace

void RunFronts::resize(std::size_t set_count) {
  sets.assign(set_count, FrontSet{});
  if (sets.empty()) return;
  prove_slots(set_count, run.size());
  for (FrontSet& set : sets) set.reset(run.size());
}

void RunFronts::merge_rms() {
  std::vector<double> credit(sets.size(), 0.0);
  const std::size_t slot_count = common_slots(sets);
  for (std::size_t slot = 0; slot < slot_count; ++slot) {
    double best = -1e6;
    double total = 0.0;
    std::size_t owner = sets.size();
    for (std::size_t s = 0; s < sets.size(); ++s) {
      const Slot& fronts = sets[s].slots[slot];
      if (fronts.empty()) continue;
      const double e = energy(fronts);
      credit[s] = credit[s] + e;
      if (credit[s] > best) {
        best = credit[s];
        owner = s;
      }
      total = total + e;
    }
    if (owner == sets.size()) continue;
    credit[owner] = credit[owner] - total;
    for (std::size_t s = 0; s < sets.size(); ++s) {
      if (s == owner) {
        take_all(sets[s].slots[slot], total);
      } else {
        sets[s].slots[slot].clear();
      }
    }
  }
}

void RunFronts::merge_random(const RanGen& generator) {
  std::vector<double> e(sets.size(), 0.0);
  const std::size_t slot_count = common_slots(sets);
  for (std::size_t slot = 0; slot < slot_count; ++slot) {
    double total = 0.0;
    bool filled = false;
    for (std::size_t s = 0; s < sets.size(); ++s) {
      const Slot& fronts = sets[s].slots[slot];
      filled = filled || !fronts.empty();
      e[s] = energy(fronts);
      total += e[s];
    }
    if (!filled) continue;
    double r = generator.unit() * total;
    for (std::size_t s = 0; s < sets.size(); ++s) {
      r = r - e[s];
      if (r <= 0) {
        take_all(sets[s].slots[slot], total);
        r = total;
      } else {
        sets[s].slots[slot].clear();
      }
    }
  }
}

void RunFronts::build_merged(const TankConfig& tank, std::uint64_t copied) {
  if (sets.empty()) return;
  TankRun tank_run(tank, run);
  // Apart, so that a set which cannot be carried leaves the last result as it was.
  const std::size_t slot_count = sets.front().slots.size();
  Base::require_memory(front_memory(sets.front(), 0, slot_count) + slot_count * sizeof(Slot),
                       "Front set::the merged fronts");
  FrontSet sum = sets.front();
  carry_to_paddles(sum, tank_run, tank_run);
  for (std::size_t s = 1; s < sets.size(); ++s) add_carried(sum, sets[s], tank_run, copied);
  merged = std::move(sum);
}

void refer_to_paddles(FrontSet& set, const TankRun& tank, double y_ref) {
  for (std::size_t slot = 0; slot < set.slots.size(); ++slot) {
    if (set.slots[slot].empty()) continue;
    const double w = tank.omega(slot);
    const double k0 = tank.wave_num_at(slot, 0);
    const double k1 = tank.wave_num_at(slot, set.position.x);
    for (HarmonicFront& front : set.slots[slot]) {
      const double theta = front.angle;
      const double c = std::sin(theta) * k1;
      double ky = c;
      if (std::fabs(c / k0) >= 1) ky = c > 0 ? k0 : -k0;
      double a = std::asin(ky / k0);
      if (std::cos(theta) < 0) a = a > 0 ? Base::Pi - a : -Base::Pi - a;
      front.angle = a;
      if (!tank.angle_in_range(a)) front.amp = 0;
      front.phase = front.phase - ((y_ref - set.position.y) * ky + w * set.position.t);
    }
  }
}

void apply_shoaling(FrontSet& set, TankRun& tank, double y_ref) {
  for (std::size_t slot = 0; slot < set.slots.size(); ++slot) {
    if (set.slots[slot].empty()) continue;
    const double factor = tank.shoaling(slot, set.position.x);
    for (HarmonicFront& front : set.slots[slot]) {
      front.amp = front.amp * (1.0 / factor);
      front.phase = std::fmod(
          front.phase + tank.phase_lag(slot, set.position.x, y_ref, front.angle), Base::TwoPi);
    }
  }
}

void merge_sets(FrontSet& target, const FrontSet& other) {
  if (differs(target.position.x, other.position.x) ||
      differs(target.position.y, other.position.y) ||
      differs(target.position.t, other.position.t)) {
    throw std::string("Error in position when merging fronts");
  }
  if (target.slots.size() != other.slots.size()) {
    throw std::string("Mismatched sizes in front sets");
  }
  for (std::size_t slot = 0; slot < target.slots.size(); ++slot) {
    Slot& ours = target.slots[slot];
    const Slot& theirs = other.slots[slot];
    for (std::size_t j = 0; j < theirs.size(); ++j) {
      if (j < ours.size() && ours[j].angle == theirs[j].angle) {
        const std::complex<double> sum = amplitude(ours[j]) + amplitude(theirs[j]);
        ours[j].amp = std::abs(sum);
        ours[j].phase = std::atan2(sum.imag(), sum.real());
      } else {
        ours.push_back(theirs[j]);
      }
    }
  }
}

}  // namespace Maths
