// How much of a wave each bank of paddles makes.
#ifndef KELPBOX_JOBS_PADDLE_SHARES_H_
#define KELPBOX_JOBS_PADDLE_SHARES_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

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

}  // namespace Jobs

#endif  // KELPBOX_JOBS_PADDLE_SHARES_H_
