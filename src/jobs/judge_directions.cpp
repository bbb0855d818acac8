#include <fmt/format.h>

#include <cmath>

#include "base/constants.h"
#include "jobs/judge_criteria.h"
#include "jobs/judge_parts.h"
#include "jobs/show_number.h"
#include "maths/angle.h"

namespace Jobs {
namespace {

double degrees(double radians) { return radians / Base::Pi * 180.0; }

void fill(Finding& finding, double asked, double made) {
  finding.asked = asked;
  finding.made = made;
  finding.asked_text = show_direction(asked);
  finding.made_text = show_direction(made);
}

// Directions that are drawn, one for each wave, scatter around their law.
std::string scatter(const JudgedRun& judged) {
  const DirectionStats& made = judged.fates.made_directions;
  const double waves = made.effective_waves();
  if (!judged.spread_by_law || !(waves > 0.0)) return "";
  return fmt::format("drawn for {:.0f} waves that matter, which scatter the mean by {}", waves,
                     show_direction(made.spread() / std::sqrt(waves)));
}

bool mean_fits(double law, double other) {
  return std::fabs(degrees(Maths::wrap_angle(other - law))) <= Criteria::direction_deg;
}

bool spread_fits(double law, double other) {
  return std::fabs(other - law) <= Criteria::spread * law;
}

// `limits_fit`: whether the law within the limits of the angle would be good.
std::string advice(const JudgedRun& judged, bool limits_fit) {
  const FrontFates& fates = judged.fates;
  const double lost =
      fates.turned + fates.redirected + fates.outside_limits + fates.evanescent + fates.behind;
  if (lost > Criteria::lost_share * fates.asked)
    return "the most oblique waves are not made; see the losses";
  const DirectionStats& limited = fates.limited_directions;
  if (!limits_fit) {
    return fmt::format("the limits of the angle leave a mean of {} and a spread of {}",
                       show_direction(limited.mean()), show_direction(limited.spread()));
  }
  if (judged.spread_by_law) return "; a longer repeat scatters less, and so may another seed";
  return "the reference point lies at another depth than the sea";
}

}  // namespace

void judge_directions(const JudgedRun& judged, Findings& findings) {
  const DirectionStats& asked = judged.fates.asked_directions;
  const DirectionStats& made = judged.fates.made_directions;
  if (!(asked.variance > 0.0) || !(made.variance > 0.0)) return;
  // In a flume there is nothing to say.
  constexpr double nothing = 1e-9;
  const bool along = std::fabs(asked.mean()) < nothing && asked.spread() < nothing &&
                     std::fabs(made.mean()) < nothing && made.spread() < nothing;
  if (along) return;
  // Between reflecting walls, each oblique wave has its mirror image.
  const bool mirrored = judged.path.tank.has_walls && judged.path.run.dalrymple();

  Finding& mean = add_finding(findings, "sea", "direction", "direction", "rad");
  fill(mean, asked.mean(), made.mean());
  if (mirrored) {
    mean.remark = "side walls reflect: each oblique wave has its mirror image";
  } else {
    mean.criterion = "within 2 deg";
    const double off = std::fabs(degrees(Maths::wrap_angle(made.mean() - asked.mean())));
    mean.verdict = mean_fits(asked.mean(), made.mean()) ? Verdict::good : Verdict::look;
    mean.remark = scatter(judged);
    if (mean.verdict == Verdict::look) {
      const std::string mend =
          advice(judged, mean_fits(asked.mean(), judged.fates.limited_directions.mean()));
      mean.remark = mend.starts_with(";") ? mean.remark + mend : mend;
    } else if (off < 0.5 * Criteria::direction_deg) {
      mean.remark = "";
    }
  }

  const double least = Criteria::least_spread_deg;
  if (degrees(asked.spread()) < least && degrees(made.spread()) < least) return;
  Finding& spread = add_finding(findings, "sea", "spread", "spread", "rad");
  fill(spread, asked.spread(), made.spread());
  if (mirrored) return;
  if (degrees(asked.spread()) < least) return;
  spread.criterion = "within " + show_share(Criteria::spread, Zeros::drop);
  const bool good = spread_fits(asked.spread(), made.spread());
  spread.verdict = good ? Verdict::good : Verdict::look;
  if (good) return;
  const std::string mend =
      advice(judged, spread_fits(asked.spread(), judged.fates.limited_directions.spread()));
  spread.remark = mend.starts_with(";") ? "directions are drawn" + mend : mend;
}

void judge_crests(const JudgedRun& judged, Findings& findings) {
  for (const FocusCrest& crest : judged.crests) {
    const bool several = judged.crests.size() > 1;
    Finding& finding = add_finding(findings, "sea", several ? "crest." + crest.sea : "crest",
                                   several ? "crest of " + crest.sea : "crest", "m");
    finding.asked = crest.asked;
    finding.made = crest.made;
    finding.asked_text = show_quantity(crest.asked, "m", 3);
    finding.made_text = show_quantity(crest.made, "m", 3);
    if (!crest.alone) {
      finding.remark = "other waves or a gain change it";
      continue;
    }
    finding.criterion = "within " + show_share(Criteria::height, Zeros::drop);
    const bool good =
        std::fabs(crest.made - crest.asked) <= Criteria::height * std::fabs(crest.asked);
    finding.verdict = good ? Verdict::good : Verdict::look;
    if (!good) {
      finding.remark = "a part of the group is lost, or a change moves its phases";
    }
  }
}

}  // namespace Jobs
