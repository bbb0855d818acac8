// Records as the host measured them, and groups of them that are cut to one span of time.
#ifndef KELPBOX_ANALYSIS_SERIES_H_
#define KELPBOX_ANALYSIS_SERIES_H_

#include <vector>

#include "base/data_set.h"
#include "base/params.h"
#include "base/vector.h"

namespace Analysis {

// One record.
struct Series {
  Base::Params params;  // "rate"; for frequency analysis also "x" and "y", where the probe stands
  std::vector<double> samples;
};

struct Set {
  // Takes "start_time" and "stop_time" from the parameters and cuts every series to them, the
  // sample at the stop left out. The rates are not compared. The bounds in samples go to the
  // standard output stream. Throws std::string "Out of range" for a window without a sample, "out
  // of range 2" for one that ends behind the record, and the texts of the parameters. The series
  // must outlive the set.
  Set(const Base::Params& params, std::vector<const Series*> given);

  std::vector<const Series*> series;
  std::vector<Base::DataSet> data;  // one for each series, in metres
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_SERIES_H_
