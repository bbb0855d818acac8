// Wave heights and periods of several probes by zero crossings, averaged over the probes.
#ifndef KELPBOX_ANALYSIS_MULTI_TIME_H_
#define KELPBOX_ANALYSIS_MULTI_TIME_H_

#include <vector>

#include "analysis/process.h"
#include "analysis/wave_list.h"

namespace Analysis {

class MultiTime final : public Process {
 public:
  MultiTime(const Maths::TankConfig& tank, Set& set);

  // Finds the waves of each record. The lists are not emptied first: hosts see the doubled counts
  // of a second call. Throws "Mismatched sizes". The settings are not read.
  void process(const Base::Params& settings) override;
  // Adds "sig_t" and "sig_h" where fewer than half of the records are regular, otherwise "reg_t".
  // Throws the texts of wave_list.h.
  void results(Base::Params& out) override;
  // The heights of regular records, one for each probe; empty where waves are irregular.
  const std::vector<double>& data(const Base::Params& params) override;

 private:
  void report_irregular(Base::Params& out);
  void report_regular(Base::Params& out);

  std::vector<WaveList> waves_;  // one list for each record
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_MULTI_TIME_H_
