// The sum of wave fronts over one column of an animation's grid: the hot loop of animations.
//
// A front has the phase omega t - lag - ky y + phase. Its amplitude is the same in all rows of the
// column, and its phase changes by ky times the step from row to row. Each row of a block therefore
// costs a rotation instead of a sine. Each block starts from the exact phase, so that errors do not
// accumulate along y.
#ifndef KELPBOX_ANIMATION_COLUMN_SURFACE_H_
#define KELPBOX_ANIMATION_COLUMN_SURFACE_H_

#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "animation/animation_grid.h"
#include "animation/row_sums.h"
#include "base/fft.h"

namespace Synthesis {

// The fronts at a column.
struct ColumnFronts {
  // The fronts of one harmonic.
  struct Bin {
    std::size_t bin = 0;    // harmonic of the cycle
    std::size_t first = 0;  // of the fronts
    std::size_t last = 0;   // after them
    double shoaling = 1.0;  // amplitude at the column, of 1 at the paddle line
  };
  std::vector<Bin> bins;  // in rising order

  // Of each front:
  std::span<const double> amps;    // metres at the paddle line
  std::span<const double> phases;  // radians at the paddle line
  std::span<const double> lags;    // radians from the paddle line to the column at y = 0
  std::span<const double> ky;      // rad/m, the wave number along y
};

// Works on one block of rows at a time, small enough to stay in the processor's cache.
class ColumnSurface {
 public:
  // The largest number of rows of a block, for columns of `rows`.
  static std::uint32_t rows_of_block(std::uint32_t samples, std::uint32_t rows);
  // The bytes that a surface needs.
  static std::uint64_t memory(std::uint32_t samples, std::uint32_t rows, std::size_t bins,
                              std::uint64_t fronts);
  // For cycles of `samples` (at least 1) and columns of `rows`. Only harmonics below `bins` may
  // have fronts.
  ColumnSurface(std::uint32_t samples, std::uint32_t rows, std::size_t bins);
  // The same, with a copy of an existing plan for the samples.
  ColumnSurface(std::uint32_t samples, std::uint32_t rows, std::size_t bins,
                const Base::FFT_Plan& plan);

  // The largest number of rows of a block.
  std::uint32_t block_rows() const { return static_cast<std::uint32_t>(spectra_.size()); }
  // Needed before a sum over more than one row: the wave numbers along y of all fronts, which are
  // the same in each column.
  void take_turns(const std::vector<double>& ky, double y_step);
  // Sums the fronts over the rows from `first`.
  void sum(const ColumnFronts& fronts, const GridAxis& y, std::uint32_t first, std::uint32_t rows);
  // The surface over the cycle at one row of the block, in metres. Call it once for each row and
  // sum. Valid until the next call.
  const std::vector<double>& series(std::uint32_t row);

 private:
  // The fronts at one row, as complex numbers.
  void place(const ColumnFronts& fronts, double y);

  // Whether the transform may overwrite a spectrum, which avoids a copy as long as the spectrum.
  bool long_cycle_;
  std::vector<std::vector<std::complex<double>>> spectra_;  // one for each row of the block
  std::vector<double> series_;
  RowTurns turns_;
  // Of each front, at the first row of a block:
  std::vector<double> psi_;  // phase
  std::vector<double> re_;
  std::vector<double> im_;
  Base::FFT_Plan plan_;
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_COLUMN_SURFACE_H_
