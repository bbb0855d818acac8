// Records of fronts: plane wave trains with an amplitude, a direction and a phase.
//
// Amplitude in metres (it may be negative), angle from the tank's x axis and phase in radians,
// frequency in Hz. The records that hosts read have four fields of 8 bytes.
#ifndef KELPBOX_MATHS_FRONT_H_
#define KELPBOX_MATHS_FRONT_H_

#include <cstdint>
#include <vector>

namespace Synthesis {

struct Front {
  Front() = default;
  // The frequency comes first here and last in the record.
  Front(double freq_hz, double amplitude, double direction, double phase_rad)
      : amp(amplitude), angle(direction), phase(phase_rad), freq(freq_hz) {}

  double amp = 0.0;
  double angle = 0.0;
  double phase = 0.0;
  double freq = 0.0;
};

using DispFronts = std::vector<Front>;

}  // namespace Synthesis

namespace Maths {

struct DisplayFront {
  DisplayFront() = default;
  DisplayFront(double freq_hz, double amplitude, double direction, double phase_rad)
      : amp(amplitude), angle(direction), phase(phase_rad), freq(freq_hz) {}

  double amp = 0.0;
  double angle = 0.0;
  double phase = 0.0;
  double freq = 0.0;
};

struct TransferFront {
  double amp = 0.0;
  double angle = 0.0;
  double phase = 0.0;
  std::uint64_t harmonic = 0;
};

// A front whose harmonic is the slot it lies in.
struct HarmonicFront {
  double amp = 0.0;
  double angle = 0.0;
  double phase = 0.0;
};

// Where and when a set's phases were given: metres and seconds.
struct Position {
  double x = 0.0;
  double y = 0.0;
  double t = 0.0;
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_FRONT_H_
