// The sum of wave fronts over one column of an animation's grid: the hot loop of animations.
//
// A front of phase omega t - lag - ky y + phase has at each row the amplitude of the column and a
// phase that turns by ky times the step from row to row. So the rows of a block cost a rotation
// each and no sine; each block starts from the phase itself, so that no error grows along y.
#ifndef KELPBOX_ANIMATION_COLUMN_SURFACE_H_
#define KELPBOX_ANIMATION_COLUMN_SURFACE_H_

#include <complex>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "animation/animation_grid.h"
#include "base/fft.h"

namespace Synthesis {

// A front as the rows of a column see it.
struct ColumnFront {
  std::size_t bin = 0;  // harmonic of the cycle
  double amp = 0.0;     // metres at the column
  double phase = 0.0;   // radians at the paddle line
  double lag = 0.0;     // radians from the paddle line to the column at y = 0
  double ky = 0.0;      // rad/m, the wave number along y
};

// Works on a block of rows at a time, few enough to stay in a processor's cache.
class ColumnSurface {
 public:
  // The least number of bytes that a surface takes.
  static std::uint64_t memory(std::uint32_t samples, std::uint32_t rows, std::size_t bins);
  // For cycles of that many samples, at least 1, and columns of that many rows; of the harmonics
  // those below `bins` may have fronts.
  ColumnSurface(std::uint32_t samples, std::uint32_t rows, std::size_t bins);

  // The most rows of a block.
  std::uint32_t block_rows() const { return static_cast<std::uint32_t>(spectra_.size()); }
  // Sums the fronts, in rising order of bins, over the rows from `first`.
  void sum(const std::vector<ColumnFront>& fronts, const GridAxis& y, std::uint32_t first,
           std::uint32_t rows);
  // The surface over the cycle at one row of the block, in metres, once for each sum. Valid until
  // the next call.
  const std::vector<double>& series(std::uint32_t row);

 private:
  // Whether a spectrum is spent on its series. Its copy would be as long as the spectrum then.
  bool long_cycle_;
  std::vector<std::vector<std::complex<double>>> spectra_;  // one for each row of the block
  std::vector<double> series_;
  Base::FFT_Plan plan_;
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_COLUMN_SURFACE_H_
