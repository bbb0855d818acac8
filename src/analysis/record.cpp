#include "analysis/record.h"

namespace Analysis {

Record::Record(std::span<const double> samples, const Base::Params& params)
    : Record(samples, params, Base::default_units(Base::Category::length)) {}

Record::Record(std::span<const double> samples, const Base::Params& params, Base::Units units)
    : samples_(samples),
      params_(&params),
      units_(units),
      rate_(params.read("rate", Base::Category::frequency)) {}

const Spectrum& Record::spectrum(std::unique_ptr<Base::ForwardTransform>& transform) {
  if (!spectrum_) spectrum_.emplace(samples_, transform);
  return *spectrum_;
}

}  // namespace Analysis
