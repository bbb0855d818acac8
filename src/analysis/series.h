// Measured records, and sets of them cut to one time window.
#ifndef KELPBOX_ANALYSIS_SERIES_H_
#define KELPBOX_ANALYSIS_SERIES_H_

#include <vector>

#include "analysis/record.h"
#include "base/params.h"

namespace Analysis {

// One record.
struct Series {
  Base::Params params;  // "rate", and for frequency analysis the probe's "x" and "y"
  std::vector<double> samples;
};

struct Set {
  // Cuts every series to the samples from "start_time" up to, but not including, "stop_time". The
  // series can have different rates. Writes the bounds of each as progress lines. Throws
  // std::string "Out of range" for a window without samples, "out of range 2" for one that ends
  // after the record, and as Params::read. The records refer to the samples of the series, which
  // must outlive the set.
  Set(const Base::Params& params, std::vector<const Series*> given);

  std::vector<const Series*> series;
  std::vector<Record> data;  // one for each series, in metres
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_SERIES_H_
