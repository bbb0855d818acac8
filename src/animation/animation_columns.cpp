#include "animation/animation_columns.h"

#include <algorithm>
#include <cmath>

#include "animation/surface_code.h"
#include "base/streams.h"

namespace Synthesis {
namespace {

// Flushing each line would cost more than the waves.
struct FlushAtEnd {
  FlushAtEnd() = default;
  ~FlushAtEnd() { Base::progress().flush(); }
  FlushAtEnd(const FlushAtEnd&) = delete;
  FlushAtEnd& operator=(const FlushAtEnd&) = delete;
};

std::size_t top_slot(const Maths::FrontSet& fronts, const AnimationGrid& grid) {
  return std::min(fronts.slots.size(), std::size_t{grid.samples} * grid.divisor);
}

std::uint32_t rows_of(const AnimationGrid& grid) { return grid.uniform ? 1 : grid.y.count; }

// Harmonics of the cycle that may have fronts.
std::size_t bins_of(const AnimationGrid& grid, std::size_t top) {
  return (top + grid.divisor - 1) / grid.divisor;
}

// From row to row of the encoded series. The gap prevents neighbouring rows from sharing cache
// lines.
std::size_t stride_of(const AnimationGrid& grid) { return std::size_t{grid.samples} + 32; }

std::size_t count_fronts(const Maths::FrontSet& fronts, std::size_t top) {
  std::size_t count = 0;
  for (std::size_t h = 0; h < top; ++h) count += fronts.slots[h].size();
  return count;
}

// The row next to y = 0, or the first one.
std::uint32_t row_of_axis(const GridAxis& y) {
  const double row = std::round(-y.min / y.step);
  return row > 0.0 && row < y.count ? static_cast<std::uint32_t>(row) : 0;
}

}  // namespace

std::uint64_t columns_memory(const Maths::FrontSet& fronts, const AnimationGrid& grid) {
  const std::size_t top = top_slot(fronts, grid);
  const std::uint64_t code = sizeof(std::int16_t) * stride_of(grid) *
                             ColumnSurface::rows_of_block(grid.samples, rows_of(grid));
  return ColumnSurface::memory(grid.samples, rows_of(grid), bins_of(grid, top)) + code +
         sizeof(ColumnFront) * std::uint64_t{count_fronts(fronts, top)};
}

AnimationColumns::AnimationColumns(const Maths::FrontSet& fronts, const AnimationGrid& grid,
                                   Maths::TankRun& tank, AnimationFrames& frames,
                                   FrontAngles angles)
    : fronts_(fronts),
      grid_(grid),
      tank_(tank),
      frames_(frames),
      angles_(angles),
      top_(top_slot(fronts, grid)),
      surface_(grid.samples, rows_of(grid), bins_of(grid, top_)),
      stride_(stride_of(grid)),
      code_(stride_ * surface_.block_rows()) {
  column_.reserve(count_fronts(fronts, top_));
}

void AnimationColumns::build(std::uint32_t ix) {
  carry_fronts(grid_.x.at(ix));
  if (!frames_.running()) return;
  if (grid_.uniform) {
    add_uniform_rows(ix);
  } else {
    add_rows(ix);
  }
}

void AnimationColumns::carry_fronts(double x) {
  const FlushAtEnd lines;
  column_.clear();
  for (std::size_t h = 0; h < top_ && frames_.running(); ++h) {
    if (fronts_.slots[h].empty()) continue;
    const double shoaling = tank_.shoaling(h, x);
    const double k0 = tank_.wave_num_at(h, 0.0);
    for (const Maths::HarmonicFront& front : fronts_.slots[h]) {
      if (!frames_.running()) return;
      const double lag = tank_.phase_lag(h, x, 0.0, front.angle);
      const double ky = std::sin(front.angle) * k0;
      if (angles_ == FrontAngles::shown) Base::progress() << front.angle << '\n';
      // A front outside the tank's angle limits keeps its slot with amplitude 0. Its phase can be
      // NaN.
      if (front.amp == 0.0) continue;
      column_.push_back({h / grid_.divisor, shoaling * front.amp, front.phase, lag, ky});
    }
  }
}

void AnimationColumns::add_rows(std::uint32_t ix) {
  // A block begins on the axis of the tank, where waves have the requested phases. A height of
  // exactly half a count there could be rounded down after the rotation from another row.
  const std::uint32_t axis = row_of_axis(grid_.y);
  std::uint32_t rows = 0;
  for (std::uint32_t first = 0; first < grid_.y.count; first += rows) {
    rows = std::min(surface_.block_rows(), (first < axis ? axis : grid_.y.count) - first);
    surface_.sum(column_, grid_.y, first, rows);
    for (std::uint32_t row = 0; row < rows; ++row) {
      const std::vector<double>& heights = surface_.series(row);
      if (!frames_.running()) return;
      surface_codes(heights.data(), heights.size(), code_.data() + row * stride_);
    }
    frames_.add_series(ix, first, {code_.data(), grid_.samples, stride_, rows});
  }
}

void AnimationColumns::add_uniform_rows(std::uint32_t ix) {
  surface_.sum(column_, grid_.y, 0, 1);
  const std::vector<double>& heights = surface_.series(0);
  surface_codes(heights.data(), heights.size(), code_.data());
  if (!frames_.running()) return;
  frames_.add_series(ix, 0, {code_.data(), grid_.samples, 0, grid_.y.count});
}

}  // namespace Synthesis
