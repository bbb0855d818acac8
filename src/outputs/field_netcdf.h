// The wave field over the tank as NetCDF.
#ifndef KELPBOX_OUTPUTS_FIELD_NETCDF_H_
#define KELPBOX_OUTPUTS_FIELD_NETCDF_H_

#include <cstddef>
#include <string>
#include <vector>

#include "jobs/run.h"
#include "outputs/field_frames.h"
#include "outputs/output_folder.h"
#include "outputs/progress.h"

namespace Outputs {

struct FieldReport {
  double rate = 0.0;  // Hz, as fitted
  std::size_t frames = 0;
  FieldAxis x;
  FieldAxis y;
  double lowest = 0.0;  // m, over all frames
  double highest = 0.0;
  std::vector<std::string> remarks;
};

// Writes field.nc: eta (time, y, x) as 16-bit integers, which are the library's frames, compressed
// in chunks that suit both frames and time series. Needs little memory besides the frames. Throws
// CannotWrite, Cancelled, and BadJob when the library refuses the field.
FieldReport write_field(Jobs::Run& run, OutputFolder& folder, const Progress& progress);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_FIELD_NETCDF_H_
