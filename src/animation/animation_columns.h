// Fills frames column by column: the fronts of a run are carried to each column of the grid,
// summed over its rows and turned into series.
#ifndef KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_
#define KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "animation/animation_frames.h"
#include "animation/animation_grid.h"
#include "animation/column_surface.h"
#include "maths/carried_fronts.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Synthesis {

// Whether the angle of each front is written to the standard output, a line each, for each column.
enum class FrontAngles { hidden, shown };

// The bytes that a build needs in addition to its frames.
std::uint64_t columns_memory(const Maths::FrontSet& fronts, const AnimationGrid& grid);

// Made for one build. Everything passed to the constructor must outlive it.
class AnimationColumns {
 public:
  AnimationColumns(const Maths::FrontSet& fronts, const AnimationGrid& grid,
                   const Maths::TankConfig& tank, const Maths::RunData& run,
                   AnimationFrames& frames, FrontAngles angles);

  // Builds and stores the column, or returns early if the build has been stopped. Throws what
  // TankRun and AnimationFrames throw.
  void build(std::uint32_t ix);

 private:
  // Takes the fronts to the column, which is incomplete if the build has been stopped.
  void carry_fronts(double x);
  // Writes the lines of the harmonics before the one that fails, and throws what it throws.
  void fail_in_order(double x);
  // Writes up to `count` angle lines from a place in their text, and returns the place after them.
  // Ends early if the build is stopped.
  std::size_t write_lines(std::size_t from, std::size_t count);
  // What is the same in all columns. The fronts must have been carried.
  void take_fronts();
  // Each stores the series of the column's rows, a block at a time.
  void add_rows(std::uint32_t ix);
  void add_uniform_rows(std::uint32_t ix);

  const Maths::FrontSet& fronts_;
  const AnimationGrid& grid_;
  const Maths::TankConfig& tank_;
  const Maths::RunData& run_;
  AnimationFrames& frames_;
  std::string lines_;  // with the angle of each front, for each column
  std::size_t top_;    // slots below this one fit into the cycle
  Maths::CarriedFronts carried_;
  std::vector<double> ky_;  // of each front, the wave number along y
  ColumnFronts column_;
  ColumnSurface surface_;
  std::size_t stride_;              // from row to row of the encoded series
  std::vector<std::int16_t> code_;  // encoded series of a block of rows
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_
