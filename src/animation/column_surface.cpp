#include "animation/column_surface.h"

#include <algorithm>
#include <cmath>

#include "base/vector.h"

namespace Synthesis {
namespace {

// Rows of a block. They are adjacent in each frame, where 64 of them fill two cache lines.
constexpr std::uint32_t most_rows = 64;
// Independent rotations side by side, so that none waits for another.
constexpr std::uint32_t lanes = 4;
static_assert(most_rows % lanes == 0);

// Values of one row of a block, and of all rows together.
constexpr std::uint32_t most_values = 1 << 20;

// Harmonics that a spectrum holds.
std::size_t elements_of(std::uint32_t samples, std::size_t bins) {
  const std::size_t all = std::size_t{samples} / 2 + 1;
  return samples < most_values ? std::min(bins, all) : all;
}

struct RowSums {
  double re[most_rows] = {};
  double im[most_rows] = {};
};

void add_front(const ColumnFront& front, const GridAxis& y, std::uint32_t first, std::uint32_t rows,
               RowSums& sums) {
  const double psi = front.phase - (y.at(first) * front.ky + front.lag);
  double re[lanes] = {front.amp * std::cos(psi)};
  double im[lanes] = {front.amp * std::sin(psi)};
  if (rows == 1) {
    sums.re[0] += re[0];
    sums.im[0] += im[0];
    return;
  }
  const double turn = front.ky * y.step;
  const double c = std::cos(turn);
  const double s = std::sin(turn);
  for (std::uint32_t lane = 1; lane < lanes; ++lane) {
    re[lane] = re[lane - 1] * c + im[lane - 1] * s;
    im[lane] = im[lane - 1] * c - re[lane - 1] * s;
  }
  const double leap_c = std::cos(lanes * turn);
  const double leap_s = std::sin(lanes * turn);
  for (std::uint32_t row = 0; row < rows; row += lanes) {
    for (std::uint32_t lane = 0; lane < lanes; ++lane) {
      sums.re[row + lane] += re[lane];
      sums.im[row + lane] += im[lane];
      const double turned = re[lane] * leap_c + im[lane] * leap_s;
      im[lane] = im[lane] * leap_c - re[lane] * leap_s;
      re[lane] = turned;
    }
  }
}

}  // namespace

std::uint32_t ColumnSurface::rows_of_block(std::uint32_t samples, std::uint32_t rows) {
  return std::min(std::clamp(most_values / samples, std::uint32_t{1}, most_rows), rows);
}

std::uint64_t ColumnSurface::memory(std::uint32_t samples, std::uint32_t rows, std::size_t bins) {
  constexpr std::uint64_t element = sizeof(std::complex<double>);
  // Transforms of short cycles copy a spectrum.
  const std::uint64_t copy = samples < most_values ? element * Base::spectrum_size(samples) : 0;
  return element * elements_of(samples, bins) * rows_of_block(samples, rows) + copy +
         sizeof(double) * std::uint64_t{samples} + Base::transform_memory(samples);
}

ColumnSurface::ColumnSurface(std::uint32_t samples, std::uint32_t rows, std::size_t bins)
    : long_cycle_(samples >= most_values),
      spectra_(rows_of_block(samples, rows),
               std::vector<std::complex<double>>(elements_of(samples, bins))),
      series_(samples),
      plan_(samples, samples / 2 + 1, Base::FFT_Type::freq_to_time) {}

void ColumnSurface::sum(const std::vector<ColumnFront>& fronts, const GridAxis& y,
                        std::uint32_t first, std::uint32_t rows) {
  for (std::uint32_t row = 0; row < rows; ++row) {
    std::fill(spectra_[row].begin(), spectra_[row].end(), 0.0);
  }
  std::size_t front = 0;
  while (front < fronts.size()) {
    const std::size_t bin = fronts[front].bin;
    // Harmonics above half the sampling rate have no meaning; all later ones are above it too.
    if (bin >= spectra_[0].size()) return;
    RowSums sums;
    for (; front < fronts.size() && fronts[front].bin == bin; ++front) {
      add_front(fronts[front], y, first, rows, sums);
    }
    for (std::uint32_t row = 0; row < rows; ++row) {
      spectra_[row][bin] = {sums.re[row], sums.im[row]};
    }
  }
}

const std::vector<double>& ColumnSurface::series(std::uint32_t row) {
  if (long_cycle_) {
    plan_.consume(spectra_[row], series_);
  } else {
    plan_.execute(&spectra_[row], &series_);
  }
  return series_;
}

}  // namespace Synthesis
