#include "outputs/point_outputs.h"

#include <memory>
#include <string>

#include "outputs/point_csv.h"
#include "outputs/points_netcdf.h"

namespace Outputs {

std::vector<PointReport> write_points(Jobs::Run& run, OutputFolder& folder,
                                      const Progress& progress) {
  const Step step(progress, "points");
  const std::size_t count = run.points.size();
  const bool together = share_axes(run.points);
  std::vector<PointReport> reports;
  std::unique_ptr<PointsNetcdf> netcdf;
  for (std::size_t point = 0; point < count; ++point) {
    step.done(point, count);
    reports.push_back(build_point(run, point));
    const PointWave wave = point_wave(run);
    if (run.job.csv) write_point_csv(reports.back(), wave, std::to_string(point + 1), folder);
    if (!run.job.netcdf) continue;
    if (!netcdf) {
      netcdf = std::make_unique<PointsNetcdf>(run, folder, point, together ? count : 1);
    }
    netcdf->put(point, reports.back(), wave);
    if (together && point + 1 < count) continue;
    netcdf->close();
    netcdf.reset();
  }
  return reports;
}

}  // namespace Outputs
