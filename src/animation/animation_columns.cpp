#include "animation/animation_columns.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <sstream>
#include <utility>

#include "animation/surface_code.h"
#include "base/streams.h"
#include "maths/tank_run.h"

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

std::size_t count_harmonics(const Maths::FrontSet& fronts, std::size_t top) {
  std::size_t count = 0;
  for (std::size_t h = 0; h < top; ++h) count += fronts.slots[h].empty() ? 0 : 1;
  return count;
}

// The angle of each front, a line each.
std::string angle_lines(const Maths::FrontSet& fronts, std::size_t top) {
  std::ostringstream text;
  text.copyfmt(Base::progress());
  for (std::size_t h = 0; h < top; ++h) {
    for (const Maths::HarmonicFront& front : fronts.slots[h]) text << front.angle << '\n';
  }
  return std::move(text).str();
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

AnimationColumns::AnimationColumns(const Maths::FrontSet& fronts, const AnimationGrid& grid,
                                   const Maths::TankConfig& tank, const Maths::RunData& run,
                                   AnimationFrames& frames, FrontAngles angles)
    : fronts_(fronts),
      grid_(grid),
      tank_(tank),
      run_(run),
      frames_(frames),
      top_(top_slot(fronts, grid)),
      carried_(tank, run, fronts, 0, top_),
      surface_(grid.samples, rows_of(grid), bins_of(grid, top_)),
      stride_(stride_of(grid)),
      code_(stride_ * surface_.block_rows()) {
  if (angles == FrontAngles::shown) lines_ = angle_lines(fronts, top_);
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
  try {
    if (!carried_.carry_to(x, [this] { return frames_.running(); })) return;
  } catch (const std::string&) {
    fail_in_order(x);
    if (!frames_.running()) return;
    throw;
  }
  write_lines(0, lines_.size());
  if (column_.bins.empty()) take_fronts();
  for (std::size_t h = 0; h < column_.bins.size(); ++h) {
    column_.bins[h].shoaling = carried_.harmonics()[h].shoaling;
  }
}

void AnimationColumns::fail_in_order(double x) {
  Maths::TankRun tank(tank_, run_);
  std::size_t written = 0;
  for (std::size_t h = 0; h < top_ && frames_.running(); ++h) {
    if (fronts_.slots[h].empty()) continue;
    tank.shoaling(h, x);
    written = write_lines(written, fronts_.slots[h].size());
  }
}

std::size_t AnimationColumns::write_lines(std::size_t from, std::size_t count) {
  std::ostream& out = Base::progress();
  for (; count != 0 && from != lines_.size() && frames_.running(); --count) {
    const std::size_t end = lines_.find('\n', from) + 1;
    out.write(lines_.data() + from, static_cast<std::streamsize>(end - from));
    from = end;
  }
  return from;
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
