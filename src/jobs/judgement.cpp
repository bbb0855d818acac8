#include "jobs/judgement.h"

#include <cmath>
#include <memory>
#include <string>
#include <utility>

#include "jobs/captured_lines.h"
#include "jobs/failure.h"
#include "jobs/judge_parts.h"

namespace Jobs {
namespace {

std::vector<Finding> all_findings(const JudgedRun& judged) {
  const std::vector<Loss> losses = losses_of(judged);
  std::vector<Finding> findings;
  judge_heights(judged, losses, findings);
  judge_periods(judged, findings);
  judge_directions(judged, findings);
  judge_crests(judged, findings);
  judge_lost(judged, losses, findings);
  judge_machine(judged, findings);
  judge_statistics(judged, findings);
  judge_steepness(judged, findings);
  judge_theory(judged, findings);
  return findings;
}

bool finite(const std::optional<double>& value) { return !value || std::isfinite(*value); }

}  // namespace

Finding& add_finding(Findings& findings, const std::string& group, const std::string& key,
                     const std::string& quantity, const std::string& units) {
  Finding finding;
  finding.group = group;
  finding.key = key;
  finding.quantity = quantity;
  finding.units = units;
  findings.push_back(std::move(finding));
  return findings.back();
}

Judgement judge(Run& run, const DriveSignals* drive) {
  Judgement judgement;
  std::string message;
  {
    const CapturedLines lines;
    try {
      const JudgedRun judged = examine(run, drive);
      judgement.findings = all_findings(judged);
      judgement.spectrum = sea_spectrum(judged);
      judgement.directions = sea_directions(judged);
    } catch (...) {
      message = message_of_current();
    }
    run.log += lines.progress() + lines.faults();
  }
  if (!message.empty()) {
    const Span place = run.job.seas.empty() ? Span() : run.job.seas.front().holds.span;
    throw BadJob{{{"the waves cannot be judged: " + message, place, ""}}};
  }
  for (Finding& finding : judgement.findings) {
    // JSON has no NaN; the text says what happened.
    if (!finite(finding.asked)) finding.asked.reset();
    if (!finite(finding.made)) finding.made.reset();
    if (finding.verdict == Verdict::look) finding.minor = false;
    if (finding.verdict != Verdict::none) ++judgement.judged;
    if (finding.verdict == Verdict::look) ++judgement.looks;
  }
  return judgement;
}

}  // namespace Jobs
