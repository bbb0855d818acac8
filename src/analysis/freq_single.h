// A wave train of one frequency under several probes, taken apart with its harmonics.
#ifndef KELPBOX_ANALYSIS_FREQ_SINGLE_H_
#define KELPBOX_ANALYSIS_FREQ_SINGLE_H_

#include <cstdint>
#include <vector>

#include "analysis/separation.h"
#include "analysis/two_d.h"

namespace Analysis {

// One frequency, several probes. Writes its progress to the standard output stream.
class FreqSingle final : public TwoD {
 public:
  FreqSingle(const Maths::TankConfig& tank, Set& set);

  // Separates the fundamental, which is the lowest of the records' peaks, and with four
  // independent probes its second, third and fourth harmonic too. Probes count as independent
  // from a tenth of a radian of the fundamental's phase. Reads "freq", whose value changes
  // nothing, and "angle", the direction from the tank's x axis along which waves run forward.
  // Throws "At least two data sets must be provided for frequency analysis", "Inconsistent sizes
  // of data sets", "Units not of distance", "Too few independant probes to process", "Index N out
  // of range" for a harmonic beyond the records' spectra, and what parameters, the tank's depth at
  // the probes' mean x and the wave number throw.
  void process(const Base::Params& settings) override;
  // Adds the magnitudes of the fundamental and of the second harmonic, in metres though without
  // units.
  void results(Base::Params& out) override;
  // Always empty. With "x" among the parameters, "y", "start_time", "stop_time" and "rate" must
  // be there too; their values change nothing.
  const std::vector<double>& data(const Base::Params& params) override;

 private:
  void prepare();
  // The lowest of the records' peak elements.
  std::uint32_t fundamental_bin();
  // By rising position along the direction, without values. Also tells the mean x.
  std::vector<ProbeRecord> locate(double angle, double& mean_x);
  void take_values(std::vector<ProbeRecord>& records, std::uint32_t bin);
  void store_fundamental(const std::vector<ProbeRecord>& records, double k, std::uint32_t bin);
  void store_harmonic(const std::vector<ProbeRecord>& records, double k_bound, double k_free,
                      std::uint32_t bin);

  std::uint32_t bin_ = 0;  // of the fundamental
};

// The element of greatest magnitude from `start` on, the lowest of equals; `start` when all are 0.
std::uint32_t peak_bin(const Base::Cvector& form, std::uint32_t start);

// How many of the records, sorted by position, stand further than 0.1 / k from the last counted.
std::uint32_t independent_probes(const std::vector<ProbeRecord>& records, double k);

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_FREQ_SINGLE_H_
