// Carries a wave from the paddle line to a point along a tank of varying depth: wave number,
// shoaling, refracted phase.
//
// Angles in radians, lengths in metres; frequencies in Hz unless named omega (rad/s). Holds a
// one-entry cache, so one thread at a time. Failures are thrown as std::string.
#ifndef KELPBOX_MATHS_TANK_RUN_H_
#define KELPBOX_MATHS_TANK_RUN_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Maths {

// One piece of the way from the paddle line, a uniform channel of its mean depth.
struct KnumStep {
  double dx = 0.0;  // signed length; 0 for the first and the last rung, which hold point values
  double k = 0.0;   // wave number on the piece
  double k2 = 0.0;  // k squared
};

class TankRun {
 public:
  TankRun(const TankConfig& tank, const RunData& run) : tank_(tank), run_(run) {}

  const TankConfig& tank() const { return tank_; }
  const RunData& run() const { return run_; }

  double omega(std::uint64_t harmonic) const;
  // Interpolated depth. Throws "TankConfig not built" and segment_of's text.
  double depth_at(double x) const;
  // The profile segment that holds x. Throws "Value x=<x> is outside dimensions of tank".
  std::size_t segment_of(double x) const;
  void depth_samples(std::vector<double>& out, double dx) const;

  // Cuts the tank between the paddle line and x at each profile point. Throws segment_of's text
  // for an x beyond the profile.
  void build_ladder(std::uint64_t harmonic, double x);
  const std::vector<KnumStep>& ladder() const { return ladder_; }

  double wave_num_at(std::uint64_t harmonic, double x) const;
  // Amplitude at x against the paddle line, by conservation of energy flux. Throws "knum is empty".
  double shoaling(std::uint64_t harmonic, double x);
  // Phase at (x, y) of a front whose angle at the paddle line is theta, by Snell's law; not a
  // number where the front cannot pass. Throws "knum is empty".
  double phase_lag(std::uint64_t harmonic, double x, double y, double theta);
  // Whether the tank's paddles can make that angle.
  bool angle_in_range(double theta) const;

 private:
  void need_ladder(std::uint64_t harmonic, double x);
  // The rungs from the paddle line to x, and the depth there.
  double walk_forward(double w, double x);
  double walk_backward(double w, double x);
  void push_rung(double dx, double k);

  TankConfig tank_;
  RunData run_;
  std::vector<KnumStep> ladder_;
  std::uint64_t ladder_harmonic_ = 0;
  double ladder_x_ = 0.0;
  double ladder_end_depth_ = 0.0;
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_TANK_RUN_H_
