// Wave heights and periods from the zero crossings of several probes' records.
#ifndef KELPBOX_ANALYSIS_MULTI_TIME_H_
#define KELPBOX_ANALYSIS_MULTI_TIME_H_

#include <vector>

#include "analysis/process.h"
#include "analysis/wave_list.h"

namespace Analysis {

class MultiTime final : public Process {
 public:
  MultiTime(const Maths::TankConfig& tank, Set& set);

  // Finds the waves of each record and appends them to its list. A second call appends them again
  // on purpose: hosts see the doubled counts. When memory runs out, here or in `results`, nothing
  // is appended, so that a host can try again. The settings are not read. Throws "Mismatched
  // sizes".
  void process(const Base::Params& settings) override;
  // Adds means over the records: "sig_t" and "sig_h" if fewer than half of the records are regular,
  // "reg_t" otherwise. Throws the messages of wave_list.h.
  void results(Base::Params& out) override;
  // The wave height of each record in metres after a regular result, otherwise empty.
  const std::vector<double>& data(const Base::Params& params) override;

 private:
  void report(Base::Params& out);
  void report_irregular(Base::Params& out);
  void report_regular(Base::Params& out);

  std::vector<WaveList> waves_;    // one list for each record
  std::vector<WaveList> earlier_;  // those before the last `process`
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_MULTI_TIME_H_
