#include "jobs/density_integral.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

#include "base/quantity.h"
#include "base/units.h"
#include "sea/piecewise_text.h"

namespace Jobs {

namespace {

// The rule of Gauss and Legendre with ten points (Abramowitz and Stegun 1972, table 25.4).
constexpr std::array<double, 5> places{0.1488743389816312, 0.4333953941292472, 0.6794095682990244,
                                       0.8650633666889845, 0.9739065285171717};
constexpr std::array<double, 5> weights{0.2955242247147529, 0.2692667193099963, 0.2190863625159820,
                                        0.1494513491505806, 0.0666713443086881};

double gauss_legendre(const Density& density, double from, double to) {
  const double middle = 0.5 * (from + to);
  const double half = 0.5 * (to - from);
  double sum = 0.0;
  for (std::size_t i = 0; i < places.size(); ++i) {
    sum += weights[i] * (density(middle - half * places[i]) + density(middle + half * places[i]));
  }
  return half * sum;
}

// Multiples of the peak frequency. Above the highest one a density that falls as 1/f^3 has 1e-10 of
// its energy.
constexpr double widest_step_below = 0.1;
constexpr double highest = 1e5;

}  // namespace

Density density_of(const std::string& text, const Base::Params& parameters) {
  const auto pieces = std::make_shared<Synthesis::Piecewise>(Synthesis::parse_component_text(text));
  Base::Params used;
  pieces->bind_with_limits(parameters, used);
  return [pieces](double frequency) {
    return pieces->function(0)
        .evaluate(Base::Quantity(frequency, Base::Category::frequency))
        .get(pieces->units().output);
  };
}

double density_integral(const Density& density, const PeakedRange& range) {
  double sum = 0.0;
  const auto add = [&](double from, double to) {
    const double a = std::max(from * range.peak, range.low);
    const double b = std::min(to * range.peak, range.high);
    if (a < b) sum += gauss_legendre(density, a, b);
  };
  // Steps grow with the distance from the peak, on either side.
  double at = 1.0;
  double step = std::min(range.width, widest_step_below);
  while (at > 0.0) {
    add(std::max(at - step, 0.0), at);
    at -= step;
    step = std::min(1.0 - at, widest_step_below);
  }
  at = 1.0;
  step = range.width;
  while (at < highest) {
    add(at, at + step);
    at += step;
    step = at - 1.0;
  }
  return sum;
}

}  // namespace Jobs
