// Writes everything that a job asks for into a folder.
#ifndef KELPBOX_OUTPUTS_WRITE_RUN_H_
#define KELPBOX_OUTPUTS_WRITE_RUN_H_

#include <functional>
#include <string>

#include "jobs/drive_signals.h"
#include "jobs/judgement.h"
#include "jobs/run.h"
#include "outputs/output_folder.h"

namespace Outputs {

// Reports the share done, 0 to 1, of the named step. Returns false to cancel.
using Progress = std::function<bool(const std::string& step, double done)>;

// Thrown after a Progress returned false.
struct Cancelled {};

// Writes signals, fronts, points, field, the inputs, summary.json and log.txt. Does not commit.
// Throws CannotWrite, Cancelled, and Jobs::BadJob when the library refuses a point or the field.
void write_run(Jobs::Run& run, const Jobs::DriveSignals& drive, const Jobs::Judgement& judgement,
               OutputFolder& folder, const Progress& progress);

// The summary as JSON, for --json and summary.json. `files` are names with checksums; null to leave
// them out.
std::string summary_json(const Jobs::Run& run, const Jobs::DriveSignals* drive,
                         const Jobs::Judgement& judgement, OutputFolder* folder);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_WRITE_RUN_H_
