// The wave at one point of the tank: the hot sums over the fronts of each harmonic.
//
// A front of amplitude A, paddle-line angle theta and phase phi arrives at the point with the
// amplitude s A, s being the shoaling factor, and the phase phi - lag, the lag being that of its
// refracted way. Linear theory adds the fronts.
#ifndef KELPBOX_POINT_SURFACE_POINT_H_
#define KELPBOX_POINT_SURFACE_POINT_H_

#include <complex>
#include <cstdint>

#include "base/vector.h"
#include "maths/front_set.h"
#include "maths/tank_run.h"

namespace Synthesis {

struct PointSpec {
  double x = 0.0;  // metres
  double y = 0.0;
  std::uint32_t samples = 0;  // of one repeat time
};

// Both read the harmonics that `samples` can hold, 0 to samples / 2, and leave higher ones out.
// Where there are any fronts, a point outside the tank throws std::string "Value x=<x> is outside
// dimensions of tank". A front of amplitude 0 counts for nothing, whatever its phase.

// The complex amplitude of each harmonic, in metres, labelled "Data".
void surface_at(Base::Cvector& out, const Maths::FrontSet& fronts, Maths::TankRun& run,
                const PointSpec& point);

// The direction of each harmonic in radians, labelled "Data", from the phase gradient of the sum
// of its fronts. It stands for the directions at the paddle line: a single front has its own. 0
// for a harmonic without fronts, or at a node of their sum.
void direction_at(Base::Vector& out, const Maths::FrontSet& fronts, Maths::TankRun& run,
                  const PointSpec& point);

// a / b by the method of R. L. Smith (Algorithm 116, CACM 5, 1962), which scales by the larger
// part of the divisor and so neither overflows nor underflows on the way. Not a number, in both
// parts, for an infinite or NaN part in a or b and for a divisor of 0.
std::complex<double> smith_quotient(std::complex<double> a, std::complex<double> b);

}  // namespace Synthesis

#endif  // KELPBOX_POINT_SURFACE_POINT_H_
