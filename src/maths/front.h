// Fronts: plane wave trains with an amplitude, a direction and a phase.
//
// Amplitudes are in metres and may be negative. Angles, from the tank's x axis, and phases are in
// radians, frequencies in Hz. Hosts read the records that hold a frequency or a harmonic: four
// fields of 8 bytes.
#ifndef KELPBOX_MATHS_FRONT_H_
#define KELPBOX_MATHS_FRONT_H_

#include <cstdint>
#include <vector>

namespace Synthesis {

struct Front {
  Front() = default;
  // Kept on purpose: hosts rely on the frequency being the first argument and the last field.
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

// A front in the slot of its harmonic.
struct HarmonicFront {
  double amp = 0.0;
  double angle = 0.0;
  double phase = 0.0;

  bool operator==(const HarmonicFront&) const = default;
};

// The place (m) and time (s) at which the phases of a set hold.
struct Position {
  double x = 0.0;
  double y = 0.0;
  double t = 0.0;
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_FRONT_H_
