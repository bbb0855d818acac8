#include "maths/refer_to_paddles.h"

#include <cmath>

#include "base/compose.h"
#include "base/constants.h"
#include "maths/dalrymple.h"

namespace Maths {
namespace {

// A number that is not finite is passed on. A time or place that is finite, but too large, would
// give NaN all the same.
void require_phase(const HarmonicFront& front, double before, const Position& position,
                   double y_ref) {
  if (std::isfinite(front.phase) || front.amp == 0) return;
  if (!std::isfinite(front.angle) || !std::isfinite(before) || !std::isfinite(y_ref)) return;
  if (!std::isfinite(position.t) || !std::isfinite(position.y)) return;
  throw Base::compose("Front set::t = ", position.t, " s or y = ", position.y,
                      " m is too large: the phase at the paddles is not finite");
}

}  // namespace

void carry_to_paddles(FrontSet& set, const TankRun& before, TankRun& tank) {
  const TankConfig& config = tank.tank();
  refer_to_paddles(set, before, config.y_ref);
  if (config.has_walls && tank.run().dalrymple()) dalrymple(set, before, config.width);
  apply_shoaling(set, tank, config.y_ref);
  set.position = Position{};
}

void refer_to_paddles(FrontSet& set, const TankRun& tank, double y_ref) {
  for (std::size_t slot = 0; slot < set.slots.size(); ++slot) {
    if (set.slots[slot].empty()) continue;
    const double w = tank.omega(slot);
    const double k0 = tank.wave_num_at(slot, 0);
    const double k1 = tank.wave_num_at(slot, set.position.x);
    for (HarmonicFront& front : set.slots[slot]) {
      const double theta = front.angle;
      const double c = std::sin(theta) * k1;
      double ky = c;  // the crosswise wave number, constant along the tank
      // No wave from the paddles is so oblique: take the most oblique one.
      if (std::fabs(c / k0) >= 1) ky = c > 0 ? k0 : -k0;
      double a = std::asin(ky / k0);
      if (std::cos(theta) < 0) a = a > 0 ? Base::Pi - a : -Base::Pi - a;
      front.angle = a;
      if (!tank.angle_in_range(a)) front.amp = 0;
      const double before = front.phase;
      front.phase = before - ((y_ref - set.position.y) * ky + w * set.position.t);
      require_phase(front, before, set.position, y_ref);
    }
  }
}

void apply_shoaling(FrontSet& set, TankRun& tank, double y_ref) {
  for (std::size_t slot = 0; slot < set.slots.size(); ++slot) {
    if (set.slots[slot].empty()) continue;
    const double factor = tank.shoaling(slot, set.position.x);
    for (HarmonicFront& front : set.slots[slot]) {
      front.amp = front.amp * (1.0 / factor);
      front.phase = std::fmod(
          front.phase + tank.phase_lag(slot, set.position.x, y_ref, front.angle), Base::TwoPi);
    }
  }
}

}  // namespace Maths
