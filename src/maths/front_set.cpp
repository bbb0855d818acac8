#include "maths/front_set.h"

#include <ostream>
#include <sstream>
#include <string>

#include "base/streams.h"

namespace Maths {

void FrontSet::add_front(std::uint64_t slot, const HarmonicFront& front) {
  if (slot >= slots.size()) {
    Base::progress() << "front error " << slot << " " << slots.size() << std::endl;
    throw std::string("Help");
  }
  if (front.amp != 0.0) slots[slot].push_back(front);
}

void FrontSet::reset(std::uint64_t slot_count) {
  // Far above any wave tank, and still within a machine's memory.
  constexpr std::uint64_t most_slots = std::uint64_t{1} << 26;
  if (slot_count > most_slots) {
    std::ostringstream text;
    text << "Front set::" << slot_count << " harmonics are more than the " << most_slots
         << " that can be held";
    throw text.str();
  }
  slots.clear();
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

  // The slot plus the lowest harmonic, on purpose: hosts depend on the length that this gives.
  std::uint64_t h = only + run.harmonic(1);
  for (const std::uint64_t prime : {2, 3, 5, 7, 11}) {
    while (n != 0 && h % prime == 0 && n % prime == 0) {
      h /= prime;
      n /= prime;
    }
  }
  return n;
}

}  // namespace Maths
