#include "drive/paddle_spectrum.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/constants.h"

namespace Synthesis {
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

}  // namespace Synthesis
