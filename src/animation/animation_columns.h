// Fills frames column by column: the fronts of a run are carried to each column of the grid,
// summed over its rows and turned into series.
#ifndef KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_
#define KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "animation/animation_frames.h"
#include "animation/animation_grid.h"
#include "animation/column_surface.h"
#include "maths/front_set.h"
#include "maths/tank_run.h"

namespace Synthesis {

// Whether the angle of each front is written to the standard output, a line each, for each column.
enum class FrontAngles { hidden, shown };

// The bytes that a build needs in addition to its frames.
std::uint64_t columns_memory(const Maths::FrontSet& fronts, const AnimationGrid& grid);

// Made for one build. Everything passed to the constructor must outlive it.
class AnimationColumns {
 public:
  AnimationColumns(const Maths::FrontSet& fronts, const AnimationGrid& grid, Maths::TankRun& tank,
                   AnimationFrames& frames, FrontAngles angles);

  // Builds and stores the column, or returns early if the build has been stopped. Throws what
  // TankRun and AnimationFrames throw.
  void build(std::uint32_t ix);

 private:
  // The fronts at the column; incomplete if the build has been stopped.
  void carry_fronts(double x);
  // Each stores the series of the column's rows, a block at a time.
  void add_rows(std::uint32_t ix);
  void add_uniform_rows(std::uint32_t ix);

  const Maths::FrontSet& fronts_;
  const AnimationGrid& grid_;
  Maths::TankRun& tank_;
  AnimationFrames& frames_;
  FrontAngles angles_;
  std::size_t top_;  // slots below this one fit into the cycle
  ColumnSurface surface_;
  std::vector<ColumnFront> column_;
  std::size_t stride_;              // from row to row of the encoded series
  std::vector<std::int16_t> code_;  // encoded series of a block of rows
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_
