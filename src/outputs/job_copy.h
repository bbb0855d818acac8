// The job as it is kept beside its results, so that they can be made again.
#ifndef KELPBOX_OUTPUTS_JOB_COPY_H_
#define KELPBOX_OUTPUTS_JOB_COPY_H_

#include <string>

#include "jobs/run.h"

namespace Outputs {

// The user's text with its comments. The options of the command line are appended, the paths of
// files that the run read lead to their copies in inputs/, and a job without a title has the one
// that its file name gave it. The copy of the copy is the same text.
std::string job_copy(const Jobs::Run& run);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_JOB_COPY_H_
