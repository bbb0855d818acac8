#include "analysis/spectrum.h"

#include <algorithm>
#include <cmath>

#include "base/compose.h"
#include "base/large_pages.h"
#include "base/vector.h"

namespace Analysis {
namespace {

// The squared magnitude of an element whose magnitude is certainly lower than `best`. Both the
// square and the magnitude have rounding errors below 1e-15. Negative, which no square is, where a
// square could overflow or underflow.
double certainly_lower(double best) {
  constexpr double margin = 1.0 - 1e-14;
  return best > 1e-140 && best < 1e140 ? best * best * margin : -1.0;
}

// Whether one of the `count` elements may have a greater magnitude. True for NaN.
bool any_above(const double* parts, std::size_t count, double scale, double square) {
  std::uint64_t above = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double real = parts[2 * i] * scale;
    const double imaginary = parts[2 * i + 1] * scale;
    above |= static_cast<std::uint64_t>(!(real * real + imaginary * imaginary <= square));
  }
  return above != 0;
}

}  // namespace

Spectrum::Spectrum(std::span<const double> samples,
                   std::unique_ptr<Base::ForwardTransform>& transform)
    : size_(Base::spectrum_size(samples.size())) {
  if (samples.empty()) {
    parts_ = std::make_unique<double[]>(2);
    return;
  }
  if (!transform || transform->samples() != samples.size()) {
    transform = std::make_unique<Base::ForwardTransform>(samples.size());
  }
  parts_ = std::make_unique_for_overwrite<double[]>(2 * size_);
  Base::prefer_large_pages(parts_.get(), 2 * size_ * sizeof(double));
  const std::span<double> parts(parts_.get(), 2 * size_);
  transform->run(samples, parts);
  scale_ = 2.0 / static_cast<double>(samples.size());
  // The mean and the Nyquist element have no conjugate in the two-sided spectrum.
  const auto halve = [&](std::size_t h) {
    parts[2 * h] *= 0.5;
    parts[2 * h + 1] *= 0.5;
  };
  halve(0);
  if (samples.size() % 2 == 0) halve(samples.size() / 2);
}

std::complex<double> Spectrum::at(std::uint64_t h) const {
  if (h > size_) throw Base::compose("Index ", h, " out of range");
  return h == size_ ? 0.0 : (*this)[h];
}

std::uint32_t Spectrum::peak(std::uint32_t start) const {
  return peak_bin({parts_.get(), 2 * size_}, scale_, start);
}

std::uint32_t peak_bin(std::span<const double> parts, double scale, std::uint32_t start) {
  constexpr std::size_t block = 32;
  const std::size_t size = parts.size() / 2;
  std::uint32_t bin = start;
  double best = 0.0;
  double lower = certainly_lower(best);
  for (std::size_t first = start; first < size; first += block) {
    const std::size_t count = std::min(block, size - first);
    if (!any_above(parts.data() + 2 * first, count, scale, lower)) continue;
    for (std::size_t i = first; i < first + count; ++i) {
      const double magnitude = std::hypot(parts[2 * i] * scale, parts[2 * i + 1] * scale);
      if (magnitude > best) {
        best = magnitude;
        lower = certainly_lower(best);
        bin = static_cast<std::uint32_t>(i);
      }
    }
  }
  return bin;
}

}  // namespace Analysis
