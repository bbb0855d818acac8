// The drive signals of one wavemaker bank.
#ifndef KELPBOX_DRIVE_BANK_MOTION_H_
#define KELPBOX_DRIVE_BANK_MOTION_H_

#include <complex>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/params.h"
#include "maths/clip.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"
#include "site/paddles.h"

namespace Synthesis {

class BankMotion {
 public:
  // Takes "rate", the samples per second of the signals, from the parameters. It need not be the
  // site's base rate. Throws std::string "Repeat time zero or less", the texts of the parameter,
  // "rate::<value> Hz gives no usable number of samples in a repeat time of <value> s".
  void init(const Maths::TankConfig& tank, const Maths::RunData& run, const Base::Params& params);
  // Makes one signal for each paddle, in radians for flaps and metres for pistons. Throws
  // std::string "Trying to build paddle positions when not initialised", "Unsupported critical
  // dimension type found", "Unsupported type of machine found", "Index N out of range", and
  // "rate::<value> Hz gives <samples> samples for each of <paddles> paddles, which need ... GiB of
  // memory, ... GiB are available" before any of it is used.
  void build(const Common::Paddles& paddles, const Maths::FrontSet& fronts);
  // Empties the parameters, then adds the clipping ratios when anything clipped.
  void stats(Base::Params& out) const;

  const std::vector<std::vector<double>>& series() const { return series_; }

 private:
  using Spectrum = std::vector<std::complex<double>>;

  void prove_memory(std::size_t paddles) const;
  // The spectrum of each paddle's signal. They lie in the memory that the signals will take.
  std::vector<Spectrum> spectra(const Common::Paddles& paddles,
                                const Maths::FrontSet& fronts) const;

  std::uint32_t samples_ = 0;  // of each signal
  double depth_ = 0.0;
  double g_ = 0.0;
  double delta_omega_ = 0.0;
  double rate_ = 0.0;
  bool ready_ = false;
  Maths::ClipStats clip_;
  std::vector<std::vector<double>> series_;
};

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_BANK_MOTION_H_
