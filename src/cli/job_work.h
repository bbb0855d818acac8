// One job, from its file to its results, in a process of its own.
#ifndef KELPBOX_CLI_JOB_WORK_H_
#define KELPBOX_CLI_JOB_WORK_H_

#include <string>

#include "cli/child.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "outputs/output_folder.h"

namespace Cli {

struct JobWork {
  std::string path;
  Outputs::OutputFolder* folder = nullptr;  // null if nothing is to be written
  std::string folder_failure;               // why there is no folder although there should be one
  unsigned workers = 1;                     // threads
};

// Reports the findings to standard output: as text, or with --json as the summary. Reports failures
// to standard error: as text, or with --json as failure_json does. Faults of the job come before
// the failure of the folder. Does not commit the folder. Returns an exit code.
int do_job(const JobWork& work, const JobOptions& options, const Console& console,
           ChildReport& report);

}  // namespace Cli

#endif  // KELPBOX_CLI_JOB_WORK_H_
