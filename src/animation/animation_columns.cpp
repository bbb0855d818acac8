#include "animation/animation_columns.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "animation/surface_code.h"
#include "maths/tank_path.h"
#include "maths/tank_run.h"

namespace Synthesis {
namespace {

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

std::size_t count_harmonics(const Maths::FrontSet& fronts, std::size_t top) {
  std::size_t count = 0;
  for (std::size_t h = 0; h < top; ++h) count += fronts.slots[h].empty() ? 0 : 1;
  return count;
}

// Waves have no wave numbers in a dry place, and do not get past it.
bool passable(const Maths::TankPath& path) {
  return path.inside && path.end_depth > 0.0 &&
         std::all_of(path.pieces.begin(), path.pieces.end(),
                     [](const Maths::PathPiece& piece) { return piece.depth > 0.0; });
}

// The row next to y = 0, or the first one.
std::uint32_t row_of_axis(const GridAxis& y) {
  const double row = std::round(-y.min / y.step);
  return row > 0.0 && row < y.count ? static_cast<std::uint32_t>(row) : 0;
}

}  // namespace

std::uint64_t columns_memory(const Maths::FrontSet& fronts, const AnimationGrid& grid) {
  const std::size_t top = top_slot(fronts, grid);
  const std::uint64_t count = count_fronts(fronts, top);
  const std::uint64_t harmonics = count_harmonics(fronts, top);
  // Of each front: its wave number along y and its line, with the copies of a text that grows.
  constexpr std::uint64_t of_line = 64;
  constexpr std::uint64_t beside = sizeof(double) + of_line;
  const std::uint64_t code = sizeof(std::int16_t) * stride_of(grid) *
                             ColumnSurface::rows_of_block(grid.samples, rows_of(grid));
  return ColumnSurface::memory(grid.samples, rows_of(grid), bins_of(grid, top), count) + code +
         Maths::CarriedFronts::memory(count, harmonics) + sizeof(ColumnFronts::Bin) * harmonics +
         beside * count;
}

ColumnBuild::ColumnBuild(const Maths::FrontSet& all_fronts, const AnimationGrid& all_points,
                         const Maths::TankConfig& tank_config, const Maths::RunData& run_data,
                         AnimationFrames& filled, FrontAngles angles)
    : fronts(all_fronts),
      grid(all_points),
      tank(tank_config),
      run(run_data),
      frames(filled),
      top(top_slot(fronts, grid)),
      lines(fronts, top, angles),
      plan(grid.samples, grid.samples / 2 + 1, Base::FFT_Type::freq_to_time) {}

std::uint32_t ColumnBuild::end_without_failure(std::uint32_t from, std::uint32_t to) const {
  const std::uint32_t stored = std::min(to, frames.columns_for(grid.samples, grid.y.count));
  Maths::TankPath path;
  std::uint32_t ix = from;
  for (; ix < stored && frames.running(); ++ix) {
    path.lead_to(tank, grid.x.at(ix));
    if (!passable(path)) break;
  }
  return ix;
}

AnimationColumns::AnimationColumns(ColumnBuild& build)
    : build_(build),
      grid_(build.grid),
      frames_(build.frames),
      carried_(build.tank, build.run, build.fronts, 0, build.top),
      surface_(grid_.samples, rows_of(grid_), bins_of(grid_, build.top), build.plan),
      stride_(stride_of(grid_)),
      code_(stride_ * surface_.block_rows()) {}

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
  bool arrived = false;
  try {
    arrived = carried_.carry_to(x, [this] { return frames_.running(); });
  } catch (const std::string&) {
    fail_in_order(x);
    if (!frames_.running()) return;
    throw;
  }
  {
    AngleLines::Column lines(build_.lines, frames_);
    if (!arrived) return;
    lines.write_all();
  }
  if (column_.bins.empty()) take_fronts();
  for (std::size_t h = 0; h < column_.bins.size(); ++h) {
    column_.bins[h].shoaling = carried_.harmonics()[h].shoaling;
  }
}

void AnimationColumns::fail_in_order(double x) {
  AngleLines::Column lines(build_.lines, frames_);
  Maths::TankRun tank(build_.tank, build_.run);
  for (std::size_t h = 0; h < build_.top && frames_.running(); ++h) {
    const std::vector<Maths::HarmonicFront>& slot = build_.fronts.slots[h];
    if (slot.empty()) continue;
    tank.shoaling(h, x);
    lines.write(slot.size());
  }
}

void AnimationColumns::take_fronts() {
  ky_.reserve(carried_.amps().size());
  column_.bins.reserve(carried_.harmonics().size());
  for (const Maths::CarriedFronts::Harmonic& harmonic : carried_.harmonics()) {
    column_.bins.push_back({harmonic.index / grid_.divisor, harmonic.first, harmonic.last, 1.0});
    for (std::size_t i = harmonic.first; i < harmonic.last; ++i) {
      ky_.push_back(carried_.angle_sines()[i] * harmonic.k0);
    }
  }
  column_.amps = carried_.amps();
  column_.phases = carried_.phases();
  column_.lags = carried_.lags();
  column_.ky = ky_;
  if (rows_of(grid_) > 1) surface_.take_turns(ky_, grid_.y.step);
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
