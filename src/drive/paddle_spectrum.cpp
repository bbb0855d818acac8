#include "drive/paddle_spectrum.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "base/constants.h"
#include "base/streams.h"
#include "maths/wavemaker_ratio.h"

namespace Synthesis {
namespace {

void report_if_huge(const std::complex<double>& amplitude) {
  // The square is cheap and rules out almost every amplitude. Only the modulus decides.
  const double square = std::norm(amplitude);
  if (square < 0.99e20) return;
  if (std::abs(amplitude) > 1e10) Base::progress() << amplitude << ":";
}

}  // namespace

PaddleHarmonic::PaddleHarmonic(double wave_number, double ratio, double paddle_width)
    : k(wave_number), inverse(1.0 / ratio), max_offset(std::numeric_limits<double>::infinity()) {
  const double kw = k * paddle_width;
  if (kw >= Base::Pi) max_offset = std::asin(Base::Pi / kw);
}

bool reaches(const PaddleRow& row, const PaddleHarmonic& harmonic,
             const Maths::HarmonicFront& front) {
  return std::any_of(row.angle.begin(), row.angle.end(), [&](double normal) {
    return !(std::abs(front.angle - normal) > harmonic.max_offset);
  });
}

void add_front(const PaddleRow& row, const PaddleHarmonic& harmonic,
               const Maths::HarmonicFront& front, std::complex<double>* amplitudes) {
  // A front outside the tank's angle limits has amplitude 0, and its phase may be NaN.
  if (front.amp == 0.0) return;
  static const double quarter_cycle = Base::Pi * 0.5;
  const double kc = std::cos(front.angle) * harmonic.k;
  const double ks = std::sin(front.angle) * harmonic.k;

  // Neighbouring paddles mostly face the same way. The gain is computed again only where the normal
  // changes.
  double normal = std::numeric_limits<double>::quiet_NaN();
  double gain = 0.0;
  bool made = false;
  for (std::size_t p = 0; p < row.angle.size(); ++p) {
    if (row.angle[p] != normal) {
      normal = row.angle[p];
      const double offset = front.angle - normal;
      made = !(std::abs(offset) > harmonic.max_offset);
      gain = Maths::obliquity_factor(harmonic.k, row.width, offset) * front.amp * harmonic.inverse;
    }
    if (!made) continue;
    const double lag = ks * row.y[p] + kc * row.x[p] + quarter_cycle;
    const double psi = front.phase - lag;
    amplitudes[p] += gain * std::complex<double>(std::cos(psi), std::sin(psi));
    report_if_huge(amplitudes[p]);
  }
}

}  // namespace Synthesis
