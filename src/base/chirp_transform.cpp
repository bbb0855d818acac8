#include "base/chirp_transform.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "base/constants.h"
#include "base/sine_cosine.h"

namespace Base {
namespace {

using Complex = std::complex<double>;

// exp(i pi k^2 / samples). The square is reduced before it loses digits.
std::vector<Complex> chirp_of(std::size_t samples) {
  std::vector<double> angles(samples);
  std::vector<double> sines(samples);
  std::vector<double> cosines(samples);
  for (std::uint64_t k = 0; k < samples; ++k) {
    angles[k] = Pi * static_cast<double>(k * k % (2 * samples)) / static_cast<double>(samples);
  }
  sine_cosine(angles.data(), samples, sines.data(), cosines.data());
  std::vector<Complex> chirp(samples);
  for (std::size_t k = 0; k < samples; ++k) chirp[k] = {cosines[k], sines[k]};
  return chirp;
}

// The library's product also looks for infinity.
Complex product(Complex a, Complex b) {
  return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

// A power of two near the largest part. 0 for a band of zeros, and NaN if any part is not finite.
double size_of(const double* band, std::size_t parts) {
  double largest = 0.0;
  for (std::size_t i = 0; i < parts; ++i) {
    if (!std::isfinite(band[i])) return std::numeric_limits<double>::quiet_NaN();
    largest = std::max(largest, std::fabs(band[i]));
  }
  if (largest == 0.0) return 0.0;
  int exponent = 0;
  std::frexp(largest, &exponent);
  return std::ldexp(1.0, std::clamp(exponent, -1022, 1023));
}

}  // namespace

std::size_t ChirpTransform::length(std::size_t samples, std::size_t first, std::size_t count) {
  const std::size_t least = samples + 2 * (first + count);
  for (std::size_t size = (least + 3) / 4 * 4;; size += 4) {
    std::size_t rest = size;
    for (const std::size_t factor : {2U, 3U, 5U, 7U}) {
      while (rest % factor == 0) rest /= factor;
    }
    if (rest == 1) return size;
  }
}

ChirpTransform::ChirpTransform(std::size_t samples, std::size_t first, std::size_t count)
    : samples_(samples),
      first_(first),
      count_(count),
      chirp_(std::make_shared<const std::vector<Complex>>(chirp_of(samples))),
      transform_(length(samples, first, count)) {
  const std::vector<Complex>& chirp = *chirp_;
  std::vector<Complex>& in = transform_.in();
  const double size = static_cast<double>(in.size());
  std::fill(in.begin(), in.end(), 0.0);
  for (std::size_t k = 0; k < samples; ++k) in[k] = std::conj(chirp[k]) / size;
  // The distances from samples to harmonics reach beyond both ends.
  const std::size_t last = first + count;
  for (std::size_t k = 1; k < last; ++k) in[in.size() - k] = std::conj(chirp[k]) / size;
  // chirp(k + samples) = chirp(k) * (-1)^samples.
  const double sign = samples % 2 == 0 ? 1.0 : -1.0;
  for (std::size_t k = 0; k < last; ++k) in[samples + k] = sign * std::conj(chirp[k]) / size;
  transform_.forward();
  kernel_ = std::make_shared<const std::vector<Complex>>(transform_.out());
}

void ChirpTransform::run(double* signal) {
  const double size = size_of(signal, 2 * count_);
  if (size == 0.0) {
    // The convolution would give zeros of both signs.
    std::fill_n(signal, samples_, 0.0);
    return;
  }
  run_scaled(signal, std::isnan(size) ? 1.0 : size, nullptr, 0.0);
}

void ChirpTransform::run(double* a, double* b) {
  const double size_a = size_of(a, 2 * count_);
  const double size_b = size_of(b, 2 * count_);
  const bool usual = size_a > 0.0 && size_b > 0.0;
  if (!usual) {
    run(a);
    run(b);
  } else {
    run_scaled(a, size_a, b, size_b);
  }
}

// Adds the two-sided spectrum of factor times the signal.
void ChirpTransform::add_band(const double* band, Complex factor) {
  std::vector<Complex>& in = transform_.in();
  for (std::size_t i = 0; i < count_; ++i) {
    const std::size_t h = first_ + i;
    const Complex element(band[2 * i], band[2 * i + 1]);
    const Complex chirp = (*chirp_)[h];
    // The mean and the Nyquist element have no conjugate of their own.
    if (h == 0 || 2 * h == samples_) {
      in[h] += product(factor * element.real(), chirp);
      continue;
    }
    in[h] += product(product(factor, 0.5 * element), chirp);
    in[in.size() - h] += product(product(factor, 0.5 * std::conj(element)), chirp);
  }
}

void ChirpTransform::run_scaled(double* a, double size_a, double* b, double size_b) {
  std::vector<Complex>& in = transform_.in();
  std::vector<Complex>& out = transform_.out();
  std::fill(in.begin(), in.end(), 0.0);
  add_band(a, 1.0 / size_a);
  if (b != nullptr) add_band(b, Complex(0.0, 1.0 / size_b));
  transform_.forward();
  const std::vector<Complex>& kernel = *kernel_;
  for (std::size_t i = 0; i < out.size(); ++i) out[i] = product(out[i], kernel[i]);
  transform_.backward();
  const std::vector<Complex>& chirp = *chirp_;
  for (std::size_t j = 0; j < samples_; ++j) {
    const Complex sample = product(in[j], chirp[j]);
    a[j] = sample.real() * size_a;
    if (b != nullptr) b[j] = sample.imag() * size_b;
  }
}

}  // namespace Base
