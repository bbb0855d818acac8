// The summary of a run as JSON. docs/outputs.md describes the keys.
#ifndef KELPBOX_OUTPUTS_SUMMARY_H_
#define KELPBOX_OUTPUTS_SUMMARY_H_

#include <optional>
#include <string>
#include <vector>

#include "jobs/drive_signals.h"
#include "jobs/judgement.h"
#include "jobs/run.h"
#include "outputs/field_netcdf.h"
#include "outputs/output_folder.h"
#include "outputs/point_wave.h"

namespace Outputs {

struct Reports {
  std::vector<PointReport> points;
  std::optional<FieldReport> field;
};

// `drive` and `folder` may be null. All files of the folder are listed with their checksums, except
// the summary itself. Throws CannotWrite if one of them cannot be read.
std::string summary_text(Jobs::Run& run, const Jobs::DriveSignals* drive,
                         const Jobs::Judgement& judgement, const Reports& reports,
                         OutputFolder* folder);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_SUMMARY_H_
