// All front sets of a run, and the merged result that the paddles make.
#ifndef KELPBOX_MATHS_RUN_FRONTS_H_
#define KELPBOX_MATHS_RUN_FRONTS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "maths/front_set.h"
#include "maths/random.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"
#include "maths/tank_run.h"

namespace Maths {

class RunFronts {
 public:
  // Makes that many sets, each with run.size() empty slots.
  void resize(std::size_t set_count);

  // Gives each harmonic wholly to one set, keeping each set's share of energy even over the
  // spectrum.
  void merge_rms();
  // Gives each harmonic wholly to one set, drawn in proportion to energy. The generator is not
  // advanced on purpose: one value decides every harmonic, and hosts depend on the result.
  void merge_random(const RanGen& generator);
  // Refers all sets to the paddle line and sums them into `merged`. The sets stay as they were: of
  // all but the first, copies of about `copied` fronts, at least 1, live at once. Throws the messages of the
  // steps, and "Front set::the merged fronts need ... GiB of memory, ... GiB are available".
  void build_merged(const TankConfig& tank, std::uint64_t copied = std::uint64_t{1} << 23);

  RunData run;
  FrontSet merged;
  std::vector<FrontSet> sets;  // one for each specification
};

// The steps of build_merged, each on one set.
void refer_to_paddles(FrontSet& set, const TankRun& tank, double y_ref);
void apply_shoaling(FrontSet& set, TankRun& tank, double y_ref);
// Sums `other` into `target`. A front of amplitude 0 adds nothing, whatever its phase. Throws
// std::string "Error in position when merging fronts", "Mismatched sizes in front sets".
void merge_sets(FrontSet& target, const FrontSet& other);

}  // namespace Maths

#endif  // KELPBOX_MATHS_RUN_FRONTS_H_
