// How well probes at given positions tell wave trains apart.
#ifndef KELPBOX_CLI_PROBE_LAYOUT_H_
#define KELPBOX_CLI_PROBE_LAYOUT_H_

#include <vector>

namespace Cli {

// By how much the layout amplifies noise in a train's amplitude, compared with probes at the best
// places: 1 or more, infinite where the trains cannot be told apart. The normal equations of a
// least squares fit give it (Zelt and Skjelbreia 1992, "Estimating incident and reflected wave
// fields using an arbitrary number of wave gauges").
struct LayoutGain {
  double fundamental = 1.0;
  double harmonic = 1.0;  // the greatest of the four trains of the second harmonic
  // Whether the library's elimination, which exchanges no rows, passes. Otherwise its results have
  // no meaning, and it does not report that.
  bool fundamental_solved = true;
  bool harmonic_solved = true;
};

// Positions along the wave direction in m, and the wave numbers in rad/m of the fundamental and of
// a free wave of twice its frequency.
LayoutGain layout_gain(const std::vector<double>& positions, double k, double k_free);

}  // namespace Cli

#endif  // KELPBOX_CLI_PROBE_LAYOUT_H_
