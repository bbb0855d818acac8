// Fills frames column by column: the fronts of a run are carried to each column of the grid,
// summed over its rows and turned into series.
#ifndef KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_
#define KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "animation/angle_lines.h"
#include "animation/animation_frames.h"
#include "animation/animation_grid.h"
#include "animation/column_surface.h"
#include "base/fft.h"
#include "maths/carried_fronts.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Synthesis {

// The bytes that each worker of a build needs, in addition to the frames.
std::uint64_t columns_memory(const Maths::FrontSet& fronts, const AnimationGrid& grid);

// What all workers of one build have in common. Everything passed to the constructor must outlive
// it.
struct ColumnBuild {
  ColumnBuild(const Maths::FrontSet& all_fronts, const AnimationGrid& all_points,
              const Maths::TankConfig& tank_config, const Maths::RunData& run_data,
              AnimationFrames& filled, FrontAngles angles);

  // The end of the columns from `from` on, at most `to`, that can be carried to and stored.
  std::uint32_t end_without_failure(std::uint32_t from, std::uint32_t to) const;

  const Maths::FrontSet& fronts;
  const AnimationGrid& grid;
  const Maths::TankConfig& tank;
  const Maths::RunData& run;
  AnimationFrames& frames;
  std::size_t top;  // slots below this one fit into the cycle
  AngleLines lines;
  Base::FFT_Plan plan;
};

// One worker of a build, which must outlive it.
class AnimationColumns {
 public:
  explicit AnimationColumns(ColumnBuild& build);

  // Builds and stores the column, or returns early if the build has been stopped. Throws what
  // TankRun and AnimationFrames throw.
  void build(std::uint32_t ix);

 private:
  // Takes the fronts to the column, which is incomplete if the build has been stopped.
  void carry_fronts(double x);
  // Writes the lines of the harmonics before the one that fails, and throws what it throws.
  void fail_in_order(double x);
  // What is the same in all columns. The fronts must have been carried.
  void take_fronts();
  // Each stores the series of the column's rows, a block at a time.
  void add_rows(std::uint32_t ix);
  void add_uniform_rows(std::uint32_t ix);

  ColumnBuild& build_;
  const AnimationGrid& grid_;
  AnimationFrames& frames_;
  Maths::CarriedFronts carried_;
  std::vector<double> ky_;  // of each front, the wave number along y
  ColumnFronts column_;
  ColumnSurface surface_;
  std::size_t stride_;              // from row to row of the encoded series
  std::vector<std::int16_t> code_;  // encoded series of a block of rows
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ANIMATION_COLUMNS_H_
