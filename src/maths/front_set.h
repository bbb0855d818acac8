// Fronts filed by harmonic of the repeat time.
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
  // Appends the front to its slot; a front of amplitude exactly 0 is dropped. A slot beyond the
  // set throws std::string "Help" after a line on the standard output stream. As memory comes to
  // its end, throws "Front set::more fronts need ... GiB of memory, ... GiB are available".
  void add_front(std::uint64_t slot, const HarmonicFront& front);
  // Makes that many empty slots. Throws what prove_slots throws.
  void reset(std::uint64_t slot_count);
  // Append all fronts, slot by slot.
  void display_fronts(std::vector<Synthesis::Front>& out, const RunData& run) const;
  void transfer_fronts(std::vector<TransferFront>& out) const;
  std::uint64_t front_count() const;

  // One entry for each harmonic from 0; the index is the harmonic.
  std::vector<std::vector<HarmonicFront>> slots;
  Position position;

 private:
  std::uint64_t unproved_ = 0;  // bytes of fronts since the memory was last looked at
};

// Throws std::string "Front set::..." for more than 2^26 slots in a set, and "Front set::<slots>
// harmonics in <sets> sets need ... GiB of memory, ... GiB are available".
void prove_slots(std::uint64_t set_count, std::uint64_t slot_count);

// Bytes for the fronts of the slots from `first` to before `last`.
std::uint64_t front_memory(const FrontSet& set, std::size_t first, std::size_t last);

// Whether all fronts share one angle, which goes to `out`. The test is one-sided on purpose: a
// smaller angle passes. A set without fronts returns true and leaves `out` alone.
bool common_angle(const FrontSet& set, double& out);

// The shortest sample count that still repeats the set: n, or less for a single harmonic.
std::uint64_t reduced_length(const FrontSet& set, std::uint64_t n, const RunData& run);

}  // namespace Maths

#endif  // KELPBOX_MATHS_FRONT_SET_H_
