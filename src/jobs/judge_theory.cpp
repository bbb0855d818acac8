#include <fmt/format.h>

#include <cmath>
#include <numeric>

#include "base/constants.h"
#include "jobs/judge_criteria.h"
#include "jobs/judge_parts.h"
#include "jobs/show_number.h"

namespace Jobs {
namespace {

std::string bank_name(const JudgedRun& judged, std::size_t bank) {
  return judged.run.experiment.context().wavemaker_bank[bank].name;
}

std::string suffix(const JudgedRun& judged, std::size_t bank) {
  return judged.path.banks.size() > 1 ? ", " + bank_name(judged, bank) : "";
}

// The frequency above which only a trace of the waves lies that are asked of the paddles.
double highest_frequency(const JudgedRun& judged) {
  constexpr double trace = 0.01;  // of the variance
  const std::vector<double>& arriving = judged.fates.arriving;
  const double total = std::accumulate(arriving.begin(), arriving.end(), 0.0);
  double sum = 0.0;
  for (std::size_t h = arriving.size(); h-- > 1;) {
    sum += arriving[h];
    if (sum > trace * total) return static_cast<double>(h) / judged.repeat;
  }
  return NAN;
}

void judge_widths(const JudgedRun& judged, Findings& findings) {
  const double depth = judged.path.tank.paddle_depth;
  const double length = wave_length(highest_frequency(judged), depth, judged.g);
  if (!std::isfinite(length)) return;
  for (std::size_t b = 0; b < judged.path.banks.size(); ++b) {
    const double width = judged.path.banks[b].width;
    if (!(width > 0.0)) continue;
    Finding& finding = add_finding(findings, "waves", "shortest_wave." + bank_name(judged, b),
                                   "shortest wave" + suffix(judged, b), "m");
    finding.made = length;
    finding.made_text = show_quantity(length, "m", 2);
    finding.minor = true;
    if (!(judged.fates.oblique > 0.0)) {
      finding.remark = "all waves run along the paddles' normals";
      continue;
    }
    finding.criterion = "2 paddles of " + show_quantity(width, "m", 2);
    const double withheld = judged.fates.withheld[b] / judged.fates.asked;
    const bool wide = length >= Criteria::widths_per_wave * width;
    const bool good = wide || withheld <= Criteria::lost_share;
    finding.verdict = good ? Verdict::good : Verdict::look;
    if (wide) continue;
    const double k = Base::Pi / width;
    const double f = std::sqrt(judged.g * k * std::tanh(k * depth)) / Base::TwoPi;
    finding.remark = fmt::format("above {}, waves far off the normal are withheld: {}",
                                 show_quantity(f, "Hz", 3), show_share(withheld));
  }
}

void judge_refraction(const JudgedRun& judged, Findings& findings) {
  const FrontFates& fates = judged.fates;
  const double made = fates.made_total();
  if (!(made > 0.0)) return;
  const double error = std::sqrt(fates.refracted / made) - 1.0;
  constexpr double nothing = 1e-6;
  if (!(std::fabs(error) > nothing)) return;
  Finding& finding =
      add_finding(findings, "waves", "refraction", "oblique waves over the slope", "%");
  finding.made = error * 100.0;
  finding.made_text = (error > 0.0 ? "+" : "") + show_share(error);
  finding.criterion = "within " + show_share(Criteria::theory, Zeros::drop);
  const bool good = std::fabs(error) <= Criteria::theory;
  finding.verdict = good ? Verdict::good : Verdict::look;
  finding.minor = good;
  finding.remark = good
                       ? "real heights, beside those shown"
                       : fmt::format(
                             "the theory lacks refraction: real waves are {} than shown; "
                             "ask for {} times the height",
                             error < 0.0 ? "lower" : "higher", show_number(1.0 / (1.0 + error), 3));
}

void judge_edge(const JudgedRun& judged, std::size_t b, double f, Findings& findings) {
  const Common::Machine& machine = judged.run.experiment.context().wavemaker_bank[b].machine();
  const double depth = judged.path.tank.paddle_depth;
  double edge = 0.0;
  try {
    edge = machine.working_edge(depth);
  } catch (const std::string&) {
    return;  // the drive signals report it
  }
  constexpr double rounding = 1e-6;
  if (!(edge > depth + rounding)) return;
  const bool flap = machine.type() == Common::Machine::flap;
  const double k = wave_number(f, depth, judged.g);
  const double low = 1.0 - 1.0 / below_bed_ratio(k, depth, edge, flap);
  if (!std::isfinite(low)) return;
  Finding& finding =
      add_finding(findings, "waves", "below_bed." + bank_name(judged, b),
                  (flap ? "hinge below the bed" : "foot below the bed") + suffix(judged, b), "%");
  finding.made = -low * 100.0;
  finding.made_text = "-" + show_share(low);
  finding.criterion = "within " + show_share(Criteria::theory, Zeros::drop);
  const bool good = low <= Criteria::theory;
  finding.verdict = good ? Verdict::good : Verdict::look;
  finding.minor = good;
  finding.remark = fmt::format("{} below the bed: waves are too low at {}",
                               show_quantity(edge - depth, "m", 2), show_quantity(f, "Hz", 3));
  if (!good) {
    finding.remark +=
        fmt::format("; a gain of {} would mend it", show_number(1.0 / (1.0 - low), 3));
  }
}

}  // namespace

void judge_theory(const JudgedRun& judged, Findings& findings) {
  judge_widths(judged, findings);
  judge_refraction(judged, findings);
  const double f = judged.characteristic_frequency();
  if (!std::isfinite(f)) return;
  for (std::size_t b = 0; b < judged.path.banks.size(); ++b) judge_edge(judged, b, f, findings);
}

}  // namespace Jobs
