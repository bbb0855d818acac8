#include "base/band_transform.h"

#include <algorithm>

#include "base/fftw_plan.h"
#include "base/vector.h"

namespace Base {

struct BandTransform::Work {
  Work(std::size_t samples, std::size_t first_harmonic, std::size_t harmonics)
      : n(samples),
        first(first_harmonic),
        count(harmonics),
        spectrum(spectrum_size(samples)),
        plan(std::make_shared<SharedPlan>()) {}

  std::size_t n;
  std::size_t first;
  std::size_t count;
  Spectrum spectrum;
  std::shared_ptr<SharedPlan> plan;
};

BandTransform::BandTransform(std::size_t samples, std::size_t first, std::size_t count) {
  require_transformable(samples);
  if (samples != 0) work_ = std::make_unique<Work>(samples, first, count);
}

BandTransform::BandTransform(const BandTransform& other) {
  if (other.work_) work_ = std::make_unique<Work>(*other.work_);
}

BandTransform::~BandTransform() = default;

void BandTransform::run(const double* band, double* time) {
  if (!work_) return;
  Spectrum& spectrum = work_->spectrum;
  // A transform that leaves its input as it is needs a copy of it, and more time.
  const FftwPlan& plan =
      work_->plan->get([&] { return FftwPlan::to_time(work_->n, spectrum.data(), time); });
  const auto begin = spectrum.begin() + static_cast<std::ptrdiff_t>(work_->first);
  std::fill(spectrum.begin(), begin, 0.0);
  std::fill(begin + static_cast<std::ptrdiff_t>(work_->count), spectrum.end(), 0.0);
  for (std::size_t i = 0; i < work_->count; ++i) {
    const std::size_t h = work_->first + i;
    spectrum[h] = two_sided({band[2 * i], band[2 * i + 1]}, counts_once(h, work_->n));
  }
  plan.run(spectrum.data(), time);
}

}  // namespace Base
