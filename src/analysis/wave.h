// One wave of a record, from one upward zero crossing to the next.
#ifndef KELPBOX_ANALYSIS_WAVE_H_
#define KELPBOX_ANALYSIS_WAVE_H_

namespace Analysis {

// Elevations are in metres and times in seconds.
struct Wave {
  double height() const { return crest - trough; }
  double period() const { return end - start; }

  double crest = 0.0;   // the highest sample, 0 or above
  double trough = 0.0;  // the lowest sample, 0 or below
  double end = 0.0;     // time of the up-crossing that closes the wave
  double start = 0.0;   // time of the up-crossing that opens it
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_WAVE_H_
