// A process without results. Hosts can create one.
#ifndef KELPBOX_ANALYSIS_MULTI_FREQ_H_
#define KELPBOX_ANALYSIS_MULTI_FREQ_H_

#include <vector>

#include "analysis/process.h"

namespace Analysis {

class MultiFreq final : public Process {
 public:
  using Process::Process;

  void process(const Base::Params&) override {}
  void results(Base::Params&) override {}
  // Always empty.
  const std::vector<double>& data(const Base::Params&) override { return data_; }
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_MULTI_FREQ_H_
