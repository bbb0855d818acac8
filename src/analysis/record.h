// One record of a set.
#ifndef KELPBOX_ANALYSIS_RECORD_H_
#define KELPBOX_ANALYSIS_RECORD_H_

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "analysis/spectrum.h"
#include "base/params.h"
#include "base/quantity.h"
#include "base/units.h"

namespace Analysis {

// Refers to samples and parameters that belong to a series. Only one thread may use a record at a
// time, because its spectrum is computed when it is first read.
class Record {
 public:
  // The samples are elevations in metres unless other units are given. The rate is the entry "rate"
  // of the parameters. Throws as Params::read.
  Record(std::span<const double> samples, const Base::Params& params);
  Record(std::span<const double> samples, const Base::Params& params, Base::Units units);

  std::span<const double> samples() const { return samples_; }
  Base::Units units() const { return units_; }
  double rate() const { return rate_; }  // Hz
  // A copy of a parameter. Throws "<name>::Not found".
  Base::Quantity param(const std::string& name) const { return params_->at(name); }

  // Computes the spectrum unless it is there, as Spectrum does.
  const Spectrum& spectrum(std::unique_ptr<Base::ForwardTransform>& transform);
  // The spectrum that has been computed.
  const Spectrum& spectrum() const { return spectrum_.value(); }

 private:
  std::span<const double> samples_;
  const Base::Params* params_;
  Base::Units units_;
  double rate_;
  std::optional<Spectrum> spectrum_;
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_RECORD_H_
