#include "jobs/drive_signals.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "base/constants.h"
#include "jobs/captured_lines.h"
#include "jobs/failure.h"
#include "jobs/preparation.h"
#include "jobs/signal_fault.h"

namespace Jobs {
namespace {

[[noreturn]] void refuse(const std::string& fault, const Span& place,
                         const std::string& label = "") {
  throw BadJob{{{fault, place, label}}};
}

// What may mend it.
std::string hint_for(const std::string& message) {
  if (message != "Unmatched zero crossings") return "";
  return "a signal jumps from beyond one limit to beyond the other: a lower wave or a higher rate";
}

// Calls an operation of the library with its lines in the log.
template <typename Operation>
void run_library(Run& run, const Operation& operation) {
  std::string message;
  {
    const CapturedLines lines;
    try {
      operation();
    } catch (...) {
      message = message_of_current();
    }
    run.log += lines.progress() + lines.faults();
  }
  if (message.starts_with("Index ") && message.ends_with(" out of range")) {
    const Maths::RunData& grid = run.experiment.repeat(run.definition);
    refuse(fmt::format("a rate of {:g} Hz is too low: it must be above twice the highest frequency "
                       "made, which is at most {:g} Hz",
                       run.drive.rate, grid.freq(grid.max_harmonic())),
           span_of(run.job.drive, "rate"));
  }
  if (!message.empty()) {
    refuse("the drive signals cannot be built: " + message, span_of(run.job.drive, "rate"),
           hint_for(message));
  }
}

DriveBank bank_of(Common::Paddles& paddles) {
  const Common::Machine& machine = paddles.machine();
  const Base::Units units = machine.signal_units();
  DriveBank bank;
  bank.name = paddles.name;
  bank.units = Base::units_text(units);
  bank.limits.maximum = machine.get(Common::Machine::maximum, units);
  bank.limits.minimum = machine.get(Common::Machine::minimum, units);
  bank.limits.clip = machine.get(Common::Machine::clip_limit, units);
  bank.paddles = static_cast<std::uint32_t>(paddles.pad_pos.size());
  return bank;
}

bool all_finite(const std::vector<double>& signal) {
  return std::all_of(signal.begin(), signal.end(), [](double x) { return std::isfinite(x); });
}

}  // namespace

DriveSignals::DriveSignals(Run& run)
    : ramp_(run.drive.ramp), stop_at_limit_(run.drive.stop_at_limit) {
  Base::Params params;
  params.insert("rate", run.drive.rate, "Hz");
  run_library(run, [&] {
    run.experiment.paddle_motion_build(run.definition, params);
    Common::Context& site = run.experiment.context();
    for (std::uint32_t b = 0; b < run.experiment.paddle_banks(); ++b) {
      banks_.push_back(bank_of(site.wavemaker_bank[b]));
      std::vector<const std::vector<double>*>& signals = signals_.emplace_back();
      for (std::uint32_t p = 0; p < banks_.back().paddles; ++p) {
        signals.push_back(&run.experiment.paddle_motion_data(run.definition, b, p));
      }
    }
  });
  samples_ = signals_.front().front()->size();
  const double repeat = run.experiment.repeat(run.definition).value();
  rate_ = static_cast<double>(samples_) / repeat;
  if (samples_ == 0) {
    refuse(fmt::format("a rate of {:g} Hz gives no sample in a repeat of {:g} s", run.drive.rate,
                       repeat),
           span_of(run.job.drive, "rate"));
  }
  if (ramp_ < 0.0) refuse("the ramp is negative", span_of(run.job.drive, "ramp"));
  if (ramp_ > 0.5 * repeat) {
    refuse(fmt::format("a ramp of {:g} s is longer than half the repeat of {:g} s", ramp_, repeat),
           span_of(run.job.drive, "ramp"));
  }
  for (std::uint32_t b = 0; b < banks_.size(); ++b) {
    for (std::uint32_t p = 0; p < banks_[b].paddles; ++p) {
      if (!all_finite(*signals_[b][p])) refuse(signal_fault(run, b, p), run.job.run.span);
    }
  }
}

double DriveSignals::raw(std::uint32_t bank, std::uint32_t paddle, std::size_t sample) const {
  return (*signals_[bank][paddle])[sample];
}

void DriveSignals::read(std::uint32_t bank, std::uint32_t paddle, std::vector<double>& out) const {
  out = *signals_[bank][paddle];
  for (double& value : out) value += 0.0;
  for (std::size_t i = 0; i < samples_ && taper(i) != 1.0; ++i) {
    out[i] = sample(bank, paddle, i);
    out[samples_ - 1 - i] = sample(bank, paddle, samples_ - 1 - i);
  }
  if (!stop_at_limit_) return;
  const BankLimits& limits = banks_[bank].limits;
  for (double& value : out) value = std::max(limits.minimum, std::min(limits.maximum, value));
}

double DriveSignals::sample(std::uint32_t bank, std::uint32_t paddle, std::size_t sample) const {
  // The sum turns -0 into 0.
  const double shaped = raw(bank, paddle, sample) * taper(sample) + 0.0;
  if (!stop_at_limit_) return shaped;
  const BankLimits& limits = banks_[bank].limits;
  return std::max(limits.minimum, std::min(limits.maximum, shaped));
}

double DriveSignals::taper(std::size_t sample) const {
  const std::size_t from_end = std::min(sample, samples_ - 1 - sample);
  const double time = static_cast<double>(from_end) / rate_;
  if (!(time < ramp_)) return 1.0;
  const double factor = std::sin(0.5 * Base::Pi * time / ramp_);
  return factor * factor;
}

}  // namespace Jobs
