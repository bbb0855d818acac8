#include "base/forward_transform.h"

#include "base/fftw_plan.h"

namespace Base {

struct ForwardTransform::Work {
  std::size_t samples;
  FftwPlan plan;
};

ForwardTransform::ForwardTransform(std::size_t samples)
    : work_(std::make_unique<Work>(Work{samples, {}})) {
  require_transformable(samples);
}

ForwardTransform::~ForwardTransform() = default;

std::size_t ForwardTransform::samples() const { return work_->samples; }

void ForwardTransform::run(std::span<const double> samples, std::span<double> parts) {
  Samples copy;
  if (!aligned(samples.data())) {
    copy.assign(samples.begin(), samples.end());
    samples = copy;
  }
  auto* const spectrum = reinterpret_cast<std::complex<double>*>(parts.data());
  if (!work_->plan) work_->plan = FftwPlan::to_freq(work_->samples, samples.data(), spectrum);
  work_->plan.run(samples.data(), spectrum);
}

}  // namespace Base
