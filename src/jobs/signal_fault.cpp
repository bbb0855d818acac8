#include "jobs/signal_fault.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/constants.h"
#include "jobs/failure.h"
#include "maths/dispersion.h"

namespace Jobs {
namespace {

struct Cause {
  double frequency = 0.0;  // Hz
  std::string reason;
};

bool is_finite(const Synthesis::Front& front) {
  return std::isfinite(front.amp) && std::isfinite(front.angle) && std::isfinite(front.phase);
}

std::string reason_of(const Synthesis::Front& front) {
  if (!std::isfinite(front.amp)) return "its amplitude is not finite";
  if (!std::isfinite(front.angle)) return "its direction is not finite";
  return "its phase is not finite: deeper water on its way would turn it back";
}

// What the machine makes of each front, in the order of the fronts.
std::optional<Cause> find_machine_cause(Run& run, std::uint32_t bank,
                                        const std::vector<Synthesis::Front>& fronts) {
  Common::Context& site = run.experiment.context();
  const Common::Machine& machine = site.wavemaker_bank[bank].machine();
  const Maths::TankConfig& tank = site.tank_config();
  const double edge = machine.working_edge(tank.paddle_depth);
  for (const Synthesis::Front& front : fronts) {
    if (front.amp == 0.0) continue;
    const double k = Maths::knum(Base::TwoPi * front.freq, tank.paddle_depth, tank.g);
    const double ratio = machine.ratio(k, tank.paddle_depth, edge);
    if (!std::isfinite(front.amp / ratio)) {
      return Cause{front.freq, "the machine has no transfer ratio there"};
    }
  }
  return std::nullopt;
}

std::optional<Cause> find_cause(Run& run, std::uint32_t bank) {
  const std::vector<Synthesis::Front>& fronts = run.experiment.fronts(run.definition, true);
  // Only a front of amplitude 0 is not made at all, whatever its phase.
  const auto bad = std::find_if(fronts.begin(), fronts.end(), [](const Synthesis::Front& front) {
    return front.amp != 0.0 && !is_finite(front);
  });
  if (bad != fronts.end()) return Cause{bad->freq, reason_of(*bad)};
  try {
    return find_machine_cause(run, bank, fronts);
  } catch (...) {
    return Cause{0.0, message_of_current()};
  }
}

std::string paddle_number(Run& run, std::uint32_t bank, std::uint32_t paddle) {
  Base::Params info;
  run.experiment.paddle_info(bank, paddle, info);
  return fmt::format("{:g}", info.read("paddle_num", Base::Category::unit));
}

}  // namespace

std::string signal_fault(Run& run, std::uint32_t bank, std::uint32_t paddle) {
  const std::string where = fmt::format("paddle {} of bank `{}`", paddle_number(run, bank, paddle),
                                        run.experiment.context().wavemaker_bank[bank].name);
  const auto cause = find_cause(run, bank);
  if (!cause) return where + " gets a signal that is not finite";
  if (cause->frequency == 0.0) return where + " gets no finite signal: " + cause->reason;
  const double harmonic =
      std::round(cause->frequency * run.experiment.repeat(run.definition).value());
  return fmt::format("{} gets no finite signal from harmonic {:g} ({:.5g} Hz): {}", where, harmonic,
                     cause->frequency, cause->reason);
}

}  // namespace Jobs
