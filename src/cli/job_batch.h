// Jobs in processes of their own: what `run` and `check` share.
#ifndef KELPBOX_CLI_JOB_BATCH_H_
#define KELPBOX_CLI_JOB_BATCH_H_

#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/console.h"

namespace Cli {

struct PlannedJob {
  std::string path;    // as given; "-" for standard input
  std::string folder;  // for the results; empty if nothing is to be written
};

// Runs the jobs and shows their results in the order of the list. Returns the highest exit code, or
// that of the signal that interrupted them.
int run_batch(const std::vector<PlannedJob>& jobs, const JobOptions& options, Console& console);

}  // namespace Cli

#endif  // KELPBOX_CLI_JOB_BATCH_H_
