#include "cli/probe_layout.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>

#include "analysis/separation.h"

namespace Cli {
namespace {

using Complex = std::complex<double>;

// The trains of one frequency: a wave number for each, negative for one that travels backward.
using Trains = std::vector<double>;

Complex coefficient(double k, double position) { return std::polar(1.0, -k * position); }

// The sum over the probes of the products of two trains' coefficients.
Analysis::Cmatrix normal_equations(const std::vector<double>& positions, const Trains& trains,
                                   bool conjugate, double scale) {
  Analysis::Cmatrix matrix(trains.size());
  for (std::size_t row = 0; row < trains.size(); ++row) {
    for (std::size_t column = 0; column < trains.size(); ++column) {
      for (const double position : positions) {
        const Complex left = coefficient(trains[row], position);
        matrix.at(row, column) +=
            scale * (conjugate ? std::conj(left) : left) * coefficient(trains[column], position);
      }
    }
  }
  return matrix;
}

double greatest_gain(const std::vector<double>& positions, const Trains& trains) {
  const double scale = 1.0 / static_cast<double>(positions.size());
  Analysis::Cmatrix matrix = normal_equations(positions, trains, true, scale);
  if (!Analysis::invert(matrix)) return std::numeric_limits<double>::infinity();
  double greatest = 1.0;
  for (std::size_t i = 0; i < trains.size(); ++i) {
    greatest = std::max(greatest, std::sqrt(std::abs(matrix.at(i, i).real())));
  }
  return greatest;
}

// The library's own equations: the plain transpose, with coefficients of magnitude 1/2.
bool solved(const std::vector<double>& positions, const Trains& trains) {
  Analysis::Cmatrix matrix = normal_equations(positions, trains, false, 0.25);
  return Analysis::invert(matrix);
}

}  // namespace

LayoutGain layout_gain(const std::vector<double>& positions, double k, double k_free) {
  const Trains fundamental{k, -k};
  const Trains harmonic{2.0 * k, -2.0 * k, k_free, -k_free};
  return {greatest_gain(positions, fundamental), greatest_gain(positions, harmonic),
          solved(positions, fundamental), solved(positions, harmonic)};
}

}  // namespace Cli
