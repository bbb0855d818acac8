// Fronts, filed by harmonic of the repeat time.
#ifndef KELPBOX_MATHS_FRONT_SET_H_
#define KELPBOX_MATHS_FRONT_SET_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "maths/front.h"
#include "maths/run_data.h"

namespace Maths {

class FrontSet {
 public:
  // Appends the front to its slot. A front of amplitude 0 is discarded. A slot beyond the set
  // writes a line to the standard output stream and throws std::string "Help". Throws what `append`
  // throws.
  void add_front(std::uint64_t slot, const HarmonicFront& front);
  // Appends the front to an existing slot, whatever its amplitude. When memory runs out, throws
  // std::string "Front set::more fronts need ... GiB of memory, ... GiB are available".
  void append(std::uint64_t slot, const HarmonicFront& front);
  // Replaces all slots by `slot_count` empty ones. Throws what require_slots throws.
  void reset(std::uint64_t slot_count);
  // Append all fronts, slot by slot.
  void display_fronts(std::vector<Synthesis::Front>& out, const RunData& run) const;
  void transfer_fronts(std::vector<TransferFront>& out) const;
  std::uint64_t front_count() const;

  // One entry for each harmonic from 0; the index is the harmonic.
  std::vector<std::vector<HarmonicFront>> slots;
  Position position;

 private:
  std::uint64_t unchecked_ = 0;  // bytes of fronts added since memory was last checked
};

// Throws std::string "Front set::<slots> harmonics are more than the 67108864 that can be held" for
// more than 2^26 slots in a set, and "Front set::<slots> harmonics in <sets> sets need ... GiB of
// memory, ... GiB are available".
void require_slots(std::uint64_t set_count, std::uint64_t slot_count);

// The bytes of a list of fronts, with the word that the heap adds to each block.
std::uint64_t list_memory(std::uint64_t fronts);

// The bytes that a copy of the fronts takes, for the slots from `first` to `last` - 1.
std::uint64_t front_memory(const FrontSet& set, std::size_t first, std::size_t last);

// Whether all fronts have the same angle, which is stored in `out`. One-sided on purpose: hosts
// rely on a smaller angle passing. A set without fronts returns true and leaves `out` unchanged.
bool common_angle(const FrontSet& set, double& out);

// The shortest sample count after which the set repeats: n, less for a single harmonic, or 0 for a
// set without fronts.
std::uint64_t reduced_length(const FrontSet& set, std::uint64_t n, const RunData& run);

}  // namespace Maths

#endif  // KELPBOX_MATHS_FRONT_SET_H_
