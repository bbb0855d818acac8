// The interface of all analyses of a set.
#ifndef KELPBOX_ANALYSIS_PROCESS_H_
#define KELPBOX_ANALYSIS_PROCESS_H_

#include <vector>

#include "analysis/record.h"
#include "analysis/series.h"
#include "base/params.h"
#include "maths/tank_config.h"

namespace Analysis {

// Failures are thrown as std::string. Reading a record can transform it, so only one process may
// work on a set at a time.
class Process {
 public:
  // Both must outlive the process.
  Process(const Maths::TankConfig& tank, Set& set) : tank_(&tank), set_data_(&set.data) {}
  virtual ~Process() = default;
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  // Does the analysis.
  virtual void process(const Base::Params& settings) = 0;
  // Adds the named results.
  virtual void results(Base::Params& out) = 0;
  // The results that are lists. Valid until the next call of `results`.
  virtual const std::vector<double>& data(const Base::Params& params) = 0;

 protected:
  const Maths::TankConfig* tank_;
  std::vector<Record>* set_data_;
  std::vector<double> data_;
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_PROCESS_H_
