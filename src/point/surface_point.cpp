#include "point/surface_point.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "base/units.h"
#include "point/point_fronts.h"

namespace Synthesis {
namespace {

using Complex = std::complex<double>;

// The number of harmonics that both the samples and the fronts have.
std::size_t harmonic_count(const Maths::FrontSet& fronts, const PointSpec& point) {
  return std::min(Base::spectrum_size(point.samples), fronts.slots.size());
}

void label(Base::Cvector& surface, const PointSpec& point) {
  surface.label = "Data";
  surface.units = Base::default_units(Base::Category::length);
  surface.length = point.samples;
  surface.data.assign(Base::spectrum_size(point.samples), Complex());
}

void label(Base::Vector& directions, const PointSpec& point) {
  directions.label = "Data";
  directions.units = Base::default_units(Base::Category::angle);
  directions.length = Base::spectrum_size(point.samples);
  directions.data.assign(directions.length, 0.0);
}

bool finite(const Complex& z) { return std::isfinite(z.real()) && std::isfinite(z.imag()); }

double phase_of(const Complex& z) { return std::atan2(z.imag(), z.real()); }

// From the phase changes over a small step along x and one along y.
double direction_of(Complex at_point, Complex along, Complex across) {
  const double direction = std::atan2(phase_of(smith_quotient(across, at_point)),
                                      phase_of(smith_quotient(along, at_point)));
  return std::isnan(direction) ? 0.0 : direction;
}

void add_surface(Base::Cvector& surface, const PointFronts& at) {
  const PointWaves& waves = at.waves();
  for (const Maths::CarriedFronts::Harmonic& harmonic : at.carried().harmonics()) {
    Complex& sum = surface.data[harmonic.index];
    for (std::size_t i = harmonic.first; i < harmonic.last; ++i) {
      const double amp = harmonic.shoaling * at.carried().amps()[i];
      sum += Complex(amp * waves.cosines[i], amp * waves.sines[i]);
    }
  }
}

void add_directions(Base::Vector& directions, PointFronts& at) {
  const PointSteps& steps = at.take_steps();
  const std::vector<double>& amps = at.carried().amps();
  const auto sum = [&](const PointWaves& waves, const Maths::CarriedFronts::Harmonic& harmonic) {
    Complex total;
    for (std::size_t i = harmonic.first; i < harmonic.last; ++i) {
      total += Complex(amps[i] * waves.cosines[i], amps[i] * waves.sines[i]);
    }
    return total;
  };
  for (const Maths::CarriedFronts::Harmonic& harmonic : at.carried().harmonics()) {
    directions.data[harmonic.index] = direction_of(
        sum(at.waves(), harmonic), sum(steps.along, harmonic), sum(steps.across, harmonic));
  }
}

}  // namespace

std::uint64_t point_memory(const Maths::FrontSet& fronts, const PointSpec& point) {
  return PointFronts::memory(fronts, harmonic_count(fronts, point));
}

void surface_at(Base::Cvector& out, const Maths::FrontSet& fronts, Maths::TankRun& run,
                const PointSpec& point) {
  label(out, point);
  PointFronts at(fronts, harmonic_count(fronts, point), run, point, PointFronts::surface);
  while (at.next()) add_surface(out, at);
}

void direction_at(Base::Vector& out, const Maths::FrontSet& fronts, Maths::TankRun& run,
                  const PointSpec& point) {
  label(out, point);
  PointFronts at(fronts, harmonic_count(fronts, point), run, point, PointFronts::directions);
  while (at.next()) add_directions(out, at);
}

void wave_at(Base::Cvector& surface, Base::Vector& directions, const Maths::FrontSet& fronts,
             Maths::TankRun& run, const PointSpec& point) {
  label(surface, point);
  label(directions, point);
  PointFronts at(fronts, harmonic_count(fronts, point), run, point, PointFronts::both);
  while (at.next()) {
    add_surface(surface, at);
    add_directions(directions, at);
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
