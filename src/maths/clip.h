// The clipping account of drive signals, half wave by half wave.
#ifndef KELPBOX_MATHS_CLIP_H_
#define KELPBOX_MATHS_CLIP_H_

#include <cstdint>
#include <vector>

#include "base/params.h"
#include "base/vector.h"

namespace Maths {

// Totals over any number of signals; `limit` is the magnitude at which a signal clips.
struct ClipStats {
  double limit = 0.0;
  double total_energy = 0.0;
  std::uint32_t half_waves = 0;
  double clipped_energy = 0.0;
  std::uint32_t clipped_half_waves = 0;
};

struct ClipPeak {
  std::uint32_t index = 0;  // of the sample at the peak
  bool positive = false;
  double ratio = 0.0;  // the limit divided by the peak
};

// Adds a cyclic signal to the account. A signal that never changes sign leaves it untouched.
// Throws std::string "Unmatched zero crossings".
void clip_scan(const Base::Vector& signal, ClipStats& stats, std::vector<ClipPeak>& peaks);

// Adds "clip_power_ratio" and "clip_peak_ratio" when anything clipped.
void clip_report(const ClipStats& stats, Base::Params& params);

}  // namespace Maths

#endif  // KELPBOX_MATHS_CLIP_H_
