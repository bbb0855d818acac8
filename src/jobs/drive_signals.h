// The drive signals as they go to the machine: the library's, tapered and stopped as the job asks.
#ifndef KELPBOX_JOBS_DRIVE_SIGNALS_H_
#define KELPBOX_JOBS_DRIVE_SIGNALS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "jobs/run.h"

namespace Jobs {

struct BankLimits {
  double maximum = 0.0;  // in the signal's units
  double minimum = 0.0;
  double clip = 0.0;
};

struct DriveBank {
  std::string name;
  std::string units;  // of its signals: "rad" or "m"
  BankLimits limits;
  std::uint32_t paddles = 0;
};

// Refers to the signals of the run, which must outlive it. Samples are shaped when they are read,
// so that no second copy of the signals is needed.
class DriveSignals {
 public:
  // Computes the signals. Throws BadJob when the library refuses, and for a sample that is not
  // finite: it names the bank, the paddle and the harmonic. Throws it too for a ramp that is
  // negative or longer than half a repeat.
  explicit DriveSignals(Run& run);

  const std::vector<DriveBank>& banks() const { return banks_; }
  std::size_t samples() const { return samples_; }
  double rate() const { return rate_; }  // Hz, as fitted
  // As the library made it, and as it goes to the machine.
  double raw(std::uint32_t bank, std::uint32_t paddle, std::size_t sample) const;
  double sample(std::uint32_t bank, std::uint32_t paddle, std::size_t sample) const;
  // The whole signal as it goes to the machine.
  void read(std::uint32_t bank, std::uint32_t paddle, std::vector<double>& out) const;
  // The factor of the taper: sin^2 from 0 at the first sample to 1 after the ramp, and back to 0
  // at the last sample.
  double taper(std::size_t sample) const;

 private:
  std::vector<DriveBank> banks_;
  std::vector<std::vector<const std::vector<double>*>> signals_;  // by bank and paddle
  std::size_t samples_ = 0;
  double rate_ = 0.0;
  double ramp_ = 0.0;
  bool stop_at_limit_ = false;
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_DRIVE_SIGNALS_H_
