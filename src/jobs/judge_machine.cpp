#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "jobs/bank_motion_stats.h"
#include "jobs/judge_criteria.h"
#include "jobs/judge_parts.h"
#include "jobs/show_number.h"

namespace Jobs {
namespace {

class BankFindings {
 public:
  BankFindings(const JudgedRun& judged, const BankMotionStats& motion, Findings& findings)
      : judged_(judged), motion_(motion), units_(motion.bank->units), findings_(findings) {}

  void add_all() {
    stroke();
    rate("velocity", "velocity", motion_.stats.velocity, units_ + "/s", motion_.max_velocity);
    rate("acceleration", "acceleration", motion_.stats.acceleration, units_ + "/s2",
         motion_.max_acceleration);
    clipped();
    held();
    ends();
  }

 private:
  Finding& add(const std::string& key, const std::string& name, const std::string& units) {
    const std::string& bank = motion_.bank->name;
    const bool several = judged_.drive->banks().size() > 1;
    return add_finding(findings_, "machine", key + "." + bank, several ? name + ", " + bank : name,
                       units);
  }

  std::string place(const MotionPeak& peak) const {
    Base::Params info;
    const auto paddle = static_cast<std::uint32_t>(peak.signal);
    judged_.run.experiment.paddle_info(motion_.number, paddle, info);
    return fmt::format("paddle {:.0f} at {}", info.read("paddle_num", Base::Category::unit),
                       show_time(static_cast<double>(peak.sample) / judged_.drive->rate()));
  }

  void rms(const std::string& key, const std::string& name, double value,
           const std::string& units) {
    Finding& finding = add(key + "_rms", name + ", rms", units);
    finding.made = value;
    finding.made_text = show_quantity(value, units, 2);
    finding.remark = "of the busiest paddle";
    finding.minor = true;
  }

  void stroke() {
    const SignalStats& stats = motion_.stats;
    const BankLimits& limits = motion_.bank->limits;
    Finding& finding = add("stroke_peak", "stroke", units_);
    finding.made = stats.stroke.value;
    finding.made_text = show_quantity(stats.stroke.value, units_, 2);
    if (stats.stroke.value > 0.0) finding.remark = place(stats.stroke);
    if (limits.maximum > limits.minimum) {
      finding.criterion = limits.minimum == -limits.maximum
                              ? "at most " + show_quantity(limits.maximum, units_, 3, Zeros::drop)
                              : show_quantity(limits.minimum, units_, 3, Zeros::drop) + " to " +
                                    show_quantity(limits.maximum, units_, 3, Zeros::drop);
      constexpr double rounding = 1e-9;
      const double room = rounding * (limits.maximum - limits.minimum);
      const bool good =
          stats.highest <= limits.maximum + room && stats.lowest >= limits.minimum - room;
      finding.verdict = good ? Verdict::good : Verdict::look;
      if (!good) {
        const double up = stats.highest > 0.0 ? limits.maximum / stats.highest : 1.0;
        const double down = stats.lowest < 0.0 ? limits.minimum / stats.lowest : 1.0;
        const double share = std::min(up, down);
        if (share > 0.0 && share < 1.0) {
          finding.remark += fmt::format("; waves of {} of this height would fit",
                                        show_share(std::floor(share * 100.0) / 100.0));
        }
      }
    }
    rms("stroke", "stroke", stats.stroke.rms, units_);
  }

  void rate(const std::string& key, const std::string& name, const MotionPeak& peak,
            const std::string& units, const std::optional<double>& limit) {
    Finding& finding = add(key + "_peak", name, units);
    finding.made = peak.value;
    finding.made_text = show_quantity(peak.value, units, 2);
    if (peak.value > 0.0) finding.remark = place(peak);
    if (limit) {
      finding.criterion = "at most " + show_quantity(*limit, units, 3, Zeros::drop);
      finding.verdict = peak.value <= *limit ? Verdict::good : Verdict::look;
      if (finding.verdict == Verdict::look) finding.remark += "; lower or longer waves would do";
    } else {
      finding.minor = key != "velocity";
    }
    rms(key, name, peak.rms, units);
  }

