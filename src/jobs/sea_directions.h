// The directions that were asked for, beside those that are made, as a polar chart shows them.
#ifndef KELPBOX_JOBS_SEA_DIRECTIONS_H_
#define KELPBOX_JOBS_SEA_DIRECTIONS_H_

#include <optional>
#include <vector>

#include "jobs/direction_sectors.h"
#include "jobs/judged_run.h"

namespace Jobs {

struct SeaDirections {
  std::vector<double> f;          // Hz, the edges of the rows
  std::vector<Sectors> variance;  // m2, of the fronts that are made, at the reference point
  // m2 in each sector, over all rows: what the fronts of each sea carry to the reference point,
  // with the directions at the sea's position, or of its spreading law. Empty where a law is not
  // known.
  std::optional<Sectors> asked;
};

// Empty if nothing is made.
std::optional<SeaDirections> sea_directions(const JudgedRun& judged);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SEA_DIRECTIONS_H_
