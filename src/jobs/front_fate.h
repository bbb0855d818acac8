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
#include <map>
#include <vector>

#include "jobs/direction_stats.h"
#include "maths/front.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Jobs {

struct BankFaces {
  double width = 0.0;                     // m, of one paddle
  std::map<double, std::size_t> normals;  // rad, and how many paddles face that way
};

// How waves are made and where they are judged.
struct WavePath {
  Maths::TankConfig tank;
  Maths::RunData run;
  std::vector<BankFaces> banks;
  std::uint64_t last_harmonic = 0;  // that the drive signals can hold
  double x = 0.0;                   // m, of the reference point
};

// The shares of a front that reaches the paddle line. They add up to 1.
struct PaddleShares {
  double made = 0.0;
  double above_half_rate = 0.0;
  double behind = 0.0;           // it travels towards every paddle
  std::vector<double> withheld;  // by each bank
};

// `angle` in rad, at the paddle line. Each paddle has the share of the front's energy flux that
// enters through it, which is its width times the cosine of the angle to its normal.
PaddleShares paddle_shares(const WavePath& path, std::uint64_t harmonic, double angle);

// Variances in m2, all as they are or would be at the reference point. Fronts are summed without
// regard to their phases.
struct FrontFates {
  double asked = 0.0;  // of all fronts with finite values
  // Lost.
  double turned = 0.0;          // no wave from the paddles can be so oblique at that place
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

// The wave that the paddles make at a place, by linear theory: the complex amplitude in m of each
// harmonic from 0. `merged` are the fronts at the paddle line. Fronts with values that are not
// finite are ignored. Throws as add_fronts.
std::vector<std::complex<double>> made_surface(const std::vector<Synthesis::Front>& merged,
                                               const WavePath& path, double x, double y);
// Its elevation in m at a time in s.
double elevation(const std::vector<std::complex<double>>& surface, double repeat, double time);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_FRONT_FATE_H_
