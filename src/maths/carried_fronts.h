// The fronts of some harmonics, carried together from the paddle line along the tank: what TankRun
// gives for one front at a time, with the same bits.
//
// Carried from one position to the next one further on, they keep what is behind them: the lag over
// the pieces of the tank that they have passed, and wave numbers while the depth is the same.
#ifndef KELPBOX_MATHS_CARRIED_FRONTS_H_
#define KELPBOX_MATHS_CARRIED_FRONTS_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"
#include "maths/tank_path.h"

namespace Maths {

class CarriedFronts {
 public:
  // A harmonic that has fronts. Fronts of amplitude 0, which may have no phase, are left out, and
  // a harmonic may have only such fronts.
  struct Harmonic {
    std::size_t index = 0;
    std::size_t first = 0;  // of its fronts, in the vectors of all fronts
    std::size_t last = 0;   // after them
    double k0 = 0.0;        // wave number at the paddle line
    double k1 = 0.0;        // and at the position
    double shoaling = 1.0;  // the amplitude at the position, of 1 at the paddle line
  };

  // The bytes for a number of fronts and of harmonics.
  static std::uint64_t memory(std::uint64_t fronts, std::uint64_t harmonics);

  // Takes the fronts of the slots from `first` to `last` - 1. The tank and the run must outlive it.
  CarriedFronts(const TankConfig& tank, const RunData& run, const FrontSet& fronts,
                std::size_t first, std::size_t last);

  // Brings the fronts to x, and asks `go_on` before each piece of the tank. False once that is
  // false. Throws if TankRun throws for any of the harmonics: one of the messages that it throws
  // for them.
  bool carry_to(double x, const std::function<bool()>& go_on);

  const std::vector<Harmonic>& harmonics() const { return harmonics_; }
  const std::vector<double>& omegas() const { return omegas_; }  // of the harmonics
  double end_depth() const { return path_.end_depth; }           // at the position
  // Of each front, at the paddle line.
  const std::vector<double>& amps() const { return amps_; }
  const std::vector<double>& phases() const { return phases_; }
  const std::vector<double>& angle_sines() const { return sines_; }
  const std::vector<double>& angle_cosines() const { return cosines_; }
  // Of each front: the phase lag from the paddle line to the position, at y = 0.
  const std::vector<double>& lags() const { return lags_; }

 private:
  // The wave numbers of all harmonics at the last depth that was needed.
  struct WaveNumbers {
    // Whether they have changed.
    bool take(const std::vector<double>& omegas, double depth_now, double g);

    double depth = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> k;
  };

  void leave_paddles();
  bool follow_path(const std::function<bool()>& go_on);
  // Adds a piece to sums from the paddle line on.
  void add_lags(const PathPiece& piece, const std::vector<double>& from, std::vector<double>& to);
  void take_shoaling();

  const TankConfig& tank_;
  const RunData& run_;
  std::vector<Harmonic> harmonics_;
  std::vector<double> amps_;
  std::vector<double> phases_;
  std::vector<double> sines_;
  std::vector<double> cosines_;
  std::vector<double> lags_;

  std::vector<double> omegas_;         // of the harmonics; empty before they leave the paddles
  std::vector<double> group_factors_;  // of the harmonics, at the paddle line
  WaveNumbers on_piece_;
  WaveNumbers at_end_;
  std::vector<double> k2_;   // of each front, on the piece
  std::vector<double> ky2_;  // of each front
  TankPath path_;
  std::vector<PathPiece> passed_;  // pieces that all of `sums_` contain
  std::vector<double> sums_;       // of each front, without the sign of its direction
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_CARRIED_FRONTS_H_
