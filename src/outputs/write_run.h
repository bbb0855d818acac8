// Writes everything that a job asks for into a folder.
#ifndef KELPBOX_OUTPUTS_WRITE_RUN_H_
#define KELPBOX_OUTPUTS_WRITE_RUN_H_

#include <string>

#include "jobs/drive_signals.h"
#include "jobs/judgement.h"
#include "jobs/run.h"
#include "outputs/output_folder.h"
#include "outputs/progress.h"

namespace Outputs {

// Writes signals, fronts, points, field, the inputs, log.txt, summary.json and the page. Does not
// commit.
// Returns the text of summary.json. Throws CannotWrite, Cancelled, and Jobs::BadJob when the
// library refuses a point or the field.
std::string write_run(Jobs::Run& run, const Jobs::DriveSignals& drive,
                      const Jobs::Judgement& judgement, OutputFolder& folder,
                      const Progress& progress);

// The summary of a run that writes nothing: without files and field. Computes the statistics at the
// points. `drive` may be null. Throws Jobs::BadJob when the library refuses a point.
std::string summary_json(Jobs::Run& run, const Jobs::DriveSignals* drive,
                         const Jobs::Judgement& judgement);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_WRITE_RUN_H_
