#include "jobs/made_band.h"

#include <cmath>
#include <cstddef>

#include "jobs/judge_criteria.h"

namespace Jobs {

std::optional<MadeBand> made_band(const std::vector<double>& variance) {
  double all = 0.0;
  for (const double v : variance) {
    if (v > 0.0) all += v;
  }
  if (!(all > 0.0) || !std::isfinite(all)) return std::nullopt;
  const double trace = Criteria::lost_trace * all;
  MadeBand band;
  double outside = 0.0;
  for (std::size_t h = 0; h < variance.size(); ++h) {
    if (variance[h] > 0.0) outside += variance[h];
    band.lowest = h;
    if (outside > trace) break;
  }
  outside = 0.0;
  for (std::size_t h = variance.size(); h > 0; --h) {
    if (variance[h - 1] > 0.0) outside += variance[h - 1];
    band.highest = h - 1;
    if (outside > trace) break;
  }
  return band;
}

}  // namespace Jobs
