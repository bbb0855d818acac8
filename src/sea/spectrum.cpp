#include "sea/spectrum.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "sea/band_integral.h"

namespace Synthesis {

namespace {

// The integrals over bands of one width, which follow one another in rising frequency.
class Bands {
 public:
  // `left_edge` is that of the first band.
  Bands(const Piecewise& density, double left_edge, double width)
      : width_(width),
        walk_(density.limits()),
        curves_(density.curves(Base::Category::frequency, density.units().output)),
        last_end_(density.function(0)
                      .evaluate(Base::Quantity(left_edge, density.units().input))
                      .get(density.units().output)) {}

  double next(double centre) {
    const double half = width_ * 0.5;
    const std::optional<double> limit = walk_.limit_before(centre + half);
    if (!limit) return integrate(centre, width_);
    // Each part has its own function. The limit may lie below the whole band, where the run starts
    // above it: `left` is then negative and takes back the excess of `right`.
    const double from_centre = *limit - centre;
    const double left = half + from_centre;
    const double right = half - from_centre;
    const double below = integrate(centre - right * 0.5, left);
    walk_.pass_limit();
    return below + integrate(centre + left * 0.5, right);
  }

 private:
  double integrate(double centre, double width) {
    return band_integral(curves_[walk_.function()], centre, width, last_end_);
  }

  double width_;
  BandWalk walk_;
  Curves curves_;
  double last_end_;  // the density at the right edge of the last band
};

}  // namespace

void Spectrum::on_set(Base::Params& in, Base::Params& stored) {
  density_.bind_with_limits(in, stored);
  density_.check_limits_rise();
}

void Spectrum::on_evaluate(const Base::Params&, Maths::FrontSet& fronts,
                           const RunContext& context) {
  const Maths::RunData& run = context.run;
  const Limits& limits = density_.limits();
  const double df = 1.0 / run.value();
  if (limits.size() < 2) throw std::string("Evaluate has been called before set");
  if (!density_.has_all_limits()) throw std::string("Mismatched number of functions and limits");

  // Cut to the harmonics that the wavemaker can make, both ends included.
  const double f_low = std::max(limits.front(), run.freq(run.min_harmonic()));
  const std::uint64_t h_first = run.wave_num(f_low);
  const double f_high = std::min(limits.back(), run.freq(run.max_harmonic()));
  const std::uint64_t h_last = run.wave_num(f_high);

  const bool is_variance = density_.units().output == Base::Category::variance;
  Bands bands(density_, run.freq(h_first) - df * 0.5, df);
  for (std::uint64_t h = h_first; h <= h_last; ++h) {
    const double integral = bands.next(run.freq(h));
    // A sine wave of amplitude a has the variance a^2 / 2.
    fronts.add_front(h, {is_variance ? std::sqrt(integral * 2.0) : integral, 0.0, 0.0});
  }
}

}  // namespace Synthesis
