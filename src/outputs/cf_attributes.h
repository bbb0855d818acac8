// What the NetCDF files of a run share: the attributes and the time axis of the CF conventions.
#ifndef KELPBOX_OUTPUTS_CF_ATTRIBUTES_H_
#define KELPBOX_OUTPUTS_CF_ATTRIBUTES_H_

#include <cstddef>
#include <string>

#include "jobs/run.h"
#include "outputs/netcdf_file.h"

namespace Outputs {

// The attributes of the file. "history" is written only if the environment sets SOURCE_DATE_EPOCH,
// since a run gives the same bytes each time.
void put_file_attributes(NetcdfFile& file, Jobs::Run& run, const std::string& comment);

// "long_name" and "units".
void describe(NetcdfFile& file, int variable, const std::string& name, const std::string& units);

// A position in the tank: "X" or "Y".
int position_variable(NetcdfFile& file, const std::string& name, const std::string& axis,
                      int dimension);

// The time of each sample, in s from the start of the run. CF requires a date: 1970-01-01.
struct TimeAxis {
  int dimension = 0;
  int variable = 0;
  std::size_t samples = 0;
  double rate = 0.0;  // Hz
};
TimeAxis define_time(NetcdfFile& file, std::size_t samples, double rate);
void put_times(NetcdfFile& file, const TimeAxis& time);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_CF_ATTRIBUTES_H_
