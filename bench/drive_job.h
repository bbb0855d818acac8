// A bank of paddles and the fronts that it makes, for measurements of drive signals.
#ifndef KELPBOX_BENCH_DRIVE_JOB_H_
#define KELPBOX_BENCH_DRIVE_JOB_H_

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

#include "base/params.h"
#include "drive/bank_motion.h"

namespace Bench {

struct DriveJob {
  static constexpr double lowest = 0.3;  // Hz
  static constexpr double highest = 2.0;

  std::size_t paddles;
  std::size_t samples;
  std::size_t fronts;  // of each harmonic
  bool round = false;  // a circle of paddles that face its centre, not a straight row
  double rate = 32.0;  // Hz

  double repeat() const { return static_cast<double>(samples) / rate; }
};

// A job with its site and fronts, made once.
struct PreparedDrive {
  explicit PreparedDrive(const DriveJob& job) {
    bank.pad_pos.build(static_cast<std::int32_t>(job.paddles), 1);
    for (std::size_t p = 0; p < job.paddles; ++p) {
      const double turn =
          2.0 * std::numbers::pi * static_cast<double>(p) / static_cast<double>(job.paddles);
      const double radius = 0.5 * static_cast<double>(job.paddles) / (2.0 * std::numbers::pi);
      Common::PadPos& place = bank.pad_pos[p];
      place.x = job.round ? radius * std::cos(turn) : 0.0;
      place.y = job.round ? radius * std::sin(turn) : 0.5 * static_cast<double>(p);
      place.angle = job.round ? turn - std::numbers::pi : 0.0;
    }
    bank.piston.build();
    Common::Machine& machine = bank.machine();
    machine.paddle_width = 0.5;
    machine.critical_dimension = 0.0;
    machine.dimension_type.number = 0;
    machine.paddle_motion.build();
    machine.paddle_motion.get()->clip_limit = 100.0;
    machine.paddle_motion.get()->units = "m";
    tank.paddle_depth = 1.0;
    tank.g = 9.81;
    run.init(job.repeat(), job.rate, DriveJob::lowest, DriveJob::highest, false);
    fronts.reset(run.size());
    for (std::uint64_t h = run.min_harmonic(); h <= run.max_harmonic(); ++h) {
      for (std::size_t i = 0; i < job.fronts; ++i) {
        const double s = static_cast<double>(h * job.fronts + i);
        fronts.slots[h].push_back({1e-3, 0.9 * std::sin(s), s});
        ++terms;
      }
    }
    params.insert("rate", job.rate, "Hz");
  }

  Common::Paddles bank;
  Maths::TankConfig tank;
  Maths::RunData run;
  Maths::FrontSet fronts;
  Base::Params params;
  std::size_t terms = 0;  // fronts of all harmonics
};

}  // namespace Bench

#endif  // KELPBOX_BENCH_DRIVE_JOB_H_
