#include "analysis/separation.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string>

namespace Analysis {
namespace {

using Complex = std::complex<double>;

// Half of exp(i phase).
Complex half_turn(double phase) { return {std::cos(phase) * 0.5, std::sin(phase) * 0.5}; }

// The normal equations for the amplitudes of a number of trains.
template <std::size_t trains>
class Equations {
 public:
  // Adds one probe: the coefficient of each train, and the value that was measured.
  void add(const std::array<Complex, trains>& coefficients, const Complex& value) {
    for (std::size_t row = 0; row < trains; ++row) {
      for (std::size_t column = row; column < trains; ++column) {
        matrix_.at(row, column) += coefficients[row] * coefficients[column];
      }
      right_[row] += value * coefficients[row];
    }
  }

  // The amplitude of each train.
  std::array<Complex, trains> solve() {
    for (std::size_t row = 1; row < trains; ++row) {
      for (std::size_t column = 0; column < row; ++column) {
        matrix_.at(row, column) = matrix_.at(column, row);
      }
    }
    // Not checked on purpose: see the header.
    static_cast<void>(invert(matrix_));
    std::array<Complex, trains> amplitudes{};
    for (std::size_t row = 0; row < trains; ++row) {
      for (std::size_t column = 0; column < trains; ++column) {
        amplitudes[row] += matrix_.at(row, column) * right_[column];
      }
      amplitudes[row] *= 0.5;
    }
    return amplitudes;
  }

 private:
  Cmatrix matrix_{trains};
  std::array<Complex, trains> right_{};
};

}  // namespace

bool invert(Cmatrix& matrix) {
  constexpr double least_pivot = 1e-6;
  const std::uint64_t dim = matrix.dim;
  Cmatrix inverse(dim);
  for (std::uint64_t i = 0; i < dim; ++i) inverse.at(i, i) = 1.0;
  for (std::uint64_t i = 0; i < dim; ++i) {
    const Complex pivot = matrix.at(i, i);
    if (std::abs(pivot) < least_pivot) return false;
    for (std::uint64_t column = 0; column < dim; ++column) {
      if (column > i) matrix.at(i, column) /= pivot;
      inverse.at(i, column) /= pivot;
    }
    for (std::uint64_t row = 0; row < dim; ++row) {
      if (row == i) continue;
      const Complex factor = matrix.at(row, i);
      for (std::uint64_t column = 0; column < dim; ++column) {
        if (column > i) matrix.at(row, column) -= matrix.at(i, column) * factor;
        inverse.at(row, column) -= inverse.at(i, column) * factor;
      }
    }
  }
  matrix.data = inverse.data;
  return true;
}

FreeTrains separate_fundamental(const std::vector<ProbeRecord>& records, double k) {
  if (records.size() < 2) {
    throw std::string("Minimum of 2 probes required for fundamental wave analysis");
  }
  Equations<2> equations;
  for (const ProbeRecord& record : records) {
    const double phase = record.position * k;
    equations.add({half_turn(-phase), half_turn(phase)}, record.value);
  }
  const auto [forward, backward] = equations.solve();
  return {forward, backward};
}

HarmonicTrains separate_harmonic(const std::vector<ProbeRecord>& records, double k_bound,
                                 double k_free) {
  if (records.size() < 4) {
    throw std::string("Minimum of 4 probes required for harmonic wave analysis");
  }
  Equations<4> equations;
  for (const ProbeRecord& record : records) {
    const double bound = record.position * k_bound;
    const double free = record.position * k_free;
    equations.add({half_turn(-bound), half_turn(bound), half_turn(-free), half_turn(free)},
                  record.value);
  }
  const auto [forward_bound, backward_bound, forward_free, backward_free] = equations.solve();
  return {{forward_bound, backward_bound}, {forward_free, backward_free}};
}

}  // namespace Analysis
