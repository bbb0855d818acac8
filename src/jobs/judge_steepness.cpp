#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "jobs/judge_criteria.h"
#include "jobs/judge_parts.h"
#include "jobs/show_number.h"

namespace Jobs {
namespace {

Finding& add(Findings& findings, const char* key, const char* name, double made, int digits) {
  Finding& finding = add_finding(findings, "waves", key, name, "1");
  finding.made = made;
  finding.made_text = show_number(made, digits);
  return finding;
}

void conclude(Finding& finding, double limit) {
  finding.verdict = *finding.made <= limit ? Verdict::good : Verdict::look;
}

struct Place {
  double x = 0.0;
  double depth = 0.0;
  std::string name;
};

// Of the paddles, the reference point and the job's points.
Place shallowest(const JudgedRun& judged) {
  Place place{0.0, judged.path.tank.paddle_depth, "the paddles"};
  if (judged.depth < place.depth) place = {judged.reference.x, judged.depth, "the sea's position"};
  for (const PointRequest& point : judged.run.points) {
    try {
      const double depth = depth_at(judged.path, point.x);
      if (depth < place.depth) place = {point.x, depth, point.name};
    } catch (const std::string&) {
      continue;  // outside the tank, which is refused when the point is built
    }
  }
  return place;
}

void judge_significant(const JudgedRun& judged, double height, double f, double k,
                       Findings& findings) {
  const double limit = miche_limit(k, judged.depth);
  const double steepness = height / wave_length(f, judged.depth, judged.g);
  Finding& finding = add(findings, "steepness", "steepness", steepness, 2);
  if (judged.asked.kind == SeaKind::regular) {
    finding.criterion = "Miche " + show_number(limit, 2);
    conclude(finding, limit);
  } else {
    finding.criterion = "half of Miche, " + show_number(Criteria::significant_share * limit, 2);
    conclude(finding, Criteria::significant_share * limit);
  }
  finding.remark = finding.verdict == Verdict::look
                       ? "waves break before they arrive; lower or longer ones would not"
                       : "";
}

void judge_highest(const JudgedRun& judged, Findings& findings) {
  const ZeroCrossingWave wave = *judged.highest;
  const std::string which = fmt::format("highest wave: {}, {}", show_quantity(wave.height, "m", 3),
                                        show_quantity(wave.period, "s", 3));
  if (judged.asked.kind != SeaKind::regular) {
    const double k = wave_number(1.0 / wave.period, judged.depth, judged.g);
    const double limit = miche_limit(k, judged.depth);
    const double steepness = wave.height / wave_length(1.0 / wave.period, judged.depth, judged.g);
    if (std::isfinite(steepness)) {
      Finding& finding = add(findings, "steepness_highest", "highest wave", steepness, 2);
      finding.criterion = "Miche " + show_number(limit, 2);
      conclude(finding, limit);
      finding.remark = which.substr(which.find(':') + 2);
      if (finding.verdict == Verdict::look) finding.remark += ": it breaks";
    }
  }
  const double ratio = wave.height / judged.depth;
  Finding& finding = add(findings, "height_to_depth", "H/d", ratio, 2);
  finding.criterion = "at most " + show_number(Criteria::height_to_depth, 2);
  conclude(finding, Criteria::height_to_depth);
  finding.minor = true;
  finding.remark = which;
  if (finding.verdict == Verdict::look) finding.remark += ": depth limits it";
}

void judge_depth(const JudgedRun& judged, double height, double f, double k, Findings& findings) {
  const double kd = k * judged.depth;
  Finding& relative = add(findings, "relative_depth", "kd", kd, 2);
  relative.minor = true;
  relative.remark = kd > 3.14159 ? "deep water" : kd < 0.314159 ? "shallow water" : "intermediate";

  const Place place = shallowest(judged);
  const double local = height * std::sqrt(variance_ratio(f, judged.depth, place.depth, judged.g));
  const double length = wave_length(f, place.depth, judged.g);
  const double number = ursell_number(local, length, place.depth);
  if (!std::isfinite(number)) return;
  Finding& finding = add(findings, "ursell", "Ursell number", number, 2);
  finding.criterion = "at most " + show_number(Criteria::ursell, 2);
  conclude(finding, Criteria::ursell);
  finding.minor = true;
  finding.remark = fmt::format("at {}, {} deep", place.name, show_quantity(place.depth, "m", 2));
  if (finding.verdict == Verdict::look) {
    finding.remark += "; waves are not linear there: crests sharper, free second harmonics";
  }
}

}  // namespace

void judge_steepness(const JudgedRun& judged, Findings& findings) {
  const double f = judged.characteristic_frequency();
  const double k = wave_number(f, judged.depth, judged.g);
  if (!std::isfinite(k) || !(judged.depth > 0.0)) return;
  const bool regular = judged.asked.kind == SeaKind::regular;
  const double m0 = judged.made_moments.m0;
  double height = regular ? std::sqrt(8.0 * m0) : hm0(m0);
  // A significant height says nothing about the waves of a group or of a few sines.
  if (regular || judged.asked.kind == SeaKind::irregular) {
    judge_significant(judged, height, f, k, findings);
  } else if (judged.highest) {
    height = judged.highest->height;
  }
  if (judged.highest) judge_highest(judged, findings);
  judge_depth(judged, height, f, k, findings);
}

}  // namespace Jobs
