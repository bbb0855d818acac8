#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "jobs/judge_criteria.h"
#include "jobs/judge_parts.h"
#include "jobs/show_number.h"

namespace Jobs {
namespace {

void fill(Finding& finding, double asked, double made) {
  finding.asked = asked;
  finding.made = made;
  finding.asked_text = show_quantity(asked, "s", 3);
  finding.made_text = show_quantity(made, "s", 3);
}

void judge_mean(const JudgedRun& judged, const char* key, const char* name,
                double (*period)(const Moments&), double tolerance, Findings& findings) {
  const double asked = period(judged.all);
  const double made = period(judged.made_moments);
  if (!std::isfinite(made)) return;
  Finding& finding = add_finding(findings, "sea", key, name, "s");
  fill(finding, asked, made);
  finding.minor = true;
  if (!std::isfinite(asked) || judged.asked.has_other) {
    finding.asked.reset();
    finding.asked_text = "";
    return;
  }
  if (judged.asked.kind != SeaKind::irregular) return;
  tolerance = std::max(tolerance, Criteria::chance * judged.amplitude_chance);
  const double in_band = period(judged.band);
  finding.criterion = "within " + show_share(tolerance, Zeros::drop);
  const bool good = std::fabs(made - asked) <= tolerance * asked;
  finding.verdict = good ? Verdict::good : Verdict::look;
  if (!good && std::fabs(made - in_band) <= tolerance * in_band) {
    finding.remark = "the tail of the spectrum is cut: in the band, " +
                     show_quantity(in_band, "s", 3) + " is asked for";
  } else if (!good) {
    finding.remark = judged.random_amplitudes
                         ? "amplitudes are random; a longer repeat scatters less"
                         : "a part of the spectrum is lost; see the losses";
  }
}

// White noise has no peak.
bool flat_top(const JudgedRun& judged) {
  const double least = Criteria::flat_top * judged.peak->density;
  const double f = judged.peak->frequency;
  return judged.asked.density(0.9 * f) >= least || judged.asked.density(1.1 * f) >= least;
}

void judge_peak(const JudgedRun& judged, Findings& findings) {
  if (flat_top(judged)) return;
  const double asked = judged.peak->frequency;
  const std::optional<double> harmonic =
      judged.random_amplitudes ? smoothed_peak(judged.made, 0.1 * asked * judged.repeat)
                               : greatest_harmonic(judged.made);
  if (!harmonic) return;
  const double made = *harmonic / judged.repeat;
  Finding& finding = add_finding(findings, "sea", "tp", "Tp", "s");
  fill(finding, 1.0 / asked, 1.0 / made);
  finding.minor = judged.asked.kind == SeaKind::group;
  if (judged.random_amplitudes) {
    finding.criterion = "within " + show_share(Criteria::random_peak, Zeros::drop);
    finding.remark = "smoothed, since amplitudes are random";
    const bool good = std::fabs(asked / made - 1.0) <= Criteria::random_peak;
    finding.verdict = good ? Verdict::good : Verdict::look;
    return;
  }
  finding.criterion = "within a harmonic";
  constexpr double rounding = 1e-9;
  const bool near = std::fabs(made - asked) * judged.repeat <= 1.0 + rounding;
  finding.verdict = near ? Verdict::good : Verdict::look;
  if (finding.verdict == Verdict::good) return;
  if (asked < judged.band_low || asked > judged.band_high) {
    finding.remark = fmt::format("the peak lies outside the band, {} to {}",
                                 show_quantity(judged.band_low, "Hz", 3),
                                 show_quantity(judged.band_high, "Hz", 3));
  } else {
    finding.remark = "the waves at the peak are lost; see the losses";
  }
}

}  // namespace

void judge_periods(const JudgedRun& judged, Findings& findings) {
  const SeaKind kind = judged.asked.kind;
  if (kind != SeaKind::irregular && kind != SeaKind::group) return;
  // A sine wave beside a spectrum has no density to compare with.
  if (judged.peak && judged.asked.lines.empty()) judge_peak(judged, findings);
  judge_mean(judged, "tm01", "Tm01", tm01, Criteria::tm01, findings);
  judge_mean(judged, "tm02", "Tm02", tm02, Criteria::tm02, findings);
  judge_mean(judged, "tm_10", "Tm-1,0", tm_10, Criteria::tm_10, findings);
}

}  // namespace Jobs
