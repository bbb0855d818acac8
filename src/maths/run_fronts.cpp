#include "maths/run_fronts.h"

#include <utility>

#include "base/memory.h"
#include "maths/merge_sets.h"
#include "maths/refer_to_paddles.h"

namespace Maths {
namespace {

using Slot = std::vector<HarmonicFront>;

// Carries a copy of the set to the paddle line and adds it to the sum, slot range by slot range, so
// that at most about `copied` fronts are copied at a time.
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
    for (std::size_t h = first; h < slot; ++h) part.slots[h] = Slot();
  } while (slot < slot_count);
}

}  // namespace

void RunFronts::resize(std::size_t set_count) {
  sets.clear();  // frees the slots of an earlier build before those of this one are checked
  sets.resize(set_count);
  if (sets.empty()) return;
  require_slots(set_count, run.size());
  for (FrontSet& set : sets) set.reset(run.size());
}

void RunFronts::build_merged(const TankConfig& tank, std::uint64_t copied) {
  if (sets.empty()) return;
  TankRun tank_run(tank, run);
  // Not in `merged`: a set that cannot be carried must not change the last result.
  const std::size_t slot_count = sets.front().slots.size();
  Base::require_memory(front_memory(sets.front(), 0, slot_count) + slot_count * sizeof(Slot),
                       "Front set::the merged fronts");
  FrontSet sum = sets.front();
  carry_to_paddles(sum, tank_run, tank_run);
  for (std::size_t s = 1; s < sets.size(); ++s) add_carried(sum, sets[s], tank_run, copied);
  merged = std::move(sum);
}

}  // namespace Maths
