// How a bank of paddles moves, from its drive signals.
#ifndef KELPBOX_JOBS_BANK_MOTION_STATS_H_
#define KELPBOX_JOBS_BANK_MOTION_STATS_H_

#include <cstddef>
#include <cstdint>
#include <optional>

#include "jobs/drive_signals.h"
#include "jobs/run.h"
#include "jobs/signal_stats.h"

namespace Jobs {

struct BankMotionStats {
  std::uint32_t number = 0;
  const DriveBank* bank = nullptr;
  SignalStats stats;
  std::size_t held = 0;  // samples at the hard stop
  std::size_t samples = 0;
  double clipped_half_waves = 0.0;  // shares, as the library counts them
  double clipped_energy = 0.0;
  std::optional<double> max_velocity;
  std::optional<double> max_acceleration;
};

// Reads every signal of the bank once. The limits of velocity and acceleration are the machine's
// constants "max_velocity" and "max_acceleration", if the site declares them in fitting units.
BankMotionStats read_bank(Run& run, const DriveSignals& drive, std::uint32_t bank);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_BANK_MOTION_STATS_H_
