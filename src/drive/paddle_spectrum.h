// The sum of wave fronts over a row of paddles: the hot loop of the drive signals.
//
// A front of phase omega t - k (x cos(angle) + y sin(angle)) + phase has at each paddle the phase
// that it has at the paddle's place, less a quarter cycle, since the stroke leads its wave by one.
// The paddle's motion is the front's amplitude over the machine's ratio, times what a segment of
// finite width loses at an angle to its normal.
#ifndef KELPBOX_DRIVE_PADDLE_SPECTRUM_H_
#define KELPBOX_DRIVE_PADDLE_SPECTRUM_H_

#include <complex>
#include <vector>

#include "maths/front.h"

namespace Synthesis {

// The paddles of a bank, one entry each: place in metres, direction of the normal in radians.
struct PaddleRow {
  double width = 0.0;  // of one paddle, metres
  std::vector<double> x;
  std::vector<double> y;
  std::vector<double> angle;
};

// What the fronts of one harmonic share.
struct PaddleHarmonic {
  // `ratio` is wave amplitude per unit of paddle motion.
  PaddleHarmonic(double wave_number, double ratio, double paddle_width);

  double k;           // rad/m at the paddle line
  double inverse;     // paddle motion per metre of wave amplitude
  double max_offset;  // radians from the normal beyond which crests run too steeply across the
                      // paddles to be sampled by them; infinite for waves long enough
};

// Whether any paddle makes the front, whatever its amplitude.
bool reaches(const PaddleRow& row, const PaddleHarmonic& harmonic,
             const Maths::HarmonicFront& front);

// Adds the front to the complex amplitude of each paddle that makes it. An amplitude above 1e10
// is written to the standard output stream, with ":" behind it and no line end.
void add_front(const PaddleRow& row, const PaddleHarmonic& harmonic,
               const Maths::HarmonicFront& front, std::complex<double>* amplitudes);

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_PADDLE_SPECTRUM_H_
