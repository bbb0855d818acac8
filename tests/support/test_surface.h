// The surface from fronts at the paddle line, summed wave by wave. The library uses transforms.
#ifndef KELPBOX_TESTS_SUPPORT_TEST_SURFACE_H_
#define KELPBOX_TESTS_SUPPORT_TEST_SURFACE_H_

#include <vector>

#include "maths/front.h"
#include "maths/tank_config.h"

namespace Testing {

// Twice the group velocity over the phase speed.
double group_factor(double k, double depth);

// A front that has come from the paddle line to some x.
struct Arrival {
  double omega;  // rad/s
  double amp;    // metres
  double along;  // phase lag at y = 0
  double ky;     // crosswise wave number
  double phase;  // at the paddle line

  double at(double y, double t) const;
};

// The fronts at an x of at least 0. Refraction keeps the crosswise wave number; the lengthwise one
// is summed over the pieces of the profile, each at its mean depth. Amplitudes keep the energy
// flux, a^2 times the group velocity.
std::vector<Arrival> arrivals(const Maths::TankConfig& tank,
                              const std::vector<Synthesis::Front>& fronts, double x);

// The surface of fronts that have arrived, and of fronts at the paddle line.
double surface(const std::vector<Arrival>& arrivals, double y, double t);
double surface(const Maths::TankConfig& tank, const std::vector<Synthesis::Front>& fronts, double x,
               double y, double t);

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_TEST_SURFACE_H_
