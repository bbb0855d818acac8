// The fronts of a run at one point of the tank, some harmonics at a time.
#ifndef KELPBOX_POINT_POINT_FRONTS_H_
#define KELPBOX_POINT_POINT_FRONTS_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "maths/carried_fronts.h"
#include "maths/front_set.h"
#include "maths/tank_run.h"
#include "point/point_spec.h"

namespace Synthesis {

// The cosines and sines of the phases of some fronts.
struct PointWaves {
  void take();

  std::vector<double> phases;
  std::vector<double> cosines;
  std::vector<double> sines;
};

// The same a small step from the point, along x and along y.
struct PointSteps {
  PointWaves along;
  PointWaves across;
};

class PointFronts {
 public:
  enum Purpose { surface, directions, both };

  // The bytes for the fronts of the slots below `top`.
  static std::uint64_t memory(const Maths::FrontSet& fronts, std::size_t top);

  // For the fronts of the slots below `top`. Everything passed must outlive it.
  PointFronts(const Maths::FrontSet& fronts, std::size_t top, Maths::TankRun& run,
              const PointSpec& point, Purpose purpose);

  // Brings the next harmonics to the point; false after the last ones. Throws what TankRun throws,
  // for the first harmonic and purpose that fail.
  bool next();

  const Maths::CarriedFronts& carried() const { return *carried_; }
  // At the point.
  const PointWaves& waves() const { return waves_; }
  // A step of a tenth of a radian at the local wave number. Throws as `next`.
  const PointSteps& take_steps();

 private:
  void take_next();
  // The wave numbers that the steps use, from the first harmonic of the present ones that is not
  // that of the tank run's own ladder.
  void take_wave_numbers();
  // Goes through all harmonics one by one, and throws what the first one throws that fails.
  void fail_in_order() const;

  const Maths::FrontSet& fronts_;
  std::size_t top_;
  Maths::TankRun& run_;
  PointSpec point_;
  Purpose purpose_;
  std::size_t next_slot_ = 0;
  std::optional<Maths::CarriedFronts> carried_;
  PointWaves waves_;
  PointSteps steps_;
  bool ladder_kept_ = true;  // no harmonic before has replaced the ladder of the tank run
  std::vector<double> k0_;   // of the harmonics, at x = 0
  std::vector<double> k1_;   // of the harmonics, at the point
};

}  // namespace Synthesis

#endif  // KELPBOX_POINT_POINT_FRONTS_H_
