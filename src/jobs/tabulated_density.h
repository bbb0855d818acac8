// A variance density between the points of a table.
#ifndef KELPBOX_JOBS_TABULATED_DENSITY_H_
#define KELPBOX_JOBS_TABULATED_DENSITY_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "jobs/asked_wave.h"

namespace Jobs {

// Linear between its points, 0 outside them.
struct TabulatedDensity {
  std::vector<double> frequencies;  // Hz
  std::vector<double> densities;    // m2/Hz

  struct BadRow {
    std::size_t row;
    std::string fault;  // "the frequency does not rise"
  };
  // The first row that makes it no spectrum.
  std::optional<BadRow> bad_row() const;
  double at(double frequency) const;
  // Exact: the sum of trapezia.
  double integral(double from, double to) const;
  AskedWave asked(const std::string& kind) const;
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_TABULATED_DENSITY_H_
