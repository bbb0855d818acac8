// The motion with which each paddle of a row makes a wave front. front_sums.h adds them up.
//
// The paddle's motion is the front's amplitude divided by the machine's ratio, times the obliquity
// factor (maths/wavemaker_ratio.h) of the angle between the front and the paddle's normal. Its
// phase is that of the front omega t - k (x cos(angle) + y sin(angle)) + phase at the paddle's
// position, less a quarter cycle: the velocity of the paddle, not its position, is in phase with
// the surface (Dean and Dalrymple 1991, chapter 6).
#ifndef KELPBOX_DRIVE_PADDLE_SPECTRUM_H_
#define KELPBOX_DRIVE_PADDLE_SPECTRUM_H_

#include <vector>

#include "maths/front.h"

namespace Synthesis {

// The paddles of a bank: positions in metres and directions of their normals in radians, with one
// entry for each paddle.
struct PaddleRow {
  double width = 0.0;  // of one paddle, metres
  std::vector<double> x;
  std::vector<double> y;
  std::vector<double> angle;
};

// The values that all fronts of one harmonic share.
struct PaddleHarmonic {
  // `ratio` is wave amplitude per unit of paddle motion, `paddle_width` is in metres.
  PaddleHarmonic(double wave_number, double ratio, double paddle_width);

  double k;        // rad/m at the paddle line
  double inverse;  // paddle motion per metre of wave amplitude
  // The largest angle (rad) to the normal at which each wavelength along the row still spans two
  // paddles; infinite for waves longer than two paddle widths.
  double max_offset;
};

// Whether any paddle makes the front. The amplitude of the front does not matter.
bool reaches(const PaddleRow& row, const PaddleHarmonic& harmonic,
             const Maths::HarmonicFront& front);

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_PADDLE_SPECTRUM_H_
