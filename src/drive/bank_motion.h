// The drive signals of one wavemaker bank.
//
// The fronts of a run become one spectrum for each paddle (paddle_bands.h), and each spectrum one
// signal. Signals are not clipped: what exceeds the machine's clip_limit is counted
// (maths/clip.h) and stays in the signal.
#ifndef KELPBOX_DRIVE_BANK_MOTION_H_
#define KELPBOX_DRIVE_BANK_MOTION_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/executor.h"
#include "base/params.h"
#include "drive/paddle_bands.h"
#include "maths/clip.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"
#include "site/paddles.h"

namespace Synthesis {

class BankMotion {
 public:
  // Reads "rate", the samples per second of the signals, which need not be the site's base rate.
  // Throws std::string "Repeat time zero or less", what Params::read throws, and what
  // Maths::sample_count throws.
  void init(const Maths::TankConfig& tank, const Maths::RunData& run, const Base::Params& params);
  // Makes one signal for each paddle, in the machine's signal_units. Throws std::string "Trying to
  // build paddle positions when not initialised", what the machine throws, "Index N out of range"
  // for a harmonic N above the number of samples, and, before it allocates anything, "rate::<value>
  // Hz gives <samples> samples for each of <paddles> paddles, which need ... GiB of memory, ... GiB
  // are available". The signals are the same for every number of workers.
  void build(const Common::Paddles& paddles, const Maths::FrontSet& fronts,
             const Base::Executor& executor = Base::Executor());
  // Empties the parameters, then adds the clipping ratios if anything exceeded the limit.
  void stats(Base::Params& out) const;

  const std::vector<std::vector<double>>& series() const { return series_; }

 private:
  using Series = std::vector<std::vector<double>>;

  // Throws unless the spectra and signals of all paddles fit in memory.
  void require_memory(std::size_t paddles, const HarmonicBand& band, unsigned workers) const;
  // Makes the signals. Stores whether all samples are within the limit of `clip_`.
  Series signals(const Common::Paddles& paddles, const Maths::FrontSet& fronts,
                 const Base::Executor& executor, bool& within);

  std::uint32_t samples_ = 0;  // of each signal
  double depth_ = 0.0;
  double g_ = 0.0;
  double delta_omega_ = 0.0;
  double rate_ = 0.0;
  bool ready_ = false;
  Maths::ClipStats clip_;
  Series series_;
  Series memory_;  // signals of the last build, whose memory the next one takes
};

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_BANK_MOTION_H_
