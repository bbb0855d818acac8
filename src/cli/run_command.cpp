#include <filesystem>
#include <map>

#include "cli/commands.h"
#include "cli/job_batch.h"
#include "cli/options.h"
#include "jobs/job.h"

namespace Cli {

namespace {

namespace fs = std::filesystem;

std::string folder_of(const std::string& stem, const JobOptions& options) {
  if (options.out.empty()) return stem + ".out";
  return options.jobs.size() == 1 ? options.out : (fs::path(options.out) / stem).string();
}

}  // namespace

int run(const JobOptions& options, Console& console) {
  std::vector<PlannedJob> jobs;
  std::map<std::string, std::string> seen;  // path by stem
  for (const std::string& path : options.jobs) {
    const std::string stem = Jobs::job_stem(path);
    const auto [other, is_new] = seen.emplace(stem, path);
    if (!is_new) {
      throw BadUsage{"the jobs `" + other->second + "` and `" + path +
                         "` would both write to the folder `" + folder_of(stem, options) +
                         "`; run them one after the other, each with its own --out",
                     find_command("run")};
    }
    jobs.push_back({path, folder_of(stem, options)});
  }
  return run_batch(jobs, options, console);
}

}  // namespace Cli
