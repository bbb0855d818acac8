#include "animation/animate.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <string>
#include <utility>

#include "base/memory.h"

namespace Synthesis {

AnimationGrid Animate::start(const Maths::FrontSet& fronts, const Maths::RunData& run,
                             Base::Params& params) {
  frames_.begin();
  slices_.reset();
  AnimationGrid grid = fit_grid(run, params);
  if (Maths::reduced_length(fronts, grid.samples, run) == 0) {
    throw std::string("Trying to build animation when wave expression has no data");
  }
  double angle = 0.0;
  grid.uniform = Maths::common_angle(fronts, angle) && std::abs(angle) < 1e-6;
  return grid;
}

void Animate::build(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
                    const Maths::RunData& run, Base::Params& params) {
  AnimationGrid grid = start(fronts, run, params);
  const auto cycle = static_cast<std::uint32_t>(Maths::reduced_length(fronts, grid.samples, run));
  grid.divisor = grid.samples / cycle;
  grid.samples = cycle;
  frames_.setup(grid.x.count, grid.y.count, grid.samples, build_memory(fronts, grid, grid.x.count));
  ColumnBuild columns(fronts, grid, tank, run, frames_, FrontAngles::shown);
  build_columns(columns, 0, grid.x.count);
  frames_.end();
}

void Animate::init(const Maths::FrontSet& fronts, const Maths::RunData& run, Base::Params& params) {
  grid_ = start(fronts, run, params);
  if (frames_.running() && !frames_.ready()) {
    frames_.setup(grid_.x.count, grid_.y.count, grid_.samples,
                  build_memory(fronts, grid_, grid_.x.count) + SliceColumns::copied(fronts));
  }
}

void Animate::build_slice(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
                          const Maths::RunData& run, std::uint32_t from, std::uint32_t to) {
  if (!frames_.ready()) throw std::string("animate not initialised");
  to = std::min(to, grid_.x.count);
  if (from >= to) return;
  // Other memory may have been taken since the frames were allocated.
  const std::uint64_t needed =
      build_memory(fronts, grid_, to - from) + SliceColumns::copied(fronts);
  if (!Base::memory_fits(needed)) {
    slices_.reset();
    if (!Base::memory_fits(needed)) throw std::bad_alloc();
  }
  if (!frames_.running()) return;
  if (executor_.workers(to - from) == 1) {
    build_kept(fronts, tank, run, from, to);
    return;
  }
  slices_.reset();
  ColumnBuild columns(fronts, grid_, tank, run, frames_, FrontAngles::hidden);
  build_columns(columns, from, to);
}

void Animate::build_kept(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
                         const Maths::RunData& run, std::uint32_t from, std::uint32_t to) {
  // Kept again only if nothing fails and the build goes on: a stop ends what is on its way.
  std::unique_ptr<SliceColumns> slices = std::move(slices_);
  if (!slices || !slices->made_for(fronts, tank, run)) {
    slices.reset();
    slices = std::make_unique<SliceColumns>(fronts, grid_, tank, run, frames_);
  }
  slices->build(from, to);
  if (frames_.running()) slices_ = std::move(slices);
}

void Animate::release() {
  slices_.reset();
  frames_.release();
}

std::uint64_t Animate::build_memory(const Maths::FrontSet& fronts, const AnimationGrid& grid,
                                    std::uint32_t columns) const {
  return executor_.workers(columns) * columns_memory(fronts, grid);
}

void Animate::build_columns(ColumnBuild& build, std::uint32_t from, std::uint32_t to) {
  if (executor_.workers(to - from) > 1) {
    const std::uint32_t end = build.end_without_failure(from, to);
    executor_.share(end - from, [&](Base::WorkItems& items) {
      AnimationColumns columns(build);
      for (std::size_t i = 0; frames_.running() && items.next(i);) {
        columns.build(from + static_cast<std::uint32_t>(i));
      }
    });
    from = end;
  }
  // A column that fails comes after all columns before it, and before all others.
  if (from == to) return;
  AnimationColumns columns(build);
  for (std::uint32_t ix = from; ix < to && frames_.running(); ++ix) columns.build(ix);
}

}  // namespace Synthesis
