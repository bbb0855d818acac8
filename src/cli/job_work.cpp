#include "cli/job_work.h"

#include <cmath>
#include <memory>

#include "cli/failure_report.h"
#include "cli/judgement_table.h"
#include "jobs/judgement.h"
#include "outputs/write_run.h"

namespace Cli {

namespace {

std::string shown_path(const std::string& path) { return path == "-" ? "standard input" : path; }

const double unknown = std::nan("");

// "storm.toml: failed by --strict: Hs, Tp"
std::string strict_line(const std::string& path, const Jobs::Judgement& judgement) {
  std::string names;
  for (const Jobs::Finding& finding : judgement.findings) {
    if (finding.verdict != Jobs::Verdict::look) continue;
    names += (names.empty() ? "" : ", ") + finding.quantity;
  }
  return path + ": failed by --strict: " + names + "\n";
}

int build_and_judge(const JobWork& work, const JobOptions& options, const Console& console,
                    ChildReport& report) {
  report.progress("reading", unknown);
  Jobs::Diagnostics faults;
  Jobs::Job job = Jobs::read_job(work.path, options.set, faults);
  const std::unique_ptr<Jobs::Run> run = Jobs::prepare(std::move(job), std::move(faults));
  run->experiment.set_workers(work.workers);
  if (!work.folder_failure.empty()) throw Outputs::CannotWrite{work.folder_failure};
  report.progress("waves", unknown);
  Jobs::build(*run);
  report.progress("drive signals", unknown);
  const Jobs::DriveSignals drive(*run);
  report.progress("findings", unknown);
  const Jobs::Judgement judgement = Jobs::judge(*run, &drive);
  std::string summary;
  if (work.folder) {
    const auto progress = [&](const std::string& step, double done) {
      report.progress(step, done);
      return true;
    };
    summary = Outputs::write_run(*run, drive, judgement, *work.folder, progress);
  }
  if (console.json) {
    report.out(work.folder ? summary : Outputs::summary_json(*run, &drive, judgement));
  } else if (!console.quiet) {
    report.out(judgement_table(*run, judgement, console));
  }
  if (!options.strict || judgement.looks == 0) return Exit::good;
  if (!console.json) report.err(strict_line(shown_path(work.path), judgement));
  return Exit::check_failed;
}

}  // namespace

int do_job(const JobWork& work, const JobOptions& options, const Console& console,
           ChildReport& report) {
  try {
    return build_and_judge(work, options, console, report);
  } catch (...) {
    const Failure failure = failure_of_current(shown_path(work.path), ", nothing was built");
    report.err(console.json ? failure_json(failure) : shown(failure, console.err_colour));
    return failure.exit_code;
  }
}

}  // namespace Cli
