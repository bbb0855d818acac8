// The wave at one point of the tank: the sum of the fronts of each harmonic, by linear theory.
//
// A front has an amplitude A, an angle theta and a phase phi at the paddle line. At the point it
// has the amplitude s A, where s is the shoaling factor, and the phase phi - lag, where the lag is
// that of its refracted path (maths/tank_run.h).
#ifndef KELPBOX_POINT_SURFACE_POINT_H_
#define KELPBOX_POINT_SURFACE_POINT_H_

#include <complex>
#include <cstdint>

#include "base/vector.h"
#include "maths/front_set.h"
#include "maths/tank_run.h"
#include "point/point_spec.h"

namespace Synthesis {

// The functions below use the harmonics from 0 to samples / 2 and ignore higher ones. A front of
// amplitude 0 is ignored, whatever its phase. If there are any fronts, a point outside the tank
// throws std::string "Value x=<x> is outside dimensions of tank".

// The bytes that they need in addition to their results.
std::uint64_t point_memory(const Maths::FrontSet& fronts, const PointSpec& point);

// Fills `out` with the complex amplitude of each harmonic in metres, labelled "Data".
void surface_at(Base::Cvector& out, const Maths::FrontSet& fronts, Maths::TankRun& run,
                const PointSpec& point);

// Fills `out` with the direction of each harmonic in radians, labelled "Data". It comes from the
// phase gradient of the sum of the fronts, with the directions that they have at the paddle line:
// the result for a single front is its own angle. It is 0 for a harmonic without fronts, and at a
// node.
void direction_at(Base::Vector& out, const Maths::FrontSet& fronts, Maths::TankRun& run,
                  const PointSpec& point);

// Both at once, as surface_at and then direction_at give them, in about the time of one.
void wave_at(Base::Cvector& surface, Base::Vector& directions, const Maths::FrontSet& fronts,
             Maths::TankRun& run, const PointSpec& point);

// a / b by the method of R. L. Smith (Algorithm 116, CACM 5, 1962). It scales by the larger part of
// the divisor, so intermediate results do not overflow. Both parts are NaN if a or b has an
// infinite or NaN part, or if b is 0.
std::complex<double> smith_quotient(std::complex<double> a, std::complex<double> b);

}  // namespace Synthesis

#endif  // KELPBOX_POINT_SURFACE_POINT_H_
