// The animation of a run: the water surface over a grid of the tank, for every sample of the
// repeat time or of a shorter cycle.
//
// It is built as a whole or in slices of columns. The merged fronts hold at the paddle line and are
// carried to each column of the grid. An inverse transform gives the surface over time: one for
// each point, or one for each column when all fronts run straight along the tank.
#ifndef KELPBOX_ANIMATION_ANIMATE_H_
#define KELPBOX_ANIMATION_ANIMATE_H_

#include <cstdint>
#include <memory>

#include "animation/animation_columns.h"
#include "animation/animation_frames.h"
#include "animation/animation_grid.h"
#include "animation/slice_columns.h"
#include "base/executor.h"
#include "base/params.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Synthesis {

// A build takes the merged fronts of a run and the tank. It throws what fit_grid, AnimationFrames
// and TankRun throw. Another thread may watch and stop the frames through `frames`; everything else
// is for one thread at a time.
class Animate {
 public:
  // The workers of the builds to come, one unless set. They share out the columns. The frames, and
  // everything that is written, are the same for every number of workers.
  void set_executor(const Base::Executor& executor) { executor_ = executor; }

  // Builds the whole animation. A single harmonic gets frames for a cycle as short as
  // Maths::reduced_length allows. Writes the angle of each front to the standard output stream,
  // for each column. Throws "Trying to build animation when wave expression has no data".
  void build(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
             const Maths::RunData& run, Base::Params& params);
  // Prepares a build in slices, with frames for the whole repeat time. Frames that exist already
  // are kept, whatever the grid. The build is active until `stop`.
  void init(const Maths::FrontSet& fronts, const Maths::RunData& run, Base::Params& params);
  // Builds the columns from `from` to `to` - 1, at most to the end of the grid. Throws "animate not
  // initialised".
  void build_slice(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
                   const Maths::RunData& run, std::uint32_t from, std::uint32_t to);
  // Frees the frames, and what slices keep from call to call.
  void release();

  AnimationFrames& frames() { return frames_; }
  const AnimationFrames& frames() const { return frames_; }

 private:
  // Fits the requested grid over the whole repeat time. The build is active from here on, even if
  // this fails.
  AnimationGrid start(const Maths::FrontSet& fronts, const Maths::RunData& run,
                      Base::Params& params);
  // The bytes that all workers need for that many columns.
  std::uint64_t build_memory(const Maths::FrontSet& fronts, const AnimationGrid& grid,
                             std::uint32_t columns) const;
  void build_columns(ColumnBuild& build, std::uint32_t from, std::uint32_t to);
  // With one worker, by the columns that slices keep.
  void build_kept(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
                  const Maths::RunData& run, std::uint32_t from, std::uint32_t to);

  Base::Executor executor_;
  AnimationFrames frames_;
  AnimationGrid grid_;                    // of a build in slices
  std::unique_ptr<SliceColumns> slices_;  // what they keep
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ANIMATE_H_
