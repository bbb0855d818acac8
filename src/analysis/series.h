// Measured records, and sets of them cut to one time window.
#ifndef KELPBOX_ANALYSIS_SERIES_H_
#define KELPBOX_ANALYSIS_SERIES_H_

#include <vector>

#include "base/data_set.h"
#include "base/params.h"
#include "base/vector.h"

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
  // after the record, and as Params::read and the constructors of DataSet. The series must outlive
  // the set.
  Set(const Base::Params& params, std::vector<const Series*> given);

  std::vector<const Series*> series;
  std::vector<Base::DataSet> data;  // one for each series, in metres
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_SERIES_H_
