// The animation of a run: the water surface over a grid of the tank, for every sample of the
// repeat time or of a shorter cycle.
//
// Built as a whole or in slices of columns. The merged fronts, which hold at the paddle line, are
// carried out to each column of the grid; an inverse transform for each point makes the surface
// over time, or one for each column when all fronts run straight along the tank.
#ifndef KELPBOX_ANIMATION_ANIMATE_H_
#define KELPBOX_ANIMATION_ANIMATE_H_

#include <cstdint>

#include "animation/animation_columns.h"
#include "animation/animation_frames.h"
#include "animation/animation_grid.h"
#include "base/params.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Synthesis {

// A build takes the merged fronts of a run and the tank, and throws the texts of fit_grid,
// AnimationFrames and TankRun. The frames are watched and stopped from another thread through
// `frames`; all else is for one thread at a time.
class Animate {
 public:
  // Builds the whole animation. A single harmonic gets frames for a cycle as short as
  // Maths::reduced_length allows. Writes the angle of each front to the standard output stream,
  // for each column. Throws "Trying to build animation when wave expression has no data".
  void build(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
             const Maths::RunData& run, Base::Params& params);
  // Prepares a build in slices, with frames for the whole repeat time. Frames that are there
  // already stay as they are, whatever the grid. The build goes on until `stop`.
  void init(const Maths::FrontSet& fronts, const Maths::RunData& run, Base::Params& params);
  // Builds the columns from `from` up to `to` - 1, as far as the grid has them. Throws "animate
  // not initialised".
  void build_slice(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
                   const Maths::RunData& run, std::uint32_t from, std::uint32_t to);

  AnimationFrames& frames() { return frames_; }
  const AnimationFrames& frames() const { return frames_; }

 private:
  // The grid that the parameters ask for, over the whole repeat time. The build is then going on,
  // and stays so when this fails.
  AnimationGrid start(const Maths::FrontSet& fronts, const Maths::RunData& run,
                      Base::Params& params);
  void build_columns(AnimationColumns& columns, std::uint32_t from, std::uint32_t to);

  AnimationFrames frames_;
  AnimationGrid grid_;  // of a build in slices
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ANIMATE_H_
