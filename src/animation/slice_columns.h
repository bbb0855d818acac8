// What slices of an animation keep from call to call: the fronts on their way along the tank, and
// the plan of the transforms. A host that builds a column at a time would otherwise pay for the
// whole way from the paddles again in each call.
#ifndef KELPBOX_ANIMATION_SLICE_COLUMNS_H_
#define KELPBOX_ANIMATION_SLICE_COLUMNS_H_

#include <cstdint>

#include "animation/animation_columns.h"
#include "animation/animation_frames.h"
#include "animation/animation_grid.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Synthesis {

class SliceColumns {
 public:
  // The bytes of its copies, which it needs in addition to what a worker needs.
  static std::uint64_t copied(const Maths::FrontSet& fronts);

  // Copies everything except the frames, which must outlive it.
  SliceColumns(const Maths::FrontSet& fronts, const AnimationGrid& grid,
               const Maths::TankConfig& tank, const Maths::RunData& run, AnimationFrames& frames);

  // Whether it was made for these. Hosts may change them between two slices.
  bool made_for(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
                const Maths::RunData& run) const;
  // Builds and stores the columns from `from` to `to` - 1, unless the build has been stopped.
  // Throws what AnimationColumns throws; then it must not be used again.
  void build(std::uint32_t from, std::uint32_t to);

 private:
  const Maths::FrontSet fronts_;
  const AnimationGrid grid_;
  const Maths::TankConfig tank_;
  const Maths::RunData run_;
  AnimationFrames& frames_;
  ColumnBuild build_;
  AnimationColumns columns_;
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_SLICE_COLUMNS_H_
