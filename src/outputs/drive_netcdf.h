// The drive signals of all banks as NetCDF.
#ifndef KELPBOX_OUTPUTS_DRIVE_NETCDF_H_
#define KELPBOX_OUTPUTS_DRIVE_NETCDF_H_

#include "jobs/drive_signals.h"
#include "jobs/run.h"
#include "outputs/output_folder.h"
#include "outputs/progress.h"

namespace Outputs {

// Writes drive.nc: a variable drive_<n> (paddle_<n>, time) for each bank, not compressed. Throws
// CannotWrite and Cancelled.
void write_drive_netcdf(Jobs::Run& run, const Jobs::DriveSignals& drive, OutputFolder& folder,
                        const Progress& progress);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_DRIVE_NETCDF_H_
