#include "jobs/bank_motion_stats.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

namespace Jobs {
namespace {

// A constant of the machine in base units. A plain number is taken as one in base units.
std::optional<double> constant(const Base::Params& info, const char* name,
                               std::initializer_list<Base::UnitCategory> categories) {
  if (!info.contains(name)) return std::nullopt;
  for (const Base::UnitCategory category : categories) {
    try {
      const double value = info.read(name, category);
      if (std::isfinite(value) && value != 0.0) return std::fabs(value);
    } catch (const std::string&) {
      continue;
    }
  }
  return std::nullopt;
}

double share_in(const Base::Params& stats, const char* name) {
  return stats.contains(name) ? stats.read(name, Base::Category::unit) : 0.0;
}

}  // namespace

BankMotionStats read_bank(Run& run, const DriveSignals& drive, std::uint32_t b) {
  BankMotionStats motion;
  motion.number = b;
  motion.bank = &drive.banks()[b];
  const BankLimits& limits = motion.bank->limits;
  std::vector<double> signal;
  for (std::uint32_t p = 0; p < motion.bank->paddles; ++p) {
    drive.read(b, p, signal);
    if (run.drive.stop_at_limit) {
      motion.held += static_cast<std::size_t>(std::count_if(
          signal.begin(), signal.end(),
          [&limits](double value) { return value == limits.maximum || value == limits.minimum; }));
    }
    motion.samples += signal.size();
    motion.stats.add(signal, drive.rate());
  }
  Base::Params clip;
  run.experiment.paddle_motion_stats(run.definition, b, clip);
  motion.clipped_half_waves = share_in(clip, "clip_peak_ratio");
  motion.clipped_energy = share_in(clip, "clip_power_ratio");
  Base::Params info;
  run.experiment.paddle_bank_info(b, info);
  using namespace Base::Category;
  const bool turns = motion.bank->units == "rad";
  const Base::UnitCategory of_velocity = turns ? angrate : velocity;
  // There are no units of angular acceleration: such a limit is a plain number.
  const Base::UnitCategory of_acceleration = turns ? unit : acceleration;
  motion.max_velocity = constant(info, "max_velocity", {of_velocity, unit});
  motion.max_acceleration = constant(info, "max_acceleration", {of_acceleration, unit});
  return motion;
}

}  // namespace Jobs
