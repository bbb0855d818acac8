// The fronts of a run as text that a job can read again.
#ifndef KELPBOX_OUTPUTS_FRONTS_CSV_H_
#define KELPBOX_OUTPUTS_FRONTS_CSV_H_

#include "jobs/run.h"
#include "outputs/output_folder.h"

namespace Outputs {

// Writes fronts.csv, the merged fronts at the paddle line, and fronts_<n>.csv for each sea, at the
// position of that sea. Throws CannotWrite.
void write_fronts_csv(Jobs::Run& run, OutputFolder& folder);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_FRONTS_CSV_H_
