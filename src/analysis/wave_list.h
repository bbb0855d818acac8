// The individual waves of a record, each from one upward zero crossing to the next, and the heights
// and periods that are reported from them.
//
// Elevations are in metres and times in seconds. Failures are thrown as std::string.
#ifndef KELPBOX_ANALYSIS_WAVE_LIST_H_
#define KELPBOX_ANALYSIS_WAVE_LIST_H_

#include <vector>

#include "analysis/wave.h"
#include "base/data_set.h"
#include "base/params.h"

namespace Analysis {

struct WaveList {
  WaveList() = default;
  // As find_waves on an empty list.
  WaveList(Base::DataSet& set, bool wrap);

  void sort_by_height();
  void sort_by_period();

  std::vector<Wave> waves;
};

// Appends the waves of the record and sorts the whole list by rising height. With `wrap` the record
// is cyclic: the part after the last crossing and the part before the first one form a wave.
// Otherwise both parts are discarded.
void find_waves(WaveList& list, Base::DataSet& set, bool wrap);

// The functions below sort the list as they need it. With fewer than six waves is_regular and the
// regular ones throw "Insufficient zero crossings in time series", and the irregular ones throw
// "Insufficient points for irregular wave analysis".

// Whether the periods, except the longest and the shortest, spread by less than 1 % of the median.
bool is_regular(WaveList& list);

// The median period, and the median height.
double regular_period(WaveList& list);
double regular_height(WaveList& list);

struct Significant {
  double height = 0.0;
  double period = 0.0;
};

// The single wave at two thirds of the list in order of height. This definition is kept on purpose:
// it is not the mean of the highest third, and hosts rely on it.
Significant significant_wave(WaveList& list);

// Adds "reg_t" and "reg_h".
void report_regular(WaveList& list, Base::Params& out);
// Adds "max_amp", which is the greatest height despite its name, "sig_t" and "sig_h".
void report_irregular(WaveList& list, Base::Params& out);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_WAVE_LIST_H_
