#include "animation/column_surface.h"

#include <algorithm>

#include "base/sine_cosine.h"
#include "base/vector.h"

namespace Synthesis {
namespace {

// Rows of a block. They are adjacent in each frame, where 64 of them fill two cache lines.
constexpr std::uint32_t most_rows = 64;
static_assert(most_rows % row_group == 0);

// Values of one row of a block, and of all rows together.
constexpr std::uint32_t most_values = 1 << 20;

// Harmonics that a spectrum holds.
std::size_t elements_of(std::uint32_t samples, std::size_t bins) {
  const std::size_t all = std::size_t{samples} / 2 + 1;
  return samples < most_values ? std::min(bins, all) : all;
}

}  // namespace

std::uint32_t ColumnSurface::rows_of_block(std::uint32_t samples, std::uint32_t rows) {
  return std::min(std::clamp(most_values / samples, std::uint32_t{1}, most_rows), rows);
}

std::uint64_t ColumnSurface::memory(std::uint32_t samples, std::uint32_t rows, std::size_t bins,
                                    std::uint64_t fronts) {
  // The phases, the parts and the turns of a front.
  constexpr std::uint64_t of_front = 8 * sizeof(double);
  constexpr std::uint64_t element = sizeof(std::complex<double>);
  // Transforms of short cycles copy a spectrum.
  const std::uint64_t copy = samples < most_values ? element * Base::spectrum_size(samples) : 0;
  return element * elements_of(samples, bins) * rows_of_block(samples, rows) + copy +
         sizeof(double) * std::uint64_t{samples} + Base::transform_memory(samples) +
         of_front * fronts;
}

ColumnSurface::ColumnSurface(std::uint32_t samples, std::uint32_t rows, std::size_t bins)
    : ColumnSurface(samples, rows, bins,
                    Base::FFT_Plan(samples, samples / 2 + 1, Base::FFT_Type::freq_to_time)) {}

ColumnSurface::ColumnSurface(std::uint32_t samples, std::uint32_t rows, std::size_t bins,
                             const Base::FFT_Plan& plan)
    : long_cycle_(samples >= most_values),
      spectra_(rows_of_block(samples, rows),
               std::vector<std::complex<double>>(elements_of(samples, bins))),
      series_(samples),
      plan_(plan) {}

void ColumnSurface::take_turns(const std::vector<double>& ky, double y_step) {
  turns_.take(ky, y_step);
}

void ColumnSurface::sum(const ColumnFronts& fronts, const GridAxis& y, std::uint32_t first,
                        std::uint32_t rows) {
  for (std::uint32_t row = 0; row < rows; ++row) {
    std::fill(spectra_[row].begin(), spectra_[row].end(), 0.0);
  }
  place(fronts, y.at(first));
  for (const ColumnFronts::Bin& bin : fronts.bins) {
    // Harmonics above half the sampling rate have no meaning; all later ones are above it too.
    if (bin.bin >= spectra_[0].size()) return;
    double re[most_rows] = {};
    double im[most_rows] = {};
    if (rows > 1) {
      add_rows(re_.data(), im_.data(), turns_, bin.first, bin.last, rows, re, im);
    } else {
      for (std::size_t i = bin.first; i < bin.last; ++i) re[0] += re_[i];
      for (std::size_t i = bin.first; i < bin.last; ++i) im[0] += im_[i];
    }
    for (std::uint32_t row = 0; row < rows; ++row) {
      spectra_[row][bin.bin] += std::complex<double>(re[row], im[row]);
    }
  }
}

void ColumnSurface::place(const ColumnFronts& fronts, double y) {
  psi_.resize(fronts.amps.size());
  re_.resize(psi_.size());
  im_.resize(psi_.size());
  for (std::size_t i = 0; i < psi_.size(); ++i) {
    psi_[i] = fronts.phases[i] - (y * fronts.ky[i] + fronts.lags[i]);
  }
  Base::sine_cosine(psi_.data(), psi_.size(), im_.data(), re_.data());
  for (const ColumnFronts::Bin& bin : fronts.bins) {
    for (std::size_t i = bin.first; i < bin.last; ++i) {
      const double amp = bin.shoaling * fronts.amps[i];
      re_[i] *= amp;
      im_[i] *= amp;
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
