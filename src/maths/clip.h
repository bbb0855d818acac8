// Counts how much of a drive signal exceeds a limit, half wave by half wave. Nothing is limited:
// the signal is not changed.
#ifndef KELPBOX_MATHS_CLIP_H_
#define KELPBOX_MATHS_CLIP_H_

#include <cstdint>
#include <vector>

#include "base/params.h"
#include "base/vector.h"

namespace Maths {

// Totals over any number of signals. Energies are sums of squares.
struct ClipStats {
  double limit = 0.0;  // the magnitude above which a signal clips
  double total_energy = 0.0;
  std::uint32_t half_waves = 0;
  double clipped_energy = 0.0;
  std::uint32_t clipped_half_waves = 0;
};

struct ClipPeak {
  std::uint32_t index = 0;  // of the sample at the peak
  bool positive = false;
  double ratio = 0.0;  // of the limit to the peak
};

// Adds a cyclic signal to the totals and lists its peaks above the limit. A signal that never
// changes sign adds nothing. Throws std::string "Unmatched zero crossings".
void clip_scan(const Base::Vector& signal, ClipStats& stats, std::vector<ClipPeak>& peaks);

// If anything clipped, adds "clip_power_ratio", the share of the energy that clipping would remove,
// and "clip_peak_ratio", the share of the half waves that exceed the limit.
void clip_report(const ClipStats& stats, Base::Params& params);

}  // namespace Maths

#endif  // KELPBOX_MATHS_CLIP_H_
