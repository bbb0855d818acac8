// All front sets of a run, and the merged set that the paddles make.
//
// The sharing of harmonics is in wave_merge.cpp, the way to the paddle line in refer_to_paddles.h,
// the sum in merge_sets.h.
#ifndef KELPBOX_MATHS_RUN_FRONTS_H_
#define KELPBOX_MATHS_RUN_FRONTS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "maths/front_set.h"
#include "maths/random.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Maths {

class RunFronts {
 public:
  // Makes `set_count` sets, each with run.size() empty slots. Throws what require_slots throws.
  void resize(std::size_t set_count);

  // Gives each harmonic to one set, so that each set's share of the energy is even over the
  // spectrum.
  void merge_rms();
  // Gives each harmonic to one set, drawn in proportion to energy. The generator is not advanced on
  // purpose: hosts rely on one value deciding every harmonic.
  void merge_random(const RanGen& generator);
  // Carries all sets to the paddle line and sums them in `merged`. The sets are not changed. Of all
  // sets after the first, at most about `copied` fronts (at least 1) are copied at a time. Throws
  // what the steps throw, and std::string "Front set::the merged fronts need ... GiB of memory, ...
  // GiB are available".
  void build_merged(const TankConfig& tank, std::uint64_t copied = std::uint64_t{1} << 23);

  RunData run;
  FrontSet merged;
  std::vector<FrontSet> sets;  // one for each specification
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_RUN_FRONTS_H_
