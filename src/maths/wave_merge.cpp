// Two ways to share the harmonics between the sets of a run, so that each harmonic keeps one front.
//
// Several fronts of one frequency interfere in a fixed pattern, which makes the mean height depend
// on the place: Jefferys (1987), "Directional seas should be ergodic", Applied Ocean Research 9(4).
#include <algorithm>
#include <cmath>

#include "maths/run_fronts.h"

namespace Maths {
namespace {

using Slot = std::vector<HarmonicFront>;

double energy(const Slot& fronts) {
  double sum = 0.0;
  for (const HarmonicFront& front : fronts) sum += front.amp * front.amp;
  return sum;
}

// Gives the energy of a whole harmonic to the first front of a list, and removes the others.
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

}  // namespace

void RunFronts::merge_rms() {
  // The energy that each set has contributed so far, less the energy that it was given.
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
    // The first set at which the sum of the energies reaches r owns the harmonic.
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

}  // namespace Maths
