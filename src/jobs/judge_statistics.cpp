#include <fmt/format.h>

#include <cmath>

#include "jobs/judge_criteria.h"
#include "jobs/judge_parts.h"
#include "jobs/show_number.h"

namespace Jobs {
namespace {

// Rounded up to two digits, so that it is easy to remember.
double round_up(double value) {
  const double unit = std::pow(10.0, std::floor(std::log10(value)) - 1.0);
  return std::ceil(value / unit - 1e-9) * unit;
}

std::string repeat_text(double repeat) {
  return show_quantity(round_up(repeat), "s", 3, Zeros::drop);
}

void judge_waves_per_run(const JudgedRun& judged, Findings& findings) {
  if (judged.asked.kind != SeaKind::irregular) return;
  const double period = tm02(judged.made_moments);
  if (!std::isfinite(period)) return;
  const double waves = judged.repeat / period;
  Finding& finding = add_finding(findings, "waves", "waves_per_run", "waves per run", "1");
  finding.made = waves;
  finding.made_text = fmt::format("{:.0f}", std::floor(waves));
  finding.criterion = fmt::format("at least {:.0f}", Criteria::waves_per_run);
  const bool good = waves >= Criteria::waves_per_run;
  finding.verdict = good ? Verdict::good : Verdict::look;
  if (!good) {
    finding.remark = "repeat of " + repeat_text(Criteria::waves_per_run * period) + " would do";
  }
}

void judge_peak_harmonics(const JudgedRun& judged, Findings& findings) {
  const SeaKind kind = judged.asked.kind;
  if (!judged.peak || (kind != SeaKind::irregular && kind != SeaKind::group)) return;
  const double harmonics = judged.peak->width * judged.repeat;
  Finding& finding = add_finding(findings, "waves", "peak_harmonics", "harmonics in the peak", "1");
  finding.made = harmonics;
  finding.made_text = show_number(harmonics, harmonics < 10.0 ? 2 : 3, Zeros::drop);
  finding.criterion = fmt::format("at least {:.0f}", Criteria::peak_harmonics);
  const bool good = harmonics >= Criteria::peak_harmonics;
  finding.verdict = good ? Verdict::good : Verdict::look;
  finding.minor = good;
  finding.remark = "within half of the greatest density";
  if (!good && judged.peak->width > 0.0) {
    finding.remark = "repeat of " + repeat_text(Criteria::peak_harmonics / judged.peak->width) +
                     " would draw its shape";
  }
}

}  // namespace

void judge_statistics(const JudgedRun& judged, Findings& findings) {
  judge_waves_per_run(judged, findings);
  judge_peak_harmonics(judged, findings);
}

}  // namespace Jobs
