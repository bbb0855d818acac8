// The individual waves of a record, from one upward zero crossing to the next, and the heights and
// periods that are reported of them.
//
// Elevations in metres, times in seconds. Failures are thrown as std::string.
#ifndef KELPBOX_ANALYSIS_WAVE_LIST_H_
#define KELPBOX_ANALYSIS_WAVE_LIST_H_

#include <vector>

#include "base/data_set.h"
#include "base/params.h"

namespace Analysis {

struct Wave {
  double height() const { return crest - trough; }
  double period() const { return end - start; }

  double crest = 0.0;   // the highest sample, 0 or above
  double trough = 0.0;  // the lowest sample, 0 or below
  double end = 0.0;     // the up-crossing that closes the wave
  double start = 0.0;   // the up-crossing that opens it
};

struct WaveList {
  WaveList() = default;
  WaveList(Base::DataSet& set, bool wrap);

  void sort_by_height();
  void sort_by_period();

  std::vector<Wave> waves;
};

// Appends the waves of the record, and sorts the whole list by rising height. A record that wraps
// is cyclic: what follows its last crossing joins what precedes its first. Otherwise both ends are
// dropped.
void find_waves(WaveList& list, Base::DataSet& set, bool wrap);

// The reports sort the list as they need it. "Insufficient zero crossings in time series" is
// thrown for fewer than six waves, "Insufficient points for irregular wave analysis" for fewer
// than six where waves are irregular.

// Whether the periods, the longest and the shortest left out, lie within 1 per cent of the median.
bool is_regular(WaveList& list);

struct Significant {
  double height = 0.0;
  double period = 0.0;
};

// The median of the periods, and that of the heights.
double regular_period(WaveList& list);
double regular_height(WaveList& list);
// The one wave that stands at two thirds of the list by height: by definition here, the
// significant wave is not a mean of the highest third.
Significant significant_wave(WaveList& list);

// Adds "reg_t" and "reg_h".
void report_regular(WaveList& list, Base::Params& out);
// Adds "max_amp", which is the greatest height in spite of its name, "sig_t" and "sig_h".
void report_irregular(WaveList& list, Base::Params& out);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_WAVE_LIST_H_
