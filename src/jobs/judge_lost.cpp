#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "jobs/judge_criteria.h"
#include "jobs/judge_parts.h"
#include "jobs/show_number.h"

namespace Jobs {
namespace {

std::string hertz(double frequency) { return show_quantity(frequency, "Hz", 3); }

std::string bank_name(const JudgedRun& judged, std::size_t bank) {
  return judged.run.experiment.context().wavemaker_bank[bank].name;
}

std::string half_rate_advice(const JudgedRun& judged) {
  const Maths::RunData& run = judged.path.run;
  return fmt::format("the signals hold waves up to {}; a rate of {:.0f} Hz would do",
                     hertz(static_cast<double>(judged.path.last_harmonic) / judged.repeat),
                     std::ceil(2.5 * run.freq(run.max_harmonic())));
}

// "1.04 %" for a share that lies above the limit but would be shown as the limit.
std::string show_lost(double share) {
  std::string shown = show_share(share);
  if (share <= Criteria::lost_share || shown != show_share(Criteria::lost_share)) return shown;
  return show_number(share * 100.0, 3) + " %";
}

}  // namespace

std::vector<Loss> losses_of(const JudgedRun& judged) {
  const FrontFates& fates = judged.fates;
  const Maths::RunData& run = judged.path.run;
  const std::string lowest = hertz(run.freq(run.min_harmonic()));
  const std::string highest = hertz(run.freq(run.max_harmonic()));
  const Maths::TankConfig& tank = judged.path.tank;
  const std::string limits =
      show_direction(tank.min_angle) + " to " + show_direction(tank.max_angle);

  std::vector<Loss> losses;
  const auto add = [&](const Loss& loss) { losses.push_back(loss); };
  add({"cut_below", "below " + lowest, "lies below " + lowest,
       "the site makes no lower waves; a shorter peak period loses less", judged.below.m0});
  add({"cut_above", "above " + highest, "lies above " + highest,
       "the site makes no higher frequencies; a longer peak period loses less", judged.above.m0});
  if (judged.asked.other > 0.0 && !judged.random_amplitudes) {
    const double found = fates.asked - judged.band.m0;
    add({"cut_record", "outside the band", "lies outside " + lowest + " to " + highest,
         "the run makes only these frequencies", std::max(judged.asked.other - found, 0.0)});
  }
  add({"turned", "too oblique for its place", "is too oblique for its place",
       "no wave from the paddles arrives there so obliquely; a smaller angle would", fates.turned});
  add({"redirected", "made in another direction", "is made in another direction",
       "no wave from the paddles arrives there so obliquely; a smaller angle would",
       fates.redirected});
  add({"outside_limits", "outside the angle limits", "lies outside the angle limits",
       "at the paddles, angles from " + limits + " are made; turn or narrow the sea",
       fates.outside_limits});
  add({"not_finite", "turned back on the way", "is turned back by deeper water on its way",
       "no such wave arrives from the paddles; a smaller angle would", fates.not_finite});
  add({"evanescent", "evanescent across the tank", "does not propagate between the side walls",
       "smaller angles or a wider tank lose less", fates.evanescent});
  add({"above_half_rate", "above half the drive's rate", "lies above half the drive's rate",
       half_rate_advice(judged), fates.above_half_rate});
  add({"behind", "towards the paddles", "travels towards every paddle",
       "no paddle can make it; turn the sea", fates.behind});
  for (std::size_t b = 0; b < fates.withheld.size(); ++b) {
    const std::string width = show_quantity(judged.path.banks[b].width, "m", 2);
    const std::string name = bank_name(judged, b);
    const std::string of_bank = fates.withheld.size() > 1 ? ", " + name : "";
    add({"withheld." + name, "withheld by wide paddles" + of_bank,
         "is withheld by paddles of " + width,
         "they cannot make short oblique waves; longer waves or smaller angles lose less",
         fates.withheld[b]});
  }

  // Everything that is asked for: what is cut before it becomes fronts, and the fronts.
  double total = fates.asked;
  for (const Loss& loss : losses) {
    if (loss.key.starts_with("cut_") && std::isfinite(loss.m0)) total += loss.m0;
  }
  for (Loss& loss : losses) loss.share = total > 0.0 ? loss.m0 / total : 0.0;
  losses.erase(
      std::remove_if(losses.begin(), losses.end(),
                     [](const Loss& loss) { return !(loss.share > Criteria::lost_trace); }),
      losses.end());
  return losses;
}

void judge_lost(const JudgedRun& judged, const std::vector<Loss>& losses, Findings& findings) {
  for (const Loss& loss : losses) {
    Finding& finding = add_finding(findings, "lost", loss.key, loss.quantity, "%");
    finding.made = loss.share * 100.0;
    finding.made_text =
        fmt::format("{} (Hs {})", show_lost(loss.share), show_quantity(hm0(loss.m0), "m", 2));
    finding.criterion = "at most " + show_share(Criteria::lost_share, Zeros::drop);
    const bool good = loss.share <= Criteria::lost_share;
    finding.verdict = good ? Verdict::good : Verdict::look;
    finding.minor = good;
    finding.remark = good ? "of the variance" : "of the variance; " + loss.mend;
  }
  if (judged.fates.undefined > 0) {
    Finding& finding = add_finding(findings, "lost", "undefined", "fronts that are NaN", "1");
    finding.made = static_cast<double>(judged.fates.undefined);
    finding.made_text = fmt::format("{}", judged.fates.undefined);
    finding.criterion = "none";
    finding.verdict = Verdict::look;
    finding.remark = fmt::format(
        "first at harmonic {} ({}); a formula has no value there", judged.fates.undefined_harmonic,
        hertz(static_cast<double>(judged.fates.undefined_harmonic) / judged.repeat));
  }
}

}  // namespace Jobs
