// What becomes of each front on its way from the sea that asks for it to the paddles, and how much
// of it they make.
//
// The steps are those of the library: refraction to the paddle line, limits of the angle, side
// walls (maths/refer_to_paddles.h, maths/dalrymple.h), sampling, and paddles that are too wide for
// an oblique wave (drive/paddle_spectrum.h).
#ifndef KELPBOX_JOBS_FRONT_FATE_H_
#define KELPBOX_JOBS_FRONT_FATE_H_

#include <complex>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "jobs/direction_sectors.h"
#include "jobs/direction_stats.h"
#include "jobs/paddle_shares.h"
#include "maths/front.h"

namespace Jobs {

// Variances in m2, all as they are or would be at the reference point. Fronts are summed without
// regard to their phases.
struct FrontFates {
  double asked = 0.0;  // of all fronts with finite values
  // Lost.
  double turned = 0.0;          // no wave from the paddles can be so oblique at that place
  double redirected = 0.0;      // the same, made along the paddle line instead: not lost
  double outside_limits = 0.0;  // of the angle
  double not_finite = 0.0;      // deeper water on the way would turn it back
  double evanescent = 0.0;      // across the tank, between side walls
  double above_half_rate = 0.0;
  double behind = 0.0;
  std::vector<double> withheld;  // by bank
  // Fronts with an amplitude, direction or phase that is not finite.
  std::size_t undefined = 0;
  std::uint64_t undefined_harmonic = 0;  // the first of them
  // Made. By harmonic from 0: what reaches the paddle line, the sum of its squares, and what the
  // paddles make.
  std::vector<double> arriving;
  std::vector<double> arriving_squares;
  std::vector<double> made;
  // Each at the position of its sea: as asked, and as the limits of the law leave them.
  DirectionStats asked_directions;
  DirectionStats limited_directions;
  DirectionStats made_directions;  // at the reference point
  DirectionGrid made_sectors;      // the same by harmonic
  double refracted = 0.0;          // what is made, times cos(angle at the paddles) / cos(angle)
  double oblique = 0.0;            // what arrives more than a degree off every normal

  double made_total() const;
};

FrontFates no_fronts(const WavePath& path);

// The mean of exp(i direction) of the law from which a sea draws.
struct LawMoments {
  std::complex<double> asked;
  std::complex<double> limited;  // within those of the change
};
using LawAt = std::function<LawMoments(std::uint64_t harmonic)>;

// Adds the fronts of a sea. Without a law, the directions of the fronts are what is asked for.
// Throws std::string for a position or a reference point outside the tank.
void add_fronts(const std::vector<Maths::TransferFront>& fronts, const Maths::Position& position,
                const WavePath& path, FrontFates& fates, const LawAt& law = {});

}  // namespace Jobs

#endif  // KELPBOX_JOBS_FRONT_FATE_H_
