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
  if (most == losses.end() || most->share < worth_saying) return "";
  return show_share(most->share) + " of the variance " + most->where;
}

std::string height_remark(const JudgedRun& judged, const std::vector<Loss>& losses,
                          const Finding& finding) {
  if (judged.made_moments.m0 == 0.0 && judged.asked.kind != SeaKind::still) {
    const std::string loss = main_loss(losses);
    return loss.empty() ? "no wave is made" : "no wave is made: " + loss;
  }
  const std::string loss = main_loss(losses);
  if (finding.verdict != Verdict::look) return loss;
  if (*finding.made < *finding.asked) {
    return loss.empty() ? "fewer waves than asked for reach the paddles" : loss;
  }
  return std::isfinite(judged.asked.high)
             ? "limits of a formula move to whole harmonics; a longer repeat comes nearer"
             : "the fronts hold more than the formula; see the changes of the sea";
}

// The stages between the formula and the record, for Hs and m0.
void judge_stages(const JudgedRun& judged, const std::vector<Loss>& losses, Findings& findings) {
  const double asked = judged.asked_m0();
  const bool known = !judged.asked.unknown && std::isfinite(asked);
  const bool main_line = judged.asked.kind != SeaKind::group;

  struct Stage {
    const char* key;
    const char* name;
    double asked;
    bool known;
    double made;
    double chance;
    bool judged;
  };
  const bool walls = judged.path.tank.has_walls && judged.path.run.dalrymple();
  const double phases = chance_of_phases(judged.fates);
  const Stage stages[] = {
      {"hs", "Hs", asked, known, judged.made_moments.m0, judged.amplitude_chance, known},
      {"hs_band", "Hs in the band", asked, known, judged.band.m0 + judged.asked.other, 0.0, false},
      {"hs_fronts", "Hs of the fronts", judged.band.m0 + judged.asked.other, known,
       judged.fates.asked, judged.amplitude_chance,
       known && !judged.fan && !judged.asked.has_other},
      {"hs_record", "Hs of the record", judged.made_moments.m0, true, judged.record_m0, phases,
       !judged.fan && !walls},
  };
  for (const Stage& stage : stages) {
    // The spectrum of a record is not known before it becomes fronts.
    const bool no_band = !known || judged.asked.has_other;
    if (no_band && stage.key == std::string("hs_band")) continue;
    Finding& finding = add_finding(findings, "sea", stage.key, stage.name, "m");
    fill(finding, hm0(stage.asked), hm0(stage.made), 3);
    if (!stage.known) {
      finding.asked.reset();
      finding.asked_text = "";
    }
    finding.minor = !(stage.key == std::string("hs") && main_line);
    if (stage.judged && std::isfinite(stage.made)) {
      const double tolerance = tolerance_of(stage.chance, finding.criterion);
      finding.verdict =
          within(*finding.made, *finding.asked, tolerance) ? Verdict::good : Verdict::look;
    }
    if (stage.key == std::string("hs")) finding.remark = height_remark(judged, losses, finding);
    if (stage.key == std::string("hs_record")) {
      finding.remark = fmt::format("at x = {} m, y = {} m, over one repeat",
                                   show_number(judged.reference.x, 3, Zeros::drop),
                                   show_number(judged.reference.y, 3, Zeros::drop));
      if (finding.verdict == Verdict::look) {
        finding.remark +=
            "; waves of one harmonic meet in step, or drive signals lack some of "
            "them: give each sea its own seed";
      }
    }
    Finding& m0 = add_finding(findings, "sea", std::string("m0") + (stage.key + 2),
                              std::string("m0") + (stage.name + 2), "m2");
    fill(m0, stage.asked, stage.made, 3);
    if (!stage.known) {
      m0.asked.reset();
      m0.asked_text = "";
    }
    m0.minor = true;
  }
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
