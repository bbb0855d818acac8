#include "sea/spectrum.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace Synthesis {

namespace {

using Base::Quantity;
using Base::UnitCategory;

// The integral of a density over the band of that centre and width, by the trapezium rule and the
// midpoint rule, halving their step until they agree to a thousandth of the density. `last_end`
// is the density at the band's left edge on entry, and at its right edge on return, so that
// neighbouring bands share one evaluation.
double band_integral(const Expression::Function& function, double centre, double width,
                     UnitCategory units, double& last_end) {
  const auto density = [&](double freq) {
    return function.evaluate(Quantity(freq, Base::Category::frequency)).get(units);
  };
  double step = width * 0.5;
  double mid = density(centre);
  const double end = density(centre + step);
  double tol = mid * 0.001;
  if (tol < 1e-7) tol = 1e-7;
  double trap = (end + last_end) * 0.5;
  for (int n = 2; std::abs(mid - trap) > tol && n <= 256; n *= 2) {
    step *= 0.5;
    trap = (trap + mid) * 0.5;
    mid = 0.0;
    for (int i = 1; i < n; i += 2) {
      mid = mid + density(centre + i * step) + density(centre - i * step);
    }
    mid /= n;
  }
  last_end = end;
  return (trap + mid) * (width * 0.5);
}

}  // namespace

void Spectrum::on_evaluate(const Base::Params&, Maths::FrontSet& fronts,
                           const RunContext& context) {
  const Maths::RunData& run = context.run;
  const double df = 1.0 / run.value();
  const std::size_t pieces = functions_.size() / 2;
  if (limits_.size() < 2) throw std::string("Evaluate has been called before set");
  if (limits_.size() != pieces + 1) {
    throw std::string("Mismatched number of functions and limits");
  }
  const double f_low = std::max(limits_.front(), run.freq(run.min_harmonic()));
  std::uint64_t h = run.wave_num(f_low);
  const double f_high = std::min(limits_.back(), run.freq(run.max_harmonic()));
  const std::uint64_t h_last = run.wave_num(f_high);
  const double half = df * 0.5;
  double last_end =
      functions_[1].evaluate(Quantity(run.freq(h) - half, input_units_)).get(output_units_);
  std::size_t segment = 0;
  for (; h <= h_last; ++h) {
    const double f = run.freq(h);
    double v = 0.0;
    if (segment + 1 < pieces && limits_[segment + 1] < f + half) {
      // The limit may lie below the whole band, where the grid starts above it: `left` is then
      // negative and takes back what `right` has too much. Hosts depend on one step a band.
      const double d = limits_[segment + 1] - f;
      const double left = half + d;
      const double right = half - d;
      v = band_integral(functions_[2 * segment + 1], f - right * 0.5, left, output_units_,
                        last_end);
      v += band_integral(functions_[2 * segment + 3], f + left * 0.5, right, output_units_,
                         last_end);
      ++segment;
    } else {
      v = band_integral(functions_[2 * segment + 1], f, df, output_units_, last_end);
    }
    if (output_units_ == Base::Category::variance) v = std::sqrt(v * 2.0);
    fronts.add_front(h, {v, 0.0, 0.0});
  }
}

}  // namespace Synthesis
