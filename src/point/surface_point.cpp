#include "point/surface_point.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "base/units.h"

namespace Synthesis {
namespace {

using Complex = std::complex<double>;
using Slot = std::vector<Maths::HarmonicFront>;

// The number of harmonics that both the samples and the fronts have.
std::size_t harmonic_count(const Maths::FrontSet& fronts, const PointSpec& point) {
  return std::min(Base::spectrum_size(point.samples), fronts.slots.size());
}

// A front outside the tank's angle limits keeps its slot with amplitude 0. Its phase can be NaN.
bool refused(const Maths::HarmonicFront& front) { return front.amp == 0.0; }

void require_in_tank(const Maths::TankRun& run, double x) { static_cast<void>(run.depth_at(x)); }

Complex wave(double amplitude, double phase) {
  return {amplitude * std::cos(phase), amplitude * std::sin(phase)};
}

bool finite(const Complex& z) { return std::isfinite(z.real()) && std::isfinite(z.imag()); }

double phase_of(const Complex& z) { return std::atan2(z.imag(), z.real()); }

// From the phase changes over a small step along x and one along y.
double direction_of(const Slot& slot, std::size_t h, Maths::TankRun& run, const PointSpec& point) {
  const double k0 = run.wave_num_at(h, 0.0);
  const double k1 = run.wave_num_at(h, point.x);
  constexpr double step_phase = 0.1;  // radians at the local wave number
  const double d = step_phase / k1;
  Complex at_point;
  Complex along;
  Complex across;
  for (const Maths::HarmonicFront& front : slot) {
    if (refused(front)) continue;
    const double psi = front.phase - run.phase_lag(h, point.x, point.y, front.angle);
    at_point += wave(front.amp, psi);
    along += wave(front.amp, psi + std::cos(front.angle) * k0 * d);
    across += wave(front.amp, psi + std::sin(front.angle) * k0 * d);
  }
  const double direction = std::atan2(phase_of(smith_quotient(across, at_point)),
                                      phase_of(smith_quotient(along, at_point)));
  return std::isnan(direction) ? 0.0 : direction;
}

}  // namespace

void surface_at(Base::Cvector& out, const Maths::FrontSet& fronts, Maths::TankRun& run,
                const PointSpec& point) {
  out.label = "Data";
  out.units = Base::default_units(Base::Category::length);
  out.length = point.samples;
  out.data.assign(Base::spectrum_size(point.samples), Complex());
  const std::size_t harmonics = harmonic_count(fronts, point);
  for (std::size_t h = 0; h < harmonics; ++h) {
    if (fronts.slots[h].empty()) continue;
    require_in_tank(run, point.x);
    const double shoaling = run.shoaling(h, point.x);
    for (const Maths::HarmonicFront& front : fronts.slots[h]) {
      if (refused(front)) continue;
      const double lag = run.phase_lag(h, point.x, point.y, front.angle);
      out.data[h] += wave(shoaling * front.amp, front.phase - lag);
    }
  }
}

void direction_at(Base::Vector& out, const Maths::FrontSet& fronts, Maths::TankRun& run,
                  const PointSpec& point) {
  out.label = "Data";
  out.units = Base::default_units(Base::Category::angle);
  out.length = Base::spectrum_size(point.samples);
  out.data.assign(out.length, 0.0);
  const std::size_t harmonics = harmonic_count(fronts, point);
  for (std::size_t h = 0; h < harmonics; ++h) {
    const Slot& slot = fronts.slots[h];
    if (!slot.empty()) out.data[h] = direction_of(slot, h, run, point);
  }
}

Complex smith_quotient(Complex a, Complex b) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  if (!finite(a) || !finite(b) || b == Complex()) return {nan, nan};
  if (std::fabs(b.imag()) < std::fabs(b.real())) {
    const double ratio = b.imag() / b.real();
    const double divisor = b.real() + ratio * b.imag();
    return {(a.real() + a.imag() * ratio) / divisor, (a.imag() - a.real() * ratio) / divisor};
  }
  const double ratio = b.real() / b.imag();
  const double divisor = b.imag() + ratio * b.real();
  return {(a.real() * ratio + a.imag()) / divisor, (a.imag() * ratio - a.real()) / divisor};
}

}  // namespace Synthesis
