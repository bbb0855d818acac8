#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <numeric>

#include "jobs/judge_criteria.h"
#include "jobs/judge_parts.h"
#include "jobs/show_number.h"

namespace Jobs {
namespace {

// Relative standard deviation of the Hs of a record in which several waves of random phases share
// a harmonic: each pair adds its product, times the cosine of the phase between them.
double chance_of_phases(const FrontFates& fates) {
  double sum = 0.0;
  double pairs = 0.0;
  for (std::size_t h = 0; h < fates.arriving.size(); ++h) {
    sum += fates.arriving[h];
    pairs += std::max(fates.arriving[h] * fates.arriving[h] - fates.arriving_squares[h], 0.0);
  }
  return sum > 0.0 ? 0.5 * std::sqrt(pairs) / sum : 0.0;
}

// "within 2 %", or as much as chance allows.
double tolerance_of(double chance, std::string& criterion) {
  const double tolerance = std::max(Criteria::height, Criteria::chance * chance);
  criterion = "within " + show_share(tolerance, Zeros::drop);
  if (tolerance > Criteria::height) criterion += " (chance)";
  return tolerance;
}

bool within(double made, double asked, double tolerance) {
  return std::fabs(made - asked) <= tolerance * std::fabs(asked);
}

void fill(Finding& finding, double asked, double made, int digits) {
  finding.asked = asked;
  finding.made = made;
  finding.asked_text = show_quantity(asked, finding.units, digits);
  finding.made_text = show_quantity(made, finding.units, digits);
}

// What explains a height that is too low, or would be with more of it.
std::string main_loss(const std::vector<Loss>& losses) {
  constexpr double worth_saying = 5e-4;
  const auto most = std::max_element(
      losses.begin(), losses.end(), [](const Loss& a, const Loss& b) { return a.share < b.share; });
  if (most == losses.end() || most->share < worth_saying || most->key == "redirected") return "";
  return show_share(most->share) + " of the variance " + most->where;
}

std::string height_remark(const JudgedRun& judged, const std::vector<Loss>& losses,
                          const Finding& finding) {
  std::string loss = main_loss(losses);
  if (judged.made_moments.m0 == 0.0) {
    return loss.empty() ? "no wave is made" : "no wave is made: " + loss;
  }
  if (finding.verdict != Verdict::look) return loss;
  if (*finding.made < *finding.asked) {
    return loss.empty() ? "fewer waves than asked for reach the paddles" : loss;
  }
  return std::isfinite(judged.asked.high)
             ? "limits of a formula move to whole harmonics; a longer repeat comes nearer"
             : "the fronts hold more than the formula; see the changes of the sea";
}

// One of the stages between the formula and the record: variances in m2.
struct Stage {
  std::string suffix;  // of the key: "_band"
  std::string name;    // " in the band"
  double asked = 0.0;
  double made = 0.0;
  bool known = false;  // what is asked for
};

Finding& add_quantity(const Stage& stage, const std::string& key, const std::string& name,
                      const std::string& units, double (*of)(double), Findings& findings) {
  Finding& finding = add_finding(findings, "sea", key + stage.suffix, name + stage.name, units);
  fill(finding, of(stage.asked), of(stage.made), 3);
  if (!stage.known) {
    finding.asked.reset();
    finding.asked_text = "";
  }
  finding.minor = true;
  return finding;
}

Finding& add_hs(const Stage& stage, Findings& findings) {
  return add_quantity(stage, "hs", "Hs", "m", hm0, findings);
}

void add_m0(const Stage& stage, Findings& findings) {
  add_quantity(
      stage, "m0", "m0", "m2", [](double m0) { return m0; }, findings);
}

void judge(Finding& finding, double chance) {
  if (!std::isfinite(*finding.made)) return;
  const double tolerance = tolerance_of(chance, finding.criterion);
  const bool good = within(*finding.made, *finding.asked, tolerance);
  finding.verdict = good ? Verdict::good : Verdict::look;
}

// Whether the record is that of waves whose phases are independent.
bool independent_phases(const JudgedRun& judged) {
  const bool mirrored = judged.path.tank.has_walls && judged.path.run.dalrymple();
  return !judged.fan && !mirrored;
}

void judge_record(const JudgedRun& judged, Findings& findings) {
  const std::vector<double>& arriving = judged.fates.arriving;
  const Stage record{"_record", " of the record",
                     std::accumulate(arriving.begin(), arriving.end(), 0.0), judged.record_m0,
                     true};
  Finding& finding = add_hs(record, findings);
  if (independent_phases(judged)) judge(finding, chance_of_phases(judged.fates));
  finding.remark = fmt::format("at x = {} m, y = {} m, over one repeat",
                               show_number(judged.reference.x, 3, Zeros::drop),
                               show_number(judged.reference.y, 3, Zeros::drop));
  if (finding.verdict == Verdict::look) {
    finding.remark += "; waves of one frequency meet in step: give each sea its own seed";
  }
  add_m0(record, findings);
}

void judge_stages(const JudgedRun& judged, const std::vector<Loss>& losses, Findings& findings) {
  const double asked = judged.asked_m0();
  const double in_band = judged.band.m0 + judged.asked.other;
  const bool known = !judged.asked.unknown && std::isfinite(asked);
  // The spectrum of a record is not known before it becomes fronts.
  const bool band_known = known && !judged.asked.has_other;

  const Stage all{"", "", asked, judged.made_moments.m0, known};
  Finding& hs = add_hs(all, findings);
  if (known) judge(hs, judged.amplitude_chance);
  hs.remark = height_remark(judged, losses, hs);
  hs.minor = judged.asked.kind == SeaKind::group;
  add_m0(all, findings);

  const Stage band{"_band", " in the band", asked, in_band, known};
  if (band_known) {
    add_hs(band, findings);
    add_m0(band, findings);
  }
  const Stage fronts{"_fronts", " of the fronts", in_band, judged.fates.asked, known};
  Finding& of_fronts = add_hs(fronts, findings);
  if (band_known && !judged.fan) judge(of_fronts, judged.amplitude_chance);
  add_m0(fronts, findings);
  judge_record(judged, findings);
}

// Each sine wave by itself.
void judge_lines(const JudgedRun& judged, const std::vector<Loss>& losses, Findings& findings) {
  // Waves that share a harmonic are one.
  std::map<std::int64_t, Moments> asked;
  for (const VarianceLine& line : judged.asked.lines) {
    asked[std::llround(line.frequency * judged.repeat)].add(line.frequency, line.variance);
  }
  int number = 0;
  for (const auto& [harmonic, moments] : asked) {
    if (!(moments.m0 > 0.0)) continue;
    ++number;
    const std::string suffix = asked.size() > 1 ? fmt::format(" {}", number) : "";
    const std::string key = asked.size() > 1 ? fmt::format(".{}", number) : "";
    const bool in_run = harmonic > 0 && harmonic < static_cast<std::int64_t>(judged.made.size());
    const double made = in_run ? judged.made[static_cast<std::size_t>(harmonic)] : 0.0;

    Finding& height = add_finding(findings, "sea", "height" + key, "H" + suffix, "m");
    fill(height, std::sqrt(8.0 * moments.m0), std::sqrt(8.0 * made), 3);
    const double tolerance = tolerance_of(0.0, height.criterion);
    height.verdict = within(*height.made, *height.asked, tolerance) ? Verdict::good : Verdict::look;
    if (height.verdict == Verdict::look) height.remark = height_remark(judged, losses, height);
    if (!(made > 0.0)) continue;

    Finding& period = add_finding(findings, "sea", "period" + key, "T" + suffix, "s");
    const double asked_period = moments.m0 / moments.first;
    fill(period, asked_period, judged.repeat / static_cast<double>(harmonic), 3);
    period.criterion = "within " + show_share(Criteria::period, Zeros::drop);
    const bool good = within(*period.made, asked_period, Criteria::period);
    period.verdict = good ? Verdict::good : Verdict::look;
    constexpr double noted = 1e-3;
    if (!within(*period.made, asked_period, noted)) {
      const double whole = std::round(judged.repeat / asked_period) * asked_period;
      period.remark = fmt::format("the nearest harmonic; a repeat of {} fits",
                                  show_quantity(whole, "s", 5, Zeros::drop));
    }
  }
}

}  // namespace

void judge_heights(const JudgedRun& judged, const std::vector<Loss>& losses, Findings& findings) {
  constexpr std::size_t few = 4;
  const SeaKind kind = judged.asked.kind;
  if (kind == SeaKind::still) {
    Finding& finding = add_finding(findings, "sea", "hs", "Hs", "m");
    fill(finding, 0.0, hm0(judged.made_moments.m0), 3);
    finding.remark = "no waves are asked for";
    return;
  }
  const bool by_line = (kind == SeaKind::regular || kind == SeaKind::lines) && !judged.fan &&
                       judged.asked.lines.size() <= few;
  if (by_line) {
    judge_lines(judged, losses, findings);
  } else {
    judge_stages(judged, losses, findings);
  }
}

}  // namespace Jobs
