// Separation of simultaneous probe records at one frequency into wave trains, by linear equations
// over the probes.
//
// A train of wave number k and complex amplitude A stands at a probe as A exp(-i k s) when it
// travels forward, A exp(+i k s) when it comes back, where s is the probe's distance along the
// wave direction in metres. For two probes see Goda and Suzuki (1976), "Estimation of incident and
// reflected waves in random wave experiments", ICCE; for free and bound trains, Lin and Huang
// (2004), "Decomposition of incident and reflected higher harmonic waves using four wave gauges",
// Coastal Engineering 51.
//
// The equations are formed with the plain transpose, never its conjugate, and are solved without
// exchanging rows. Trains come in opposite pairs, whose coefficients are each other's conjugates,
// so that these are the equations of the least squares in another order; but their pivots are
// others, and hosts depend on which layouts pass. A pivot below 1e-6 goes unnoticed and leaves
// results without meaning: of probes a sixth of a wave length apart, for one.
#ifndef KELPBOX_ANALYSIS_SEPARATION_H_
#define KELPBOX_ANALYSIS_SEPARATION_H_

#include <complex>
#include <cstdint>
#include <vector>

namespace Analysis {

struct ProbeRecord {
  std::uint32_t index = 0;     // the probe's place in the set
  double position = 0.0;       // along the wave direction, metres from the origin of the tank
  std::complex<double> value;  // the probe's spectrum at the frequency in hand
};

// A small square matrix, row by row.
struct Cmatrix {
  explicit Cmatrix(std::uint64_t size) : dim(size), data(size * size) {}
  std::complex<double>& at(std::uint64_t row, std::uint64_t column) {
    return data[row * dim + column];
  }

  std::uint64_t dim;
  std::vector<std::complex<double>> data;
};

// Inverts in place by Gauss-Jordan elimination without pivoting. Returns false at a pivot below
// 1e-6 in magnitude, and leaves the matrix part reduced.
bool invert(Cmatrix& matrix);

struct FreeTrains {
  std::complex<double> forward;
  std::complex<double> backward;
};

struct HarmonicTrains {
  FreeTrains bound;
  FreeTrains free;
};

// Two trains of wave number k (rad/m). Throws std::string "Minimum of 2 probes required for
// fundamental wave analysis".
FreeTrains separate_fundamental(const std::vector<ProbeRecord>& records, double k);

// Four trains. Throws std::string "Minimum of 4 probes required for harmonic wave analysis".
HarmonicTrains separate_harmonic(const std::vector<ProbeRecord>& records, double k_bound,
                                 double k_free);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_SEPARATION_H_
