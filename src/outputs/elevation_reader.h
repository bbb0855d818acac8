// The surface elevations at points of a folder of results.
#ifndef KELPBOX_OUTPUTS_ELEVATION_READER_H_
#define KELPBOX_OUTPUTS_ELEVATION_READER_H_

#include <cstddef>
#include <optional>
#include <vector>

#include "outputs/page_source.h"

namespace Outputs {

// All samples of the point with this index of `points`, from points.nc, point_<n>.nc or else
// point_<n>.csv. Empty if there is none of these. A sample that the wave does not reach is NaN.
// Throws CannotRead.
std::optional<std::vector<double>> read_elevation(const PageSource& source, std::size_t index,
                                                  std::size_t points, std::size_t samples);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_ELEVATION_READER_H_
