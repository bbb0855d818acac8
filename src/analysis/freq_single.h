// Separates the waves under several probes into forward and backward, free and bound trains, for
// one fundamental frequency and its harmonics.
#ifndef KELPBOX_ANALYSIS_FREQ_SINGLE_H_
#define KELPBOX_ANALYSIS_FREQ_SINGLE_H_

#include <cstdint>
#include <vector>

#include "analysis/probes.h"
#include "analysis/two_d.h"

namespace Analysis {

// Works on one frequency and several probes. Writes progress lines, which hosts read.
class FreqSingle final : public TwoD {
 public:
  FreqSingle(const Maths::TankConfig& tank, Set& set);

  // Separates the fundamental, which is the lowest of the records' peaks. With four independent
  // probes (probes.h) it also separates the second, third and fourth harmonic. "angle" is the
  // forward direction, measured from the tank's x axis. "freq" is required, but its value is not
  // used. Throws "At least two data sets must be provided for frequency analysis", "Inconsistent
  // sizes of data sets", "Units not of distance", "Too few independant probes to process", and
  // "Index N out of range" for a harmonic beyond the spectra. Also throws as Params::read,
  // locate_probes, TankRun::depth_at and knum.
  void process(const Base::Params& settings) override;
  // Adds the magnitudes of the fundamental and of the second harmonic. The numbers are in metres,
  // but have no units. Throws as Params::insert.
  void results(Base::Params& out) override;
  // Always empty. If "x" is given, "y", "start_time", "stop_time" and "rate" are required too, but
  // their values are not used. Throws as Params::read.
  const std::vector<double>& data(const Base::Params& params) override;

 private:
  // Checks the records and sets all results to zero.
  void prepare();
  // The lowest of the records' peak elements.
  std::uint32_t fundamental_bin();
  // Reads each probe's element of its spectrum.
  void take_values(std::vector<ProbeRecord>& records, std::uint32_t bin);
  void store_fundamental(const std::vector<ProbeRecord>& records, double k, std::uint32_t bin);
  void store_harmonic(const std::vector<ProbeRecord>& records, double k_bound, double k_free,
                      std::uint32_t bin);

  std::uint32_t bin_ = 0;  // of the fundamental
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_FREQ_SINGLE_H_
