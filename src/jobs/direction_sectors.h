// Directions in sectors of 5 degrees.
#ifndef KELPBOX_JOBS_DIRECTION_SECTORS_H_
#define KELPBOX_JOBS_DIRECTION_SECTORS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "jobs/spread_law.h"

namespace Jobs {

inline constexpr std::size_t sector_count = 72;
using Sectors = std::array<double, sector_count>;

// Multiples of 5 degrees, which jobs often ask for, lie in the middle of a sector and not on its
// edge. The first sector is that about -pi, which is also that about pi.
std::size_t sector_of(double direction);
// In rad, of the lower edge; that of `sector_count` closes the circle.
double sector_edge(std::size_t sector);

// The share of each sector in the law with the power s, without limits that are only those of the
// site. NaN for a power that is not finite or below 0.
Sectors sector_shares(const SpreadLaw& law, double s);

// Variance by harmonic and direction. Harmonics share rows if there are very many.
class DirectionGrid {
 public:
  DirectionGrid() = default;
  DirectionGrid(std::uint64_t lowest_harmonic, std::uint64_t highest_harmonic);

  void add(std::uint64_t harmonic, double direction, double v) {
    rows_[row_of(harmonic)][sector_of(direction)] += v;
  }

  const std::vector<Sectors>& rows() const { return rows_; }
  std::size_t row_of(std::uint64_t harmonic) const;
  // The first harmonic of a row; that of `rows().size()` is one more than the highest.
  std::uint64_t first_harmonic(std::size_t row) const;

 private:
  std::uint64_t lowest_ = 0;
  std::uint64_t highest_ = 0;
  std::uint64_t per_row_ = 1;
  std::vector<Sectors> rows_;
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_DIRECTION_SECTORS_H_
