// Carries a wave from the paddle line to a point along a tank of varying depth: wave number,
// shoaling, refracted phase.
//
// Linear theory: Dean and Dalrymple (1991), "Water Wave Mechanics for Engineers and Scientists",
// chapter 4. Angles in radians, lengths in metres, omega in rad/s. One thread at a time, since the
// wave numbers of the last harmonic and position are cached. Failures are thrown as std::string.
#ifndef KELPBOX_MATHS_TANK_RUN_H_
#define KELPBOX_MATHS_TANK_RUN_H_

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "maths/run_data.h"
#include "maths/tank_config.h"
#include "maths/tank_path.h"

namespace Maths {

// One rung of the ladder of wave numbers: a piece of the tank between the paddle line and a
// position, taken as a channel of its mean depth.
struct KnumStep {
  double dx = 0.0;  // signed length; 0 for the first and the last rung, which are the two ends
  double k = 0.0;   // wave number
  double k2 = 0.0;  // k squared
};

class TankRun {
 public:
  TankRun(const TankConfig& tank, const RunData& run) : tank_(tank), run_(run) {}

  const TankConfig& tank() const { return tank_; }
  const RunData& run() const { return run_; }

  double omega(std::uint64_t harmonic) const;
  // Interpolated depth. Throws what segment_of throws.
  double depth_at(double x) const;
  // The index of the profile segment that contains x. Throws "Value x=<x> is outside dimensions of
  // tank", and "TankConfig not built" for a profile of fewer than two points.
  std::size_t segment_of(double x) const;
  // TankConfig::profile_samples.
  void depth_samples(std::vector<double>& out, double dx) const;

  // Cuts the tank between the paddle line and x at each profile point. Throws "Value x=<x> is
  // outside dimensions of tank" for an x beyond the profile.
  void build_ladder(std::uint64_t harmonic, double x);
  const std::vector<KnumStep>& ladder() const { return ladder_; }

  double wave_num_at(std::uint64_t harmonic, double x) const;
  // The ratio of the amplitude at x to that at the paddle line, by conservation of energy flux.
  // Throws "knum is empty".
  double shoaling(std::uint64_t harmonic, double x);
  // The phase lag from the paddle line to (x, y) of a front whose angle at the paddle line is
  // theta, by Snell's law. NaN where the front cannot pass. Throws "knum is empty".
  double phase_lag(std::uint64_t harmonic, double x, double y, double theta);
  // Whether the angle is within the tank's limits.
  bool angle_in_range(double theta) const;

 private:
  struct Known {
    double omega = std::numeric_limits<double>::quiet_NaN();  // NaN: there is none yet
    double depth = 0.0;
    double k = 0.0;
  };

  // Builds the ladder unless it is already there.
  void ensure_ladder(std::uint64_t harmonic, double x);
  // Takes the path to x, unless it is there from another harmonic.
  void lead_to(double x);
  void push_rung(double dx, double k);
  // `knum`, or the last one if it was for the same frequency and depth.
  double wave_num(double omega, double depth) const;

  TankConfig tank_;
  RunData run_;
  std::vector<KnumStep> ladder_;
  std::uint64_t ladder_harmonic_ = 0;
  double ladder_x_ = 0.0;
  double ladder_end_depth_ = 0.0;
  TankPath path_;
  mutable Known last_;
  double path_x_ = std::numeric_limits<double>::quiet_NaN();  // NaN: there is no path yet
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_TANK_RUN_H_
