// The waves at points as NetCDF: elevations in one file, spectra and directions in another, since
// CF allows one kind of feature in a file.
#ifndef KELPBOX_OUTPUTS_POINTS_NETCDF_H_
#define KELPBOX_OUTPUTS_POINTS_NETCDF_H_

#include <cstddef>
#include <memory>
#include <vector>

#include "jobs/run.h"
#include "outputs/netcdf_file.h"
#include "outputs/output_folder.h"
#include "outputs/point_wave.h"

namespace Outputs {

// Points that share one time axis and one set of sectors share files, since most readers want one
// of each: points.nc and spectra.nc for all, or else point_<n>.nc and spectrum_<n>.nc for each.
bool share_axes(const std::vector<Jobs::PointRequest>& points);

// The two files of `count` points from `first`. They are made with the first point that is put, and
// complete after `close`, which needs one. Each call may throw CannotWrite.
class PointsNetcdf {
 public:
  PointsNetcdf(Jobs::Run& run, OutputFolder& folder, std::size_t first, std::size_t count);

  void put(std::size_t point, const PointReport& report, const PointWave& wave);
  void close();

 private:
  void define_elevations(const PointReport& report);
  void define_spectra(const PointReport& report, const PointWave& wave);

  Jobs::Run& run_;
  OutputFolder& folder_;
  std::size_t first_;
  std::size_t count_;
  std::unique_ptr<NetcdfFile> elevations_;
  std::unique_ptr<NetcdfFile> spectra_;
  int eta_ = 0;
  int amplitude_ = 0;
  int density_ = 0;
  int share_ = 0;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_POINTS_NETCDF_H_
