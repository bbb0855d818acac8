// Separation of simultaneous probe records at one frequency into wave trains, by linear equations
// over the probes.
//
// At a probe at position s along the wave direction, in metres, a train of wave number k and
// complex amplitude A contributes A exp(-i k s) if it travels forward and A exp(+i k s) if it
// travels backward. For two probes see Goda and Suzuki (1976), "Estimation of incident and
// reflected waves in random wave experiments", ICCE. For free and bound trains see Lin and Huang
// (2004), "Decomposition of incident and reflected higher harmonic waves using four wave gauges",
// Coastal Engineering 51.
//
// The normal equations use the plain transpose on purpose, not its conjugate, and elimination does
// not exchange rows. Each pair of opposite trains has conjugate coefficients, so these are the
// least squares equations in a different order. Their pivots differ, though, and hosts rely on
// which probe layouts pass. A pivot below 1e-6 is not reported and makes the results meaningless.
// Probes a sixth of a wavelength apart are one such layout.
#ifndef KELPBOX_ANALYSIS_SEPARATION_H_
#define KELPBOX_ANALYSIS_SEPARATION_H_

#include <complex>
#include <cstdint>
#include <vector>

#include "analysis/probes.h"

namespace Analysis {

// A small square matrix, stored row by row.
struct Cmatrix {
  explicit Cmatrix(std::uint64_t size) : dim(size), data(size * size) {}
  std::complex<double>& at(std::uint64_t row, std::uint64_t column) {
    return data[row * dim + column];
  }

  std::uint64_t dim;
  std::vector<std::complex<double>> data;
};

// Inverts in place by Gauss-Jordan elimination without pivoting. Returns false at a pivot below
// 1e-6 in magnitude and then leaves the matrix partly reduced.
bool invert(Cmatrix& matrix);

struct FreeTrains {
  std::complex<double> forward;
  std::complex<double> backward;
};

struct HarmonicTrains {
  FreeTrains bound;
  FreeTrains free;
};

// Separates two free trains of wave number k in rad/m. Throws std::string "Minimum of 2 probes
// required for fundamental wave analysis".
FreeTrains separate_fundamental(const std::vector<ProbeRecord>& records, double k);

// Separates two bound and two free trains of the given wave numbers in rad/m. Throws std::string
// "Minimum of 4 probes required for harmonic wave analysis".
HarmonicTrains separate_harmonic(const std::vector<ProbeRecord>& records, double k_bound,
                                 double k_free);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_SEPARATION_H_
