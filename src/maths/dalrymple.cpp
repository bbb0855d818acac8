#include "maths/dalrymple.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <string>

#include "base/compose.h"
#include "base/constants.h"
#include "maths/rounding.h"

namespace Maths {
namespace {

using Modes = std::vector<std::complex<double>>;

// The highest cross-tank mode that propagates.
std::uint32_t highest_mode(double kW) {
  constexpr double most_modes = 1e5;
  const double highest = std::floor(kW / Base::Pi);
  if (!(highest >= 0.0 && highest <= most_modes)) {
    throw Base::compose("Dalrymple treatment::unusable number of modes for k * width = ", kW);
  }
  return truncate_to_u32(highest);
}

bool along_the_tank(const std::vector<HarmonicFront>& fronts) {
  return fronts.size() == 1 && std::fabs(fronts.front().angle) < 1e-6;
}

// The angle of a mode to the tank's axis. At the cut-off, where the mode runs straight across the
// tank, rounding may give a sine above 1.
double mode_angle(std::size_t m, double kW) {
  return std::asin(std::min(static_cast<double>(m) * Base::Pi / kW, 1.0));
}

// Adds what a front contributes to each mode.
void add_modes(Modes& modes, const HarmonicFront& front, const std::vector<double>& coefficients) {
  modes.resize(coefficients.size());
  const std::complex<double> unit(std::cos(front.phase), std::sin(front.phase));
  for (std::size_t m = 0; m < modes.size(); ++m) modes[m] += coefficients[m] * front.amp * unit;
}

// A mode is a front and its mirror image, which are in antiphase for odd m.
void append_pair(FrontSet& set, std::size_t slot, std::complex<double> mode, std::size_t m,
                 double angle) {
  const double sign = m % 2 == 1 ? -1.0 : 1.0;
  set.append(slot, {std::abs(mode), angle, std::arg(mode)});
  set.append(slot, {sign * std::abs(mode), -angle, std::arg(mode)});
}

}  // namespace

void dalrymple(FrontSet& set, const TankRun& tank, double width) {
  for (std::size_t slot = 0; slot < set.slots.size(); ++slot) {
    std::vector<HarmonicFront>& fronts = set.slots[slot];
    if (fronts.empty() || along_the_tank(fronts)) continue;

    const double k = tank.wave_num_at(slot, 0);
    const double kW = k * width;
    const std::uint32_t N = highest_mode(kW);
    std::vector<double> coefficients(std::size_t{N} + 1);
    Modes forward;
    Modes backward;
    for (const HarmonicFront& front : fronts) {
      const bool back = std::cos(front.angle) <= 0;
      dalrymple_angles(k, width, back ? -front.angle : front.angle, coefficients);
      add_modes(back ? backward : forward, front, coefficients);
    }

    fronts.clear();
    // Growing could take twice the memory that `append` checks.
    fronts.reserve((forward.empty() || backward.empty() ? 1 : 2) * (2 * std::size_t{N} + 1));
    if (!forward.empty()) {
      set.append(slot, {std::abs(forward[0]), 0.0, std::arg(forward[0])});
      for (std::size_t m = 1; m <= N; ++m) {
        append_pair(set, slot, forward[m], m, mode_angle(m, kW));
      }
    }
    if (!backward.empty()) {
      set.append(slot, {std::abs(backward[0]), Base::Pi, std::arg(backward[0])});
      for (std::size_t m = 1; m <= N; ++m) {
        append_pair(set, slot, backward[m], m, mode_angle(m, kW) - Base::Pi);
      }
    }
  }
}

void dalrymple_angles(double k, double width, double theta, std::vector<double>& coefficients) {
  if (coefficients.empty()) return;
  const double ky = k * std::sin(theta);
  if ((Base::Pi / (k * width)) * static_cast<double>(coefficients.size() - 1) > 1.0) {
    throw std::string("Too many mode in angle set for dalrymple_angles");
  }
  coefficients[0] = std::fabs(ky) < 1e-6 ? 1.0 : std::sin(ky * 0.5 * width) * 2.0 / (ky * width);
  for (std::size_t m = 1; m < coefficients.size(); ++m) {
    const double q = static_cast<double>(m) * Base::Pi / width;
    const double d = ky * ky - q * q;
    coefficients[m] = std::fabs(d) < 1e-6
                          ? 0.5
                          : std::sin((ky * width - static_cast<double>(m % 4) * Base::Pi) * 0.5) *
                                (ky * 2.0) / (d * width);
  }
}

}  // namespace Maths
