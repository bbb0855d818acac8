#include "base/signal_transform.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <complex>

#include "base/vector.h"

namespace Base {
namespace {

// Whether the plain transform is slow: above prime factors of 13 by 4 to 14 times.
bool is_awkward(std::size_t samples) {
  constexpr std::size_t small = 1000;  // too short to matter
  if (samples < small) return false;
  for (const std::size_t factor : {2U, 3U, 5U, 7U, 11U, 13U}) {
    while (samples % factor == 0) samples /= factor;
  }
  return samples > 1;
}

}  // namespace

bool SignalTransform::takes_chirp(std::size_t samples, std::size_t first, std::size_t count) {
  if (!is_awkward(samples)) return false;
  const std::size_t length = ChirpTransform::length(samples, first, count);
  if (length > INT_MAX) return false;
  // The plain transform of an even length is twice as fast, so that only a narrow band gains.
  return samples % 2 == 1 || length < samples / 2 * 3;
}

std::uint64_t SignalTransform::memory(std::size_t samples, std::size_t first, std::size_t count) {
  // A signal that may overflow takes the plain transform, whatever the length.
  const std::uint64_t plain =
      transform_memory(samples) + sizeof(std::complex<double>) * spectrum_size(samples);
  if (!takes_chirp(samples, first, count)) return plain;
  // Of the convolution: three complex arrays and the tables of its transform. Of the signal: the
  // chirp, and what it is made from.
  constexpr std::uint64_t convolution_bytes = 80;
  constexpr std::uint64_t chirp_bytes = 42;
  return plain + convolution_bytes * ChirpTransform::length(samples, first, count) +
         chirp_bytes * samples;
}

SignalTransform::SignalTransform(std::size_t samples, std::size_t first, std::size_t count)
    : samples_(samples), first_(first), count_(count) {
  if (takes_chirp(samples, first, count)) {
    chirp_.emplace(samples, first, count);
  } else {
    plain_.emplace(samples, first, count);
  }
}

void SignalTransform::run(double* signal) {
  if (chirp_ && cannot_overflow(signal)) {
    chirp_->run(signal);
    return;
  }
  if (!plain_) plain_.emplace(samples_, first_, count_);
  plain_->run(signal, signal);
}

void SignalTransform::run(double* a, double* b) {
  if (chirp_ && cannot_overflow(a) && cannot_overflow(b)) {
    chirp_->run(a, b);
  } else {
    run(a);
    run(b);
  }
}

bool SignalTransform::cannot_overflow(const double* band) const {
  // Even the largest number of such parts has a sum.
  constexpr double largest = 1e290;
  return std::all_of(band, band + 2 * count_,
                     [](double part) { return std::fabs(part) <= largest; });
}

}  // namespace Base
