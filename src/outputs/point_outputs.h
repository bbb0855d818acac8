// All results at the points of a job.
#ifndef KELPBOX_OUTPUTS_POINT_OUTPUTS_H_
#define KELPBOX_OUTPUTS_POINT_OUTPUTS_H_

#include <vector>

#include "jobs/run.h"
#include "outputs/output_folder.h"
#include "outputs/point_wave.h"
#include "outputs/progress.h"

namespace Outputs {

// Builds each point once and writes its files before the next one. Throws CannotWrite, Cancelled,
// and BadJob when the library refuses a point.
std::vector<PointReport> write_points(Jobs::Run& run, OutputFolder& folder,
                                      const Progress& progress);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_POINT_OUTPUTS_H_