  void clipped() {
    const double limit = motion_.bank->limits.clip;
    Finding& finding = add("clipped", "clipped", "%");
    finding.made = motion_.clipped_half_waves * 100.0;
    finding.made_text = show_share(motion_.clipped_half_waves);
    finding.criterion = "none beyond " + show_quantity(limit, units_, 3, Zeros::drop);
    const bool good = motion_.clipped_half_waves == 0.0;
    finding.verdict = good ? Verdict::good : Verdict::look;
    finding.minor = good;
    if (!good) {
      finding.remark = fmt::format("of the half waves, with {} of the energy; lower waves would do",
                                   show_share(motion_.clipped_energy));
    }
  }

  void held() {
    if (!judged_.run.drive.stop_at_limit || motion_.samples == 0) return;
    const double share = static_cast<double>(motion_.held) / static_cast<double>(motion_.samples);
    Finding& finding = add("held", "held at the stop", "%");
    finding.made = share * 100.0;
    finding.made_text = show_share(share);
    finding.criterion = "none";
    finding.verdict = motion_.held == 0 ? Verdict::good : Verdict::look;
    finding.minor = motion_.held == 0;
    if (motion_.held > 0) {
      finding.remark = "of the samples; the waves are not those asked for; lower waves would do";
    }
  }

  void ends() {
    const SignalStats& stats = motion_.stats;
    const double ramp = judged_.run.drive.ramp;
    Finding& finding = add("start_and_end", "start and end", units_);
    finding.made = stats.end_step;
    // Less than the rounding of the signal is nothing.
    const double noise = 1e-9 * stats.stroke.value;
    const double shown = stats.end_step < noise ? 0.0 : stats.end_step;
    finding.made_text = show_quantity(shown, units_, 2);
    const double allowed = Criteria::end_step * stats.largest_step;
    finding.criterion = "no jump";
    const bool good = stats.end_step <= allowed;
    finding.verdict = good ? Verdict::good : Verdict::look;
    if (ramp > 0.0) {
      finding.remark = "ramp of " + show_quantity(ramp, "s", 3, Zeros::drop);
    } else if (stats.first > stats.largest_step) {
      finding.remark =
          fmt::format("no ramp: starts at once at {}", show_quantity(stats.first, units_, 2));
    }
    if (!good) {
      finding.remark = fmt::format("other steps are up to {}; a ramp would mend it",
                                   show_quantity(stats.largest_step, units_, 2));
    }
  }

  const JudgedRun& judged_;
  const BankMotionStats& motion_;
  std::string units_;
  Findings& findings_;
};

}  // namespace

void judge_machine(const JudgedRun& judged, Findings& findings) {
  if (judged.drive == nullptr) return;
  for (std::uint32_t b = 0; b < judged.drive->banks().size(); ++b) {
    const BankMotionStats motion = read_bank(judged.run, *judged.drive, b);
    BankFindings(judged, motion, findings).add_all();
  }
  const double ramp = judged.run.drive.ramp;
  if (!(ramp > 0.0)) return;
  const double share = std::min(2.0 * ramp / judged.repeat, 1.0);
  Finding& finding = add_finding(findings, "machine", "ramp_share", "lowered by ramps", "%");
  finding.made = share * 100.0;
  finding.made_text = show_share(share);
  finding.criterion = "at most " + show_share(Criteria::ramp_share, Zeros::drop) + " of the run";
  const bool good = share <= Criteria::ramp_share;
  finding.verdict = good ? Verdict::good : Verdict::look;
  finding.minor = good;
  if (!good) {
    finding.remark = fmt::format(
        "of the run; a repeat of {} or a shorter ramp would do",
        show_quantity(std::ceil(2.0 * ramp / Criteria::ramp_share), "s", 3, Zeros::drop));
  }
}

}  // namespace Jobs
