#include "maths/front_set.h"

#include <ostream>
#include <string>

#include "base/compose.h"
#include "base/memory.h"
#include "base/streams.h"

namespace Maths {
namespace {

using Base::operator""_MiB;

constexpr char more_fronts[] = "Front set::more fronts";

}  // namespace

std::uint64_t list_memory(std::uint64_t fronts) { return fronts * sizeof(HarmonicFront) + 8; }

void FrontSet::add_front(std::uint64_t slot, const HarmonicFront& front) {
  if (slot >= slots.size()) {
    Base::progress() << "front error " << slot << " " << slots.size() << std::endl;
    throw std::string("Help");
  }
  if (front.amp != 0.0) append(slot, front);
}

void FrontSet::append(std::uint64_t slot, const HarmonicFront& front) {
  // The number of fronts is not known in advance, so memory is checked after each step.
  constexpr std::uint64_t step = 64_MiB;
  unchecked_ += list_memory(1);
  if (unchecked_ >= step) {
    Base::require_memory(step, more_fronts);
    unchecked_ = 0;
  }
  std::vector<HarmonicFront>& list = slots[slot];
  // A full list moves to a block of twice its size.
  const std::uint64_t block = list_memory(2 * list.size());
  if (list.size() == list.capacity() && block >= step) Base::require_memory(block, more_fronts);
  list.push_back(front);
}

void FrontSet::reset(std::uint64_t slot_count) {
  slots.clear();
  if (slot_count > slots.capacity()) require_slots(1, slot_count);
  slots.resize(slot_count);
}

void FrontSet::display_fronts(std::vector<Synthesis::Front>& out, const RunData& run) const {
  for (std::size_t slot = 0; slot < slots.size(); ++slot) {
    for (const HarmonicFront& front : slots[slot]) {
      out.emplace_back(run.freq(slot), front.amp, front.angle, front.phase);
    }
  }
}

void FrontSet::transfer_fronts(std::vector<TransferFront>& out) const {
  for (std::size_t slot = 0; slot < slots.size(); ++slot) {
    for (const HarmonicFront& front : slots[slot]) {
      out.push_back({front.amp, front.angle, front.phase, slot});
    }
  }
}

std::uint64_t FrontSet::front_count() const {
  std::uint64_t count = 0;
  for (const auto& slot : slots) count += slot.size();
  return count;
}

void require_slots(std::uint64_t set_count, std::uint64_t slot_count) {
  constexpr std::uint64_t most_slots = std::uint64_t{1} << 26;  // far above any wave tank
  if (slot_count > most_slots) {
    throw Base::compose("Front set::", slot_count, " harmonics are more than the ", most_slots,
                        " that can be held");
  }
  Base::require_memory(
      set_count * slot_count * sizeof(std::vector<HarmonicFront>),
      Base::compose("Front set::", slot_count, " harmonics in ", set_count, " sets"));
}

std::uint64_t front_memory(const FrontSet& set, std::size_t first, std::size_t last) {
  std::uint64_t bytes = 0;
  for (std::size_t slot = first; slot < last; ++slot) {
    if (!set.slots[slot].empty()) bytes += list_memory(set.slots[slot].size());
  }
  return bytes;
}

bool common_angle(const FrontSet& set, double& out) {
  bool first = true;
  for (const auto& slot : set.slots) {
    for (const HarmonicFront& front : slot) {
      if (first) {
        out = front.angle;
        first = false;
      } else if (front.angle / out - 1 > 1e-6) {
        return false;
      }
    }
  }
  return true;
}

std::uint64_t reduced_length(const FrontSet& set, std::uint64_t n, const RunData& run) {
  std::size_t filled = 0;
  std::uint64_t only = 0;
  for (std::size_t slot = 0; slot < set.slots.size(); ++slot) {
    if (set.slots[slot].empty()) continue;
    ++filled;
    only = slot;
  }
  if (filled == 0) return 0;
  if (filled > 1) return n;

  // The slot plus the lowest harmonic on purpose: hosts rely on the length that results.
  std::uint64_t h = only + run.min_harmonic();
  for (const std::uint64_t prime : {2, 3, 5, 7, 11}) {
    while (n != 0 && h % prime == 0 && n % prime == 0) {
      h /= prime;
      n /= prime;
    }
  }
  return n;
}

}  // namespace Maths
