#include "drive/front_sums.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <utility>

#include "base/constants.h"
#include "base/sine_cosine.h"
#include "base/streams.h"
#include "maths/wavemaker_ratio.h"

namespace Synthesis {
namespace {

constexpr double huge = 1e10;

// The largest coordinate, in magnitude.
double extent_of(const PaddleRow& row) {
  double extent = 0.0;
  for (std::size_t p = 0; p < row.x.size(); ++p) {
    if (!std::isfinite(row.x[p] + row.y[p])) return std::numeric_limits<double>::infinity();
    extent = std::max({extent, std::fabs(row.x[p]), std::fabs(row.y[p])});
  }
  return extent;
}

// How far the positions are from even steps (dx, dy).
double deviation(const PaddleRow& row, double dx, double dy) {
  double largest = 0.0;
  for (std::size_t p = 0; p < row.x.size(); ++p) {
    const auto steps = static_cast<double>(p);
    largest = std::max({largest, std::fabs(row.x[p] - (row.x[0] + steps * dx)),
                        std::fabs(row.y[p] - (row.y[0] + steps * dy))});
  }
  return largest;
}

}  // namespace

FrontSums::FrontSums(PaddleRow row) : paddles_(row.x.size()), row_(std::move(row)) {
  for (const double normal : row_.angle) straight_ = straight_ && normal == row_.angle[0];
  if (paddles_ > 1) {
    const auto steps = static_cast<double>(paddles_ - 1);
    dx_ = (row_.x.back() - row_.x.front()) / steps;
    dy_ = (row_.y.back() - row_.y.front()) / steps;
  }
  extent_ = extent_of(row_);
  unevenness_ = deviation(row_, dx_, dy_) + std::numeric_limits<double>::epsilon() * extent_;

  const std::size_t padded = (paddles_ + paddle_group - 1) / paddle_group * paddle_group;
  for (std::vector<double>* values : {&row_.x, &row_.y, &row_.angle}) values->resize(padded);
  normal_cosines_.resize(padded);
  normal_sines_.resize(padded);
  Base::sine_cosine(row_.angle.data(), padded, normal_sines_.data(), normal_cosines_.data());
}

// Whether a sum may become huge. Obliquity factors are below 2 for waves longer than two paddle
// widths, and the others reach only paddles for which it is.
bool FrontSums::may_report(const PaddleHarmonic& harmonic,
                           std::span<const Maths::HarmonicFront> fronts) const {
  if (paddles_ == 0) return false;
  double amplitudes = 0.0;
  for (const Maths::HarmonicFront& front : fronts) amplitudes += std::fabs(front.amp);
  const bool bounded = harmonic.k * row_.width > -Base::Pi;
  return !(bounded && 2.0 * amplitudes * std::fabs(harmonic.inverse) < 0.99 * huge);
}

void FrontSums::add(const PaddleHarmonic& harmonic, std::span<const Maths::HarmonicFront> fronts,
                    SumArrays sums) {
  if (paddles_ == 0) return;
  if (!may_report(harmonic, fronts)) {
    add_unreported(harmonic, fronts, sums);
    return;
  }
  for (const Maths::HarmonicFront& front : fronts) add_reported(harmonic, front, sums);
}

void FrontSums::add_reported(const PaddleHarmonic& harmonic, const Maths::HarmonicFront& front,
                             SumArrays sums) const {
  // A front outside the tank's angle limits has amplitude 0, and its phase may be NaN.
  if (front.amp == 0.0) return;
  static const double quarter_cycle = Base::Pi * 0.5;
  const double kc = std::cos(front.angle) * harmonic.k;
  const double ks = std::sin(front.angle) * harmonic.k;
  for (std::size_t p = 0; p < paddles_; ++p) {
    const double offset = front.angle - row_.angle[p];
    if (std::fabs(offset) > harmonic.max_offset) continue;
    const double gain =
        Maths::obliquity_factor(harmonic.k, row_.width, offset) * front.amp * harmonic.inverse;
    const double lag = ks * row_.y[p] + kc * row_.x[p] + quarter_cycle;
    const double psi = front.phase - lag;
    sums.real[p] += gain * std::cos(psi);
    sums.imaginary[p] += gain * std::sin(psi);
    const std::complex<double> sum(sums.real[p], sums.imaginary[p]);
    if (std::abs(sum) > huge) Base::progress() << sum << ":";
  }
}

void FrontSums::add_unreported(const PaddleHarmonic& harmonic,
                               std::span<const Maths::HarmonicFront> fronts, SumArrays sums) {
  collect(harmonic, fronts);
  if (terms_.empty()) return;
  const RowArrays arrays{padded(),          row_.x.data(),          row_.y.data(),
                         row_.angle.data(), normal_cosines_.data(), normal_sines_.data()};
  if (!straight_) {
    add_turned_terms(arrays, harmonic, row_.width, terms_.data(), terms_.size(), sums);
    return;
  }
  find_gains(harmonic);
  // Of one amplitude.
  constexpr double rotation_error = 3e-13;
  if (paddles_ > paddle_group && std::fabs(harmonic.k) * unevenness_ < rotation_error) {
    find_steps(harmonic);
    add_even_terms(arrays, harmonic.k, terms_.data(), terms_.size(), sums);
  } else {
    add_straight_terms(arrays, harmonic.k, terms_.data(), terms_.size(), sums);
  }
}

// The fronts that any paddle makes, with the sines and cosines of their angles.
void FrontSums::collect(const PaddleHarmonic& harmonic,
                        std::span<const Maths::HarmonicFront> fronts) {
  terms_.clear();
  angles_.clear();
  for (const Maths::HarmonicFront& front : fronts) {
    // A front outside the tank's angle limits has amplitude 0, and its phase may be NaN.
    if (front.amp == 0.0) continue;
    if (straight_ && std::fabs(front.angle - row_.angle[0]) > harmonic.max_offset) continue;
    FrontTerm term;
    term.angle = front.angle;
    term.phase = front.phase;
    term.amp = front.amp;
    terms_.push_back(term);
    angles_.push_back(front.angle);
  }
  sines_.resize(terms_.size());
  cosines_.resize(terms_.size());
  // The last bit of a direction matters only far from the origin.
  constexpr double far = 1000.0;  // rad
  if (std::fabs(harmonic.k) * extent_ < far) {
    Base::sine_cosine(angles_.data(), angles_.size(), sines_.data(), cosines_.data());
  } else {
    std::transform(angles_.begin(), angles_.end(), sines_.begin(),
                   [](double angle) { return std::sin(angle); });
    std::transform(angles_.begin(), angles_.end(), cosines_.begin(),
                   [](double angle) { return std::cos(angle); });
  }
  for (std::size_t i = 0; i < terms_.size(); ++i) {
    terms_[i].sine = sines_[i];
    terms_[i].cosine = cosines_[i];
  }
}

void FrontSums::find_gains(const PaddleHarmonic& harmonic) {
  for (double& angle : angles_) angle -= row_.angle[0];
  obliquity_factors(angles_.data(), angles_.size(), harmonic.k * row_.width, sines_.data());
  for (std::size_t i = 0; i < terms_.size(); ++i) {
    terms_[i].gain = sines_[i] * terms_[i].amp * harmonic.inverse;
  }
}

void FrontSums::find_steps(const PaddleHarmonic& harmonic) {
  const double k = harmonic.k * static_cast<double>(paddle_group);
  for (std::size_t i = 0; i < terms_.size(); ++i) {
    angles_[i] = k * (terms_[i].sine * dy_ + terms_[i].cosine * dx_);
  }
  Base::sine_cosine(angles_.data(), angles_.size(), sines_.data(), cosines_.data());
  for (std::size_t i = 0; i < terms_.size(); ++i) {
    terms_[i].step_sine = sines_[i];
    terms_[i].step_cosine = cosines_[i];
  }
}

}  // namespace Synthesis
