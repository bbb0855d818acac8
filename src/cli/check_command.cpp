#include "cli/commands.h"
#include "cli/job_batch.h"

namespace Cli {

int check(const JobOptions& options, Console& console) {
  std::vector<PlannedJob> jobs;
  for (const std::string& path : options.jobs) jobs.push_back({path, ""});
  return run_batch(jobs, options, console);
}

}  // namespace Cli
