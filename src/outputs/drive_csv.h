// The drive signals of one bank as text.
#ifndef KELPBOX_OUTPUTS_DRIVE_CSV_H_
#define KELPBOX_OUTPUTS_DRIVE_CSV_H_

#include <cstdint>

#include "jobs/drive_signals.h"
#include "jobs/run.h"
#include "outputs/output_folder.h"
#include "outputs/progress.h"

namespace Outputs {

// Writes drive_<bank + 1>.csv: a row for each sample, with the time and a column for each paddle.
// Throws CannotWrite and Cancelled.
void write_drive_csv(Jobs::Run& run, const Jobs::DriveSignals& drive, std::uint32_t bank,
                     OutputFolder& folder, const Progress& progress);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_DRIVE_CSV_H_
